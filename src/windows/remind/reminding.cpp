#include "windows/remind/reminding.h"

#include <utility>

#include "base/number.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {
namespace {

frmRemind* Present(const Session& session) {
    return session.windows.Find<frmRemind>(frmRemind::kName);
}

}  // namespace

void StartReminding(Session& session, std::function<void(const items::SavedItem&)> open) {
    frmRemind* window = Present(session);
    if (window) return window->StartAgain();
    window = &session.windows.Create<frmRemind>(session, std::move(open));
    window->LoadUnseen();
    if (window->IsLoaded()) window->LookAgain();
}

void StopReminding(Session& session) {
    if (frmRemind* window = Present(session)) window->Unload();
}

bool IsReminding(const Session& session) {
    return Present(session) != nullptr;
}

int RemindInterval(const Session& session) {
    constexpr double kUsual = 5;
    constexpr double kLongest = 24 * 60;
    const std::string text = session.GetSetting(resources::kTaskSection, "RemindInterval", "5");
    double minutes = kUsual;
    try {
        minutes = number::ToDouble(text);
    } catch (const RuntimeError&) {
        // What somebody wrote there is no number.
    }
    const bool fits = minutes >= 1 && minutes <= kLongest;
    return static_cast<int>(fits ? minutes : kUsual);
}

}  // namespace zv::windows
