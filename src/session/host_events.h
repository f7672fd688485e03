// What a host can listen to: one event for each act of the user or call of the host that changed
// something, after it is stored.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

/// May call back into the control: it is called when no handler is under way and no recordset is
/// open. What it throws is the listener's own affair and must not leave it.
class HostEvents {
 public:
    virtual ~HostEvents() = default;

    /// An alert pass has shown its window; `count` is that of the items in it.
    virtual void AlertShown(std::int32_t count) = 0;
    /// `id` as the database numbers the item; 0 where it does not give the number of a new one.
    virtual void ItemSaved(std::int32_t id, bool isNew) = 0;
    virtual void ItemDeleted(std::int32_t id) = 0;
    /// The item was brought into a state: 0 not done, 1 done, 2 in hand, or the flag of the host.
    virtual void ItemDone(std::int32_t id, std::int16_t state) = 0;
    /// The open items of a plan were replaced by `rows` new ones; 0 when the plan was deleted.
    virtual void PlanGenerated(std::int32_t id, std::int32_t rows) = 0;
    /// The window of reminders has come up, or stands and has `count` more.
    virtual void ReminderShown(std::int32_t count) = 0;
    /// The user has answered the reminder of an item: 1 done, 2 in hand, 3 opened, 4 later,
    /// 5 dismissed.
    virtual void ReminderActed(std::int32_t id, std::int16_t act) = 0;
    /// A window that was shown is gone.
    virtual void WindowClosed(const std::string& name) = 0;
};

/// For a listener that wants only some of them.
class PartialHostEvents : public HostEvents {
 public:
    void AlertShown(std::int32_t) override {}
    void ItemSaved(std::int32_t, bool) override {}
    void ItemDeleted(std::int32_t) override {}
    void ItemDone(std::int32_t, std::int16_t) override {}
    void PlanGenerated(std::int32_t, std::int32_t) override {}
    void ReminderShown(std::int32_t) override {}
    void ReminderActed(std::int32_t, std::int16_t) override {}
    void WindowClosed(const std::string&) override {}
};

}  // namespace zv
