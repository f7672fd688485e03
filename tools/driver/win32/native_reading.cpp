// What native windows show, in the words of a driver's properties.
#include <array>

#include "driver/win32/win32_driver.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/lists.h"
#include "forms/progress_bar.h"
#include "forms/text_box.h"
#include "forms/win32/date_picker_peer.h"
#include "forms/win32/form_window.h"
#include "forms/win32/grid_peer.h"
#include "forms/win32/tree_peer.h"
#include "forms/win32/wide_text.h"

namespace zv::driver {

using namespace forms;
using namespace forms::win32;

namespace {

using Text = std::optional<std::string>;
using Arguments = std::vector<int>;

constexpr std::size_t kLongestItem = 4096;

// An access key that stands behind a caption is no part of it.
Text ReadCaption(const NativeControl& native) {
    std::string shown = WindowText(native.Handle());
    const std::string mark = native.Logical().Marked({});
    if (!mark.empty() && shown.ends_with(mark)) shown.erase(shown.size() - mark.size());
    return shown;
}

LPARAM AsParam(const void* pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

Text Truth(bool value) {
    return value ? "true" : "false";
}

Text ReadEntry(const NativeControl& native, const std::string& property) {
    if (property == "text") return WindowText(native.Handle());
    if (property == "locked") {
        return Truth(GetWindowLongPtrW(native.FocusHandle(), GWL_STYLE) & ES_READONLY);
    }
    const auto& box = static_cast<const TextBox&>(native.Logical());
    if (property == "maxlength" && box.MaxLength() > 0) {
        return std::to_string(SendMessageW(native.Handle(), EM_GETLIMITTEXT, 0, 0));
    }
    return {};
}

Text ReadRow(const NativeControl& native, UINT lengthMessage, UINT textMessage, int row) {
    const HWND window = native.Handle();
    const auto at = static_cast<WPARAM>(static_cast<INT_PTR>(row));
    const LRESULT length = SendMessageW(window, lengthMessage, at, 0);
    if (length < 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(window, textMessage, at, AsParam(text.data()));
    return FromWide(text.c_str());
}

Text ReadCombo(const NativeControl& native, const std::string& property, const Arguments& a) {
    const HWND window = native.Handle();
    const bool listOnly =
        static_cast<const ComboBox&>(native.Logical()).Style() == ComboStyle::ListOnly;
    if (property == "text") return WindowText(window);
    // The native index of a box with a free text goes astray while the user types.
    if (property == "index" && listOnly) {
        return std::to_string(SendMessageW(window, CB_GETCURSEL, 0, 0));
    }
    if (property == "count") return std::to_string(SendMessageW(window, CB_GETCOUNT, 0, 0));
    if (property == "list" && a.size() == 1) {
        return ReadRow(native, CB_GETLBTEXTLEN, CB_GETLBTEXT, a[0]);
    }
    return {};
}

Text ReadListBox(const NativeControl& native, const std::string& property, const Arguments& a) {
    const HWND window = native.Handle();
    const LRESULT selected = SendMessageW(window, LB_GETCURSEL, 0, 0);
    if (property == "index") return std::to_string(selected);
    if (property == "count") return std::to_string(SendMessageW(window, LB_GETCOUNT, 0, 0));
    if (property == "text") {
        return selected < 0
                   ? Text("")
                   : ReadRow(native, LB_GETTEXTLEN, LB_GETTEXT, static_cast<int>(selected));
    }
    if (property == "list" && a.size() == 1) {
        return ReadRow(native, LB_GETTEXTLEN, LB_GETTEXT, a[0]);
    }
    return {};
}

Text ReadDate(const NativeControl& native, const std::string& property) {
    if (property != "date" && property != "value" && property != "text") return {};
    const auto value = static_cast<const NativeDatePicker&>(native).ShownValue();
    return value ? value->ShortIso() : "";
}

Text ReadTabs(const NativeControl& native, const std::string& property, const Arguments& a) {
    const HWND window = native.Handle();
    if (property == "tab") return std::to_string(SendMessageW(window, TCM_GETCURSEL, 0, 0));
    if (property == "count") return std::to_string(SendMessageW(window, TCM_GETITEMCOUNT, 0, 0));
    if (property != "list" || a.size() != 1) return {};
    std::wstring text(kLongestItem, L'\0');
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    if (!SendMessageW(window, TCM_GETITEMW, static_cast<WPARAM>(a[0]), AsParam(&item))) return {};
    return FromWide(item.pszText);
}

HTREEITEM Next(HWND tree, UINT relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, AsParam(item)));
}

void AppendNodes(const NativeTree& native, HTREEITEM parent, std::string& lines) {
    const auto& tree = static_cast<const TreeView&>(native.Logical());
    const HWND window = native.Handle();
    std::wstring text(kLongestItem, L'\0');
    for (HTREEITEM item = parent ? Next(window, TVGN_CHILD, parent)
                                 : Next(window, TVGN_ROOT, nullptr);
         item; item = Next(window, TVGN_NEXT, item)) {
        TVITEMW query{};
        query.mask = TVIF_TEXT | TVIF_IMAGE;
        query.hItem = item;
        query.pszText = text.data();
        query.cchTextMax = static_cast<int>(text.size());
        SendMessageW(window, TVM_GETITEMW, 0, AsParam(&query));
        if (!lines.empty()) lines += '\n';
        lines += tree.Key(native.NodeOf(item));
        lines += '|';
        if (parent) lines += tree.Key(native.NodeOf(parent));
        lines += '|' + tree.Images()->Key(query.iImage) + '|';
        lines += NativeTree::FromDisplay(query.pszText);
        AppendNodes(native, item, lines);
    }
}

Text ReadTree(const NativeTree& native, const std::string& property) {
    const HWND window = native.Handle();
    if (property == "count") return std::to_string(SendMessageW(window, TVM_GETCOUNT, 0, 0));
    if (property == "selected") {
        const int node = native.NodeOf(Next(window, TVGN_CARET, nullptr));
        if (node == TreeView::kNone) return "";
        return std::string(static_cast<const TreeView&>(native.Logical()).Key(node));
    }
    if (property != "nodes") return {};
    std::string lines;
    AppendNodes(native, nullptr, lines);
    return lines;
}

Text ReadGrid(const NativeGrid& native, const std::string& property, const Arguments& a) {
    const HWND window = native.Handle();
    if (property == "rows") return std::to_string(SendMessageW(window, LVM_GETITEMCOUNT, 0, 0));
    if (property != "cell" || a.size() != 2) return {};
    const LRESULT rows = SendMessageW(window, LVM_GETITEMCOUNT, 0, 0);
    const int column = native.NativeColumn(a[1]);
    if (column < 0 || a[0] < 1 || a[0] > rows) return {};
    std::wstring text(kLongestItem, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(window, LVM_GETITEMTEXTW, static_cast<WPARAM>(a[0] - 1), AsParam(&item));
    // A cell shows the beginning of its text on one line; where that is right, the text is it.
    const std::string_view whole = static_cast<const Grid&>(native.Logical()).Cell(a[0], a[1]);
    std::wstring expected;
    native.ShownText(a[0], a[1], expected);
    return expected == item.pszText ? std::string(whole) : FromWide(item.pszText);
}

Text ReadGridState(const NativeGrid& native, const std::string& property, const Arguments& a) {
    const HWND window = native.Handle();
    if (property == "selection") {
        std::string rows;
        for (LRESULT row = -1;
             (row = SendMessageW(window, LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                                 LVNI_SELECTED)) >= 0;) {
            if (!rows.empty()) rows += ',';
            rows += std::to_string(row + 1);
        }
        return rows;
    }
    const bool aboutColumn = property == "width" || property == "list";
    if (!aboutColumn || a.size() != 1 || native.NativeColumn(a[0]) < 0) return {};
    std::wstring heading(kLongestItem, L'\0');
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH | LVCF_TEXT;
    column.pszText = heading.data();
    column.cchTextMax = static_cast<int>(heading.size());
    SendMessageW(window, LVM_GETCOLUMNW, static_cast<WPARAM>(native.NativeColumn(a[0])),
                 AsParam(&column));
    if (property == "list") return FromWide(column.pszText);
    return std::to_string(native.Owner().GetScale().ToUnits(column.cx));
}

Text ReadCommon(const NativeControl& native, const std::string& property) {
    const HWND window = native.Handle();
    if (property == "enabled") return Truth(IsWindowEnabled(window));
    if (property == "visible") return Truth(IsWindowVisible(window));
    if (property == "focus" && GetActiveWindow() == native.Owner().Handle()) {
        return Truth(GetFocus() == native.FocusHandle());
    }
    if (property == "tooltip") return FromWide(native.Owner().ToolTips().TextOf(window).c_str());
    return {};
}

}  // namespace

std::optional<std::string> ReadNative(const NativeControl& native, const std::string& property,
                                      const std::vector<int>& arguments) {
    if (auto common = ReadCommon(native, property)) return common;
    switch (native.Logical().Kind()) {
        case ControlKind::Label:
        case ControlKind::Frame:
        case ControlKind::CommandButton:
            if (property == "caption") return ReadCaption(native);
            return {};
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
            if (property == "caption") return ReadCaption(native);
            if (property == "value") {
                return std::to_string(SendMessageW(native.Handle(), BM_GETCHECK, 0, 0));
            }
            return {};
        case ControlKind::TextBox:
            return ReadEntry(native, property);
        case ControlKind::ComboBox:
            return ReadCombo(native, property, arguments);
        case ControlKind::ListBox:
            return ReadListBox(native, property, arguments);
        case ControlKind::DatePicker:
            return ReadDate(native, property);
        case ControlKind::TabPanel:
            return ReadTabs(native, property, arguments);
        case ControlKind::TreeView:
            return ReadTree(static_cast<const NativeTree&>(native), property);
        case ControlKind::Grid: {
            const auto& grid = static_cast<const NativeGrid&>(native);
            if (auto state = ReadGridState(grid, property, arguments)) return state;
            return ReadGrid(grid, property, arguments);
        }
        case ControlKind::ProgressBar:
            if (property == "value" &&
                static_cast<const ProgressBar&>(native.Logical()).Percent()) {
                return std::to_string(SendMessageW(native.Handle(), PBM_GETPOS, 0, 0));
            }
            return {};
        default:
            return {};
    }
}

}  // namespace zv::driver
