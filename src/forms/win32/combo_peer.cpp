#include "forms/win32/combo_peer.h"

#include <algorithm>

#include "forms/win32/entry_line.h"
#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

constexpr int kVisibleRows = 12;

}  // namespace

void NativeCombo::Create(HWND parent, int id) {
    const bool listOnly = Box().Style() == ComboStyle::ListOnly;
    CreateNative(parent, id, WC_COMBOBOXW,
                 WS_TABSTOP | WS_VSCROLL | WS_CLIPCHILDREN |
                     (listOnly ? CBS_DROPDOWNLIST : CBS_DROPDOWN | CBS_AUTOHSCROLL));
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!listOnly && GetComboBoxInfo(Handle(), &info) && info.hwndItem != Handle()) {
        edit_ = info.hwndItem;
        Watch(edit_);
    }
    const Quiet quiet(*this);
    ApplyBounds();
    Mirror(Aspect::MaxLength);
    Mirror(Aspect::Locked);
    ShowItems();
}

// The native height includes the list that drops; the entry's own is set separately.
void NativeCombo::ApplyBounds() {
    const RECT bounds = PixelBounds();
    const int height = static_cast<int>(bounds.bottom - bounds.top);
    PlaceAround(height - frame_, bounds);
    // How thick the frame is, the system decides; it does not grow with the resolution.
    RECT closed{};
    GetWindowRect(Handle(), &closed);
    const int excess = static_cast<int>(closed.bottom - closed.top) - height;
    if (excess != 0 && height > 0) {
        frame_ += excess;
        PlaceAround(height - frame_, bounds);
    }
    ShowLocked();
}

void NativeCombo::PlaceAround(int entry, const RECT& bounds) {
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(1, entry));
    const auto row = static_cast<int>(Send(CB_GETITEMHEIGHT, 0));
    SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top + row * kVisibleRows, SWP_NOZORDER | SWP_NOACTIVATE);
}

// A list that nothing can be taken from shows no button that opens it: the entry covers it.
void NativeCombo::ShowLocked() {
    if (!edit_) return;
    SendMessageW(edit_, EM_SETREADONLY, Box().Locked(), 0);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!GetComboBoxInfo(Handle(), &info)) return;
    RECT client{};
    GetClientRect(Handle(), &client);
    const RECT& item = info.rcItem;
    const LONG right = Box().Locked() ? client.right - item.left : item.right;
    SetWindowPos(edit_, HWND_TOP, item.left, item.top, right - item.left, item.bottom - item.top,
                 SWP_NOACTIVATE);
    PlaceEntryLine(edit_);
    InvalidateRect(Handle(), nullptr, TRUE);
}

void NativeCombo::ResolutionChanged() {
    const Quiet quiet(*this);
    NativeControl::ResolutionChanged();
}

void NativeCombo::ShowItems() {
    const std::vector<std::string>& items = Box().Items();
    // Rows are mostly added one by one: what stands there already stays.
    std::size_t same = 0;
    while (same < shown_.size() && same < items.size() && shown_[same] == items[same]) same++;
    for (std::size_t i = shown_.size(); i > same; i--) Send(CB_DELETESTRING, i - 1);
    for (std::size_t i = same; i < items.size(); i++) {
        Send(CB_INSERTSTRING, i, reinterpret_cast<LPARAM>(ToWide(items[i]).c_str()));
    }
    shown_ = items;
    ShowText();
}

void NativeCombo::ShowText() {
    const auto index = static_cast<WPARAM>(static_cast<INT_PTR>(Box().ListIndex()));
    if (Send(CB_GETCURSEL) != Box().ListIndex()) Send(CB_SETCURSEL, index);
    if (edit_ && WindowText(Handle()) != Box().Text()) {
        SetWindowTextW(Handle(), ToWide(Box().Text()).c_str());
    }
}

void NativeCombo::Mirror(Aspect aspect) {
    switch (aspect) {
        case Aspect::Items:
            ShowItems();
            break;
        case Aspect::Selection:
        case Aspect::Text:
            ShowText();
            break;
        case Aspect::MaxLength:
            Send(CB_LIMITTEXT, static_cast<WPARAM>(Box().MaxLength()));
            break;
        case Aspect::Locked:
            ShowLocked();
            break;
        default:
            break;
    }
}

void NativeCombo::OnCommand(UINT code) {
    if (IsQuiet()) return;
    if (code == CBN_SELCHANGE) {
        if (Box().Locked()) {
            const Quiet quiet(*this);
            ShowText();
            return;
        }
        Box().UserPick(static_cast<int>(Send(CB_GETCURSEL)));
    } else if (code == CBN_EDITCHANGE) {
        Box().UserText(WindowText(Handle()));
    }
}

void NativeCombo::PaintOverButton() const {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!GetComboBoxInfo(Handle(), &info)) return;
    const HDC dc = GetDC(Handle());
    FillRect(dc, &info.rcButton, GetSysColorBrush(COLOR_BTNFACE));
    ReleaseDC(Handle(), dc);
}

std::optional<LRESULT> NativeCombo::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (edit_ && Target() == edit_) {
        const bool reads = Box().Locked() || !IsWindowEnabled(Handle());
        const auto result =
            AnswerForEntryLine(edit_, Owner().UiFont(), reads, message, wParam, lParam,
                               [&] { return Native(message, wParam, lParam); });
        if (result) return result;
    }
    if (message == WM_PAINT && edit_ && Box().Locked()) {
        const LRESULT result = Native(message, wParam, lParam);
        PaintOverButton();
        return result;
    }
    // The wheel over a box that only has the focus must not change it behind the user's back.
    if (message == WM_MOUSEWHEEL && !Send(CB_GETDROPPEDSTATE)) {
        return 0;
    }
    return std::nullopt;
}

void NativeCombo::CloseList() {
    if (ListOpen()) Send(CB_SHOWDROPDOWN, FALSE);
}

bool NativeCombo::ListOpen() const {
    return Send(CB_GETDROPPEDSTATE) != 0;
}

}  // namespace zv::forms::win32
