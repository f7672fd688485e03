#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/packed_rows.h"
#include "forms/sign.h"

namespace zv::forms {

/// A read-only grid of texts: data rows and columns are counted from 1, the heading is separate.
/// Sorting changes the order of the rows themselves: row 1 is always the one shown first.
class Grid : public Control {
 public:
    struct Column {
        std::string heading;
        int width = 80;
        bool visible = true;
    };

    Grid(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Grid, std::move(name), parent, index) {
        SetTabStop(true);
    }
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    std::function<void()> Remember() override;
    const Column& GetColumn(int column) const;
    void SetColumns(std::vector<Column> columns);
    int DataRowCount() const { return static_cast<int>(rows_.Count()); }
    /// New rows are empty. Forgets the order that the user chose.
    void SetDataRowCount(int rows);
    /// Throw error 9 outside the grid. The text holds until the row changes.
    std::string_view Cell(int row, int column) const;
    void SetCell(int row, int column, std::string_view text);

    /// Adds rows; the display follows when the filling ends.
    class Filling {
     public:
        explicit Filling(Grid& grid) : grid_(grid) {}
        ~Filling() { grid_.Notify(Aspect::Items); }
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;
        /// A text for each column from the first on.
        void Append(std::span<const std::string_view> texts);

     private:
        Grid& grid_;
    };

    /// What the rows take of the heap.
    std::size_t MemoryBytes() const { return rows_.MemoryBytes(); }

    /// The row selected last, 0 none.
    int SelectedRow() const { return selectedRow_; }
    bool IsSelected(int row) const;
    int SelectedCount() const { return selectedCount_; }
    void SelectAll();
    /// Just these rows, the last one as the one selected last. Raises nothing.
    void SelectRows(const std::vector<int>& rows);

    /// 0: the rows stand as they were filled in.
    int SortColumn() const { return sortColumn_; }
    bool SortsDescending() const { return descending_; }
    /// Numbers come before texts and by their values, texts without regard to the case of ASCII
    /// letters; rows that are equal there keep their order. The selection goes with its rows.
    void Sort(int column, bool descending);

    /// The selected rows as they are shown, or all: visible columns separated by tabs, rows ended
    /// by CR LF. A text that holds a tab, a line break or begins with a quote stands between
    /// quotes, as spreadsheet programs have it; one that they would compute gets an apostrophe in
    /// front.
    std::string SelectedText() const;
    /// Puts the selected rows into the clipboard; does nothing when there are none.
    void CopySelected() const;

    /// What a row shows beside the text of its first column, nothing for most. Asked for whenever a
    /// row is painted, so it must be quick and must not fail. No cell, sorting or copy knows of it.
    std::function<std::optional<Sign>(int row)> sign;

    std::function<void()> onSelect;

    /// What the user did; a backend calls these.
    void UserSelect(int row);  ///< this row alone
    /// Rows `from` to `to` are selected now, or no longer; without an event.
    void UserChangedSelection(int from, int to, bool selected);
    void UserWentTo(int row);  ///< raises the event of a selected row
    void UserPressedHeading(int column);
    void UserResizedColumn(int column, int width);

 protected:
    void OwnKey(KeyEvent& event) override;

 private:
    void Check(int row, int column) const;
    void CheckColumn(int column) const;
    void SelectOnly(int row);

    std::vector<Column> columns_;
    PackedRows rows_;
    std::vector<bool> selected_;
    int selectedCount_ = 0;
    int selectedRow_ = 0;
    int sortColumn_ = 0;
    bool descending_ = false;
};

}  // namespace zv::forms
