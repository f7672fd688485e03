#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace zv::forms {

/// A read-only grid of texts: data rows and columns are counted from 1, the heading is separate.
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
    const Column& GetColumn(int column) const;
    void SetColumns(std::vector<Column> columns);
    int DataRowCount() const { return static_cast<int>(rows_.size()); }
    /// New rows are empty.
    void SetDataRowCount(int rows);
    /// Throw error 9 outside the grid.
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string text);

    /// 0 none.
    int SelectedRow() const { return selectedRow_; }
    std::function<void()> onSelect;
    void UserSelect(int row);

 private:
    void Check(int row, int column) const;

    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
    int selectedRow_ = 0;
};

}  // namespace zv::forms
