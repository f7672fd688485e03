#include "com/event_source.h"

#include <algorithm>
#include <utility>

#include "automation/module.h"
#include "com/connection_points.h"

namespace zv::com {

using win32::Variant;

template <class... Arguments>
void EventSource::Raise(EventId id, Arguments... arguments) {
    // A listener may let go of the last control.
    const automation::module::Reference loaded;
    const auto event = std::make_shared<Event>();
    event->id = id;
    (event->arguments.push_back(Variant(arguments)), ...);
    const forms::DpiScope host = dpi_.ForHost();
    const std::vector<ConnectionPoints*> present = controls_;
    for (ConnectionPoints* control : present) {
        const bool lives =
            std::find(controls_.begin(), controls_.end(), control) != controls_.end();
        if (lives) control->Raise(event);
    }
}

void EventSource::AlertShown(std::int32_t count) {
    Raise(kAlertShown, count);
}

void EventSource::ItemSaved(std::int32_t id, bool isNew) {
    Raise(kItemSaved, id, isNew);
}

void EventSource::ItemDeleted(std::int32_t id) {
    Raise(kItemDeleted, id);
}

void EventSource::ItemDone(std::int32_t id, std::int16_t state) {
    Raise(kItemDone, id, state);
}

void EventSource::PlanGenerated(std::int32_t id, std::int32_t rows) {
    Raise(kPlanGenerated, id, rows);
}

void EventSource::WindowClosed(const std::string& name) {
    Raise(kWindowClosed, std::string_view(name));
}

void EventSource::ReminderShown(std::int32_t count) {
    Raise(kReminderShown, count);
}

void EventSource::ReminderActed(std::int32_t id, std::int16_t act) {
    Raise(kReminderActed, id, act);
}

}  // namespace zv::com
