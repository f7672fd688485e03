// Where reminders are kept: in the database, or on the workstation while the database has no table
// for them.
#pragma once

#include "reminders/memory.h"
#include "reminders/settings_memory.h"
#include "reminders/table_memory.h"

namespace zv::reminders {

/// Whether there is the table is seen at each call: one that is dropped meanwhile loses what was in
/// it and nothing else, and into one that is made goes what the workstation kept. Other database
/// errors reach the caller.
class StoreMemory final : public Memory {
 public:
    /// Both must outlive this.
    StoreMemory(store::Database& database, resources::SettingsStore& settings)
        : table_(database), workstation_(settings) {}

    std::vector<Answer> Answers(std::string_view user) override;
    void Keep(std::string_view user, const std::vector<Answer>& answers) override;
    void Forget(std::string_view user, const std::vector<Key>& keys) override;
    /// That of the workstation where it is the earlier one.
    DateTime FirstLook(std::string_view user, DateTime now) override;

 private:
    void MoveIntoTable(std::string_view user, std::vector<Answer>& inTable);

    TableMemory table_;
    SettingsMemory workstation_;
};

}  // namespace zv::reminders
