#include "forms/win32/up_down_peer.h"

namespace zv::forms::win32 {

void NativeUpDown::Create(HWND parent, int id) {
    CreateNative(parent, id, UPDOWN_CLASSW, 0);
    // It begins as wide as the system likes, at any resolution.
    ApplyBounds();
    // With the greater bound above, up counts up.
    Send(UDM_SETRANGE32, static_cast<WPARAM>(-100), 100);
    Send(UDM_SETPOS32, 0, 0);
}

LRESULT NativeUpDown::OnNotify(NMHDR& header) {
    if (header.code != UDN_DELTAPOS || IsQuiet()) return 0;
    const auto& change = reinterpret_cast<const NMUPDOWN&>(header);
    static_cast<UpDown&>(Logical()).UserSpin(change.iDelta > 0 ? +1 : -1);
    return TRUE;  // the native position never changes, so it never reaches an end
}

}  // namespace zv::forms::win32
