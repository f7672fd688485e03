#include "forms/win32/grid_peer.h"

#include <algorithm>

#include "base/text.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeGrid::Create(HWND parent, int id) {
    CreateNative(parent, id, WC_LISTVIEWW,
                 WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS, WS_EX_CLIENTEDGE);
    constexpr DWORD kStyles = LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kStyles, kStyles);
    const Quiet quiet(*this);
    ShowColumns();
    ShowRows();
    ShowSelection();
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
    ShowSortArrow();
}

void NativeGrid::ShowRows() {
    Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(Rows().DataRowCount()), LVSICF_NOSCROLL);
    InvalidateRect(Handle(), nullptr, FALSE);
}

void NativeGrid::SetRowState(int row, UINT state) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    item.state = state;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(static_cast<INT_PTR>(row)),
         reinterpret_cast<LPARAM>(&item));
}

void NativeGrid::ShowSelection() {
    constexpr int kAll = -1;
    const Grid& grid = Rows();
    const bool all = grid.SelectedCount() > 0 && grid.SelectedCount() == grid.DataRowCount();
    SetRowState(kAll, all ? LVIS_SELECTED : 0);
    if (all) return;
    int left = grid.SelectedCount();
    for (int row = 1; left > 0 && row <= grid.DataRowCount(); row++) {
        if (!grid.IsSelected(row)) continue;
        SetRowState(row - 1, LVIS_SELECTED);
        left--;
    }
}

void NativeGrid::ShowSortArrow() {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    for (std::size_t i = 0; i < columns_.size(); i++) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
        const int former = item.fmt;
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (columns_[i] == Rows().SortColumn()) {
            item.fmt |= Rows().SortsDescending() ? HDF_SORTDOWN : HDF_SORTUP;
        }
        if (item.fmt == former) continue;
        SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
}

int NativeGrid::NativeColumn(int column) const {
    const auto at = std::find(columns_.begin(), columns_.end(), column);
    return at == columns_.end() ? -1 : static_cast<int>(at - columns_.begin());
}

void NativeGrid::ResolutionChanged() {
    const Quiet quiet(*this);
    NativeControl::ResolutionChanged();
    // Columns that are made anew would lose how far the rows are scrolled across.
    for (std::size_t i = 0; i < columns_.size(); i++) {
        Send(LVM_SETCOLUMNWIDTH, i, GetScale().ToPixels(Rows().GetColumn(columns_[i]).width));
    }
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
    switch (aspect) {
        case Aspect::Items:
            if (!ShowsColumns()) ShowColumns();
            ShowSortArrow();
            ShowRows();
            break;
        case Aspect::Text:
            InvalidateRect(Handle(), nullptr, FALSE);
            break;
        case Aspect::Selection:
            ShowSelection();
            break;
        default:
            break;
    }
}

void NativeGrid::ToShown(std::string_view text, std::wstring& shown) {
    // A list view shows no more of a text; what lies behind is not worth converting.
    constexpr std::size_t kMost = 259;
    constexpr std::size_t kLongestCharacter = 4;
    const bool cut = text.size() > kMost * kLongestCharacter;
    if (cut) text = text.substr(0, kMost * kLongestCharacter);
    ToWide(text, shown);
    if (shown.size() > kMost) shown.resize(kMost);
    if (!shown.empty() && IS_HIGH_SURROGATE(shown.back())) shown.pop_back();
    for (wchar_t& c : shown) {
        if (c < L' ') c = L' ';
    }
}

void NativeGrid::ShownText(int row, int column, std::wstring& shown) const {
    const std::string_view cell = Rows().Cell(row, column);
    const bool first = !columns_.empty() && columns_.front() == column;
    const auto sign = first && Rows().sign ? Rows().sign(row) : std::nullopt;
    if (!sign) return ToShown(cell, shown);
    ToShown(WithSign(cell, sign->text), shown);
}

void NativeGrid::AnswerText(LVITEMW& item) {
    if (!(item.mask & LVIF_TEXT)) return;
    const bool known = item.iItem >= 0 && item.iItem < Rows().DataRowCount() &&
                       static_cast<std::size_t>(item.iSubItem) < columns_.size();
    text_.clear();
    if (known) {
        ShownText(item.iItem + 1, columns_[static_cast<std::size_t>(item.iSubItem)], text_);
    }
    lstrcpynW(item.pszText, text_.c_str(), item.cchTextMax);
}

void NativeGrid::ReportSelection(const NMLISTVIEW& change) {
    const bool was = change.uOldState & LVIS_SELECTED;
    const bool is = change.uNewState & LVIS_SELECTED;
    if (was == is) return;
    if (change.iItem < 0) {
        Rows().UserChangedSelection(1, Rows().DataRowCount(), is);
        return;
    }
    Rows().UserChangedSelection(change.iItem + 1, change.iItem + 1, is);
    if (is) Rows().UserWentTo(change.iItem + 1);
}

// Whatever the user did at the edges of the headings, the grid keeps the widths that came of it.
void NativeGrid::ReportWidths() {
    for (std::size_t i = 0; i < columns_.size(); i++) {
        const auto pixels = static_cast<int>(Send(LVM_GETCOLUMNWIDTH, i));
        Grid::Column& shown = shownColumns_[static_cast<std::size_t>(columns_[i] - 1)];
        if (pixels == GetScale().ToPixels(shown.width)) continue;
        shown.width = GetScale().ToUnits(pixels);
        Rows().UserResizedColumn(columns_[i], shown.width);
    }
}

std::optional<LRESULT> NativeGrid::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_NOTIFY || IsQuiet()) return std::nullopt;
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    const bool resized = code == HDN_ITEMCHANGEDW || code == HDN_ITEMCHANGEDA ||
                         code == HDN_ENDTRACKW || code == HDN_ENDTRACKA;
    if (!resized) return std::nullopt;
    const LRESULT result = Native(message, wParam, lParam);
    if (!IsQuiet()) ReportWidths();
    return result;
}

LRESULT NativeGrid::OnNotify(NMHDR& header) {
    if (header.code == LVN_GETDISPINFOW) {
        AnswerText(reinterpret_cast<NMLVDISPINFOW&>(header).item);
        return 0;
    }
    if (header.code == static_cast<UINT>(NM_CUSTOMDRAW)) {
        if (!Rows().sign) return CDRF_DODEFAULT;
        auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(header);
        const auto signOf = [this](LPARAM row) {
            const bool known = row >= 0 && row < Rows().DataRowCount();
            return known ? Rows().sign(static_cast<int>(row) + 1) : std::nullopt;
        };
        return DrawListSigns(draw, signOf,
                             theme_.At(draw.nmcd, Rows().Owner().Windows().GetBackend()));
    }
    if (IsQuiet()) return 0;
    if (header.code == LVN_ITEMCHANGED) {
        ReportSelection(reinterpret_cast<const NMLISTVIEW&>(header));
    } else if (header.code == LVN_ODSTATECHANGED) {
        const auto& change = reinterpret_cast<const NMLVODSTATECHANGE&>(header);
        Rows().UserChangedSelection(change.iFrom + 1, change.iTo + 1,
                                    change.uNewState & LVIS_SELECTED);
    } else if (header.code == LVN_COLUMNCLICK) {
        const auto& click = reinterpret_cast<const NMLISTVIEW&>(header);
        const auto at = static_cast<std::size_t>(click.iSubItem);
        if (at < columns_.size()) Rows().UserPressedHeading(columns_[at]);
    }
    return 0;
}

}  // namespace zv::forms::win32
