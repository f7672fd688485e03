#include "forms/win32/grid_peer.h"

#include <algorithm>

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeGrid::Create(HWND parent, int id) {
    CreateNative(parent, id, WC_LISTVIEWW,
                 WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                     LVS_NOSORTHEADER,
                 WS_EX_CLIENTEDGE);
    constexpr DWORD kStyles = LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kStyles, kStyles);
    const Quiet quiet(*this);
    ShowColumns();
    ShowRows();
}

void NativeGrid::ShowColumns() {
    for (std::size_t i = columns_.size(); i > 0; i--) Send(LVM_DELETECOLUMN, i - 1);
    columns_.clear();
    shownColumns_.clear();
    for (int column = 1; column <= Rows().ColumnCount(); column++) {
        const Grid::Column& source = Rows().GetColumn(column);
        shownColumns_.push_back(source);
        if (!source.visible) continue;
        std::wstring heading = ToWide(source.heading);
        LVCOLUMNW native{};
        native.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        native.pszText = heading.data();
        native.cx = GetScale().ToPixels(source.width);
        native.iSubItem = static_cast<int>(columns_.size());
        Send(LVM_INSERTCOLUMNW, columns_.size(), reinterpret_cast<LPARAM>(&native));
        columns_.push_back(column);
    }
}

void NativeGrid::ShowRows() {
    Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(Rows().DataRowCount()), LVSICF_NOSCROLL);
    InvalidateRect(Handle(), nullptr, FALSE);
}

int NativeGrid::NativeColumn(int column) const {
    const auto at = std::find(columns_.begin(), columns_.end(), column);
    return at == columns_.end() ? -1 : static_cast<int>(at - columns_.begin());
}

void NativeGrid::ResolutionChanged() {
    const Quiet quiet(*this);
    NativeControl::ResolutionChanged();
    ShowColumns();
}

bool NativeGrid::ShowsColumns() const {
    if (static_cast<int>(shownColumns_.size()) != Rows().ColumnCount()) return false;
    for (int column = 1; column <= Rows().ColumnCount(); column++) {
        const Grid::Column& wanted = Rows().GetColumn(column);
        const Grid::Column& shown = shownColumns_[static_cast<std::size_t>(column - 1)];
        if (wanted.heading != shown.heading || wanted.width != shown.width ||
            wanted.visible != shown.visible) {
            return false;
        }
    }
    return true;
}

void NativeGrid::Mirror(Aspect aspect) {
    if (aspect == Aspect::Items) {
        if (!ShowsColumns()) ShowColumns();
        ShowRows();
    } else if (aspect == Aspect::Text) {
        InvalidateRect(Handle(), nullptr, FALSE);
    }
}

void NativeGrid::TellText(LVITEMW& item) {
    const bool known = item.iItem < Rows().DataRowCount() &&
                       static_cast<std::size_t>(item.iSubItem) < columns_.size();
    if (!(item.mask & LVIF_TEXT)) return;
    text_.clear();
    if (known) {
        ToWide(Rows().Cell(item.iItem + 1, columns_[static_cast<std::size_t>(item.iSubItem)]),
               text_);
    }
    lstrcpynW(item.pszText, text_.c_str(), item.cchTextMax);
}

LRESULT NativeGrid::OnNotify(NMHDR& header) {
    if (header.code == LVN_GETDISPINFOW) {
        TellText(reinterpret_cast<NMLVDISPINFOW&>(header).item);
    } else if (header.code == LVN_ITEMCHANGED && !IsQuiet()) {
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        const bool selected = change.uNewState & ~change.uOldState & LVIS_SELECTED;
        if (selected && change.iItem >= 0) Rows().UserSelect(change.iItem + 1);
    }
    return 0;
}

}  // namespace zv::forms::win32
