#include "forms/win32/input_box.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

// A dialog template without controls, which are added when the resolution is known.
struct EmptyTemplate {
    DLGTEMPLATE header;
    WORD menu;
    WORD windowClass;
    WORD title;
};

constexpr int kWidth = 360;
constexpr int kMargin = 12;
constexpr int kButtonWidth = 84;
constexpr int kRow = 26;

}  // namespace

InputBox::InputBox(HINSTANCE module, const Screens& screens, std::wstring title,
                   std::wstring prompt, bool secret)
    : module_(module),
      screens_(screens),
      title_(std::move(title)),
      prompt_(std::move(prompt)),
      secret_(secret) {}

std::optional<std::wstring> InputBox::Show(HWND owner) {
    EmptyTemplate empty{};
    empty.header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    const INT_PTR answer = DialogBoxIndirectParamW(
        module_, &empty.header, owner, &InputBox::Procedure, reinterpret_cast<LPARAM>(this));
    died_ = answer != IDOK && answer != IDCANCEL;
    if (answer != IDOK) return {};
    return text_;
}

void InputBox::Add(HWND dialog, const wchar_t* windowClass, const std::wstring& text, DWORD style,
                   DWORD extendedStyle, int id, const Rect& place) {
    const RECT at = scale_.ToPixels(place);
    const HWND window =
        CreateWindowExW(extendedStyle, windowClass, text.c_str(), style | WS_CHILD | WS_VISIBLE,
                        at.left, at.top, at.right - at.left, at.bottom - at.top, dialog,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module_, nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    parts_.push_back({window, place});
}

void InputBox::Rescale(HWND dialog, int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    const Font former = std::exchange(font_, CreateUiFont(dpi));
    for (const Part& part : parts_) {
        const RECT at = scale_.ToPixels(part.place);
        SendMessageW(part.window, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
        SetWindowPos(part.window, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    // The frame does not grow as the content does.
    const SIZE size = OuterSize(dialog);
    SetWindowPos(dialog, nullptr, suggested.left, suggested.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(dialog, nullptr, TRUE);
}

SIZE InputBox::OuterSize(HWND dialog) const {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE));
    const auto extended = static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE));
    const RECT outer = OuterRect({0, 0, scale_.ToPixels(kWidth), scale_.ToPixels(height_)}, style,
                                 extended, false, screens_.FrameDpi(scale_.Dpi()));
    return {outer.right - outer.left, outer.bottom - outer.top};
}

void InputBox::Build(HWND dialog) {
    scale_ = Scale(screens_.DpiOf(dialog));
    font_ = CreateUiFont(scale_.Dpi());
    SetWindowTextW(dialog, title_.c_str());
    const SIZE size = MeasureText(font_.get(), FromWide(prompt_));
    const int inner = kWidth - 2 * kMargin;
    const int lines = 1 + scale_.ToUnits(static_cast<int>(size.cx)) / inner;
    const int promptHeight = std::max(20, scale_.ToUnits(static_cast<int>(size.cy)) * lines + 4);
    int top = kMargin;
    Add(dialog, WC_STATICW, prompt_, SS_LEFT, 0, -1, {kMargin, top, inner, promptHeight});
    top += promptHeight + 4;
    Add(dialog, WC_EDITW, {}, WS_TABSTOP | ES_AUTOHSCROLL | (secret_ ? ES_PASSWORD : 0),
        WS_EX_CLIENTEDGE, kEntryId, {kMargin, top, inner, kRow});
    top += kRow + kMargin;
    const int right = kWidth - kMargin;
    Add(dialog, WC_BUTTONW, okCaption, WS_TABSTOP | BS_DEFPUSHBUTTON, 0, IDOK,
        {right - 2 * kButtonWidth - 8, top, kButtonWidth, kRow});
    Add(dialog, WC_BUTTONW, cancelCaption, WS_TABSTOP | BS_PUSHBUTTON, 0, IDCANCEL,
        {right - kButtonWidth, top, kButtonWidth, kRow});
    top += kRow + kMargin;
    height_ = top;

    RECT area{};
    const HWND owner = GetWindow(dialog, GW_OWNER);
    const RECT work = screens_.WorkAreaAt(owner);
    if (!owner || !GetWindowRect(owner, &area)) area = work;
    const auto [width, height] = OuterSize(dialog);
    // Over its owner, but never outside the screen.
    const auto middle = [](LONG first, LONG last, LONG extent, LONG least, LONG most) {
        return static_cast<int>(
            std::max(std::min((first + last - extent) / 2, most - extent), least));
    };
    SetWindowPos(dialog, nullptr, middle(area.left, area.right, width, work.left, work.right),
                 middle(area.top, area.bottom, height, work.top, work.bottom),
                 static_cast<int>(width), static_cast<int>(height), SWP_NOZORDER);
    SetFocus(GetDlgItem(dialog, kEntryId));
}

INT_PTR CALLBACK InputBox::Procedure(HWND dialog, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept {
    auto* self = reinterpret_cast<InputBox*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    try {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
            reinterpret_cast<InputBox*>(lParam)->Build(dialog);
            return FALSE;  // the focus has been set
        }
        if (message == WM_DPICHANGED && self) {
            self->Rescale(dialog, HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return TRUE;
        }
        if (message != WM_COMMAND || !self) return FALSE;
        if (LOWORD(wParam) == IDOK) self->text_ = ToWide(WindowText(GetDlgItem(dialog, kEntryId)));
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) {
            EndDialog(dialog, LOWORD(wParam));
            return TRUE;
        }
    } catch (...) {
        EndDialog(dialog, IDCANCEL);
        return TRUE;
    }
    return FALSE;
}

}  // namespace zv::forms::win32
