// Reminders kept in the database, in the table zvReminder.
#pragma once

#include <memory>
#include <string>

#include "reminders/memory.h"
#include "store/database.h"

namespace zv::reminders {

/// Database errors reach the caller; without the table they are of the kind NoTable.
class TableMemory final : public Memory {
 public:
    /// `database` must outlive this.
    explicit TableMemory(store::Database& database) : database_(database) {}

    std::vector<Answer> Answers(std::string_view user) override;
    void Keep(std::string_view user, const std::vector<Answer>& answers) override;
    void Forget(std::string_view user, const std::vector<Key>& keys) override;
    DateTime FirstLook(std::string_view user, DateTime now) override;

 private:
    void KeepOne(std::string_view user, const Answer& answer);
    void ForgetOne(std::string_view user, const Key& key);

    store::Database& database_;
};

}  // namespace zv::reminders
