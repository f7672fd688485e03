// The events of the class: what the session announces reaches the listeners of every control.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "base/win32/variant.h"
#include "forms/dpi_awareness.h"
#include "session/host_events.h"

namespace zv::com {

class ConnectionPoints;

/// The members of the event interface, as the type library numbers them.
enum EventId : DISPID {
    kAlertShown = 1,
    kItemSaved,
    kItemDeleted,
    kItemDone,
    kPlanGenerated,
    kWindowClosed,
    kReminderShown,
    kReminderActed,
};

/// With its arguments in the order in which they are written in a call.
struct Event {
    DISPID id = 0;
    std::vector<win32::Variant> arguments;
};

/// One for the session: the controls of a process share their windows, so each of them reports what
/// happens there. What a listener answers, fails with or calls meanwhile changes nothing for the
/// others.
class EventSource final : public HostEvents {
 public:
    /// Listeners run in the context of the host, as code of its own.
    explicit EventSource(forms::DpiAwareness& dpi) : dpi_(dpi) {}
    void Add(ConnectionPoints& control) { controls_.push_back(&control); }
    void Remove(ConnectionPoints& control) { std::erase(controls_, &control); }

    void AlertShown(std::int32_t count) override;
    void ItemSaved(std::int32_t id, bool isNew) override;
    void ItemDeleted(std::int32_t id) override;
    void ItemDone(std::int32_t id, std::int16_t state) override;
    void PlanGenerated(std::int32_t id, std::int32_t rows) override;
    void WindowClosed(const std::string& name) override;
    void ReminderShown(std::int32_t count) override;
    void ReminderActed(std::int32_t id, std::int16_t act) override;

 private:
    template <class... Arguments>
    void Raise(EventId id, Arguments... arguments);

    forms::DpiAwareness& dpi_;
    std::vector<ConnectionPoints*> controls_;
};

}  // namespace zv::com
