// What is kept of the reminders that users put off or dismissed. It holds on whatever workstation a
// user sits where the database has a table for it, else on the workstation.
#pragma once

#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "reminders/reminder.h"

namespace zv::reminders {

class Memory {
 public:
    virtual ~Memory() = default;

    virtual std::vector<Answer> Answers(std::string_view user) = 0;
    /// Each in place of an earlier answer to the same reminder.
    virtual void Keep(std::string_view user, const std::vector<Answer>& answers) = 0;
    /// One that was not kept is no error.
    virtual void Forget(std::string_view user, const std::vector<Key>& keys) = 0;
    /// When reminders of this user were looked at for the first time ever, which is `now` when they
    /// never were.
    virtual DateTime FirstLook(std::string_view user, DateTime now) = 0;
};

}  // namespace zv::reminders
