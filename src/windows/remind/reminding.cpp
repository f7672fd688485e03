#include "windows/remind/reminding.h"

#include <utility>

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

}  // namespace zv::windows
