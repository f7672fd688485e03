#include "driver/win32/native_ruler.h"

#include "driver/driver.h"
#include "forms/win32/display.h"

namespace zv::driver {

using namespace forms;
using namespace forms::win32;

HWND NativeRuler::HandleOf(const Control& control) const {
    const NativeControl* native = window_.Find(control);
    if (!native) throw DriverError(control.DisplayName() + " has no native window");
    return native->Handle();
}

Rect NativeRuler::PlaceOf(const Control& control) const {
    const HWND window = HandleOf(control);
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    if (!control.Parent()) {
        const Position scrolled = window_.ScrolledPixels();
        OffsetRect(&place, scrolled.x, scrolled.y);
    }
    return {static_cast<int>(place.left), static_cast<int>(place.top),
            static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)};
}

Size NativeRuler::RoomIn(const Control& control) const {
    RECT client{};
    GetClientRect(HandleOf(control), &client);
    return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

Size NativeRuler::ContentOf(const Form& form) const {
    return {Own(form.ClientSize().width), Own(form.ClientSize().height)};
}

Size NativeRuler::SizeOf(const Control& control, std::string_view text) const {
    // A window that paints itself names no font.
    auto* font = reinterpret_cast<HFONT>(SendMessageW(HandleOf(control), WM_GETFONT, 0, 0));
    if (!font) font = window_.UiFont();
    const SIZE size = forms::win32::MeasureText(font, text);
    return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

}  // namespace zv::driver
