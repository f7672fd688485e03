#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "forms/grid.h"
#include "forms/win32/native_control.h"
#include "forms/win32/sign_drawing.h"

namespace zv::forms::win32 {

/// A list view that keeps no texts: it asks for those it paints.
class NativeGrid : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    LRESULT OnNotify(NMHDR& header) override;
    void ResolutionChanged() override;
    /// The native position of a column, -1 for a hidden one.
    int NativeColumn(int column) const;
    /// What the native list shows in a cell: the beginning of its text, with the sign of the row
    /// in the first column.
    void ShownText(int row, int column, std::wstring& shown) const;
    /// What a cell with this text shows: its beginning, on one line.
    static void ToShown(std::string_view text, std::wstring& shown);

 protected:
    void Mirror(Aspect aspect) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    Grid& Rows() const { return static_cast<Grid&>(Logical()); }
    bool ShowsColumns() const;
    void ShowColumns();
    void ShowRows();
    void ShowSelection();
    void ShowSortArrow();
    void SetRowState(int row, UINT state);
    void AnswerText(LVITEMW& item);
    void ReportSelection(const NMLISTVIEW& change);
    void ReportWidths();

    std::vector<Grid::Column> shownColumns_;
    std::vector<int> columns_;  ///< the grid's column behind each native one
    PaintedTheme theme_;
    std::wstring text_;  ///< of the cell asked for last
};

}  // namespace zv::forms::win32
