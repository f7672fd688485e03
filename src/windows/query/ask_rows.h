// The items that a query finds, on their way into a grid.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/grid.h"
#include "items/fields.h"
#include "session/session.h"

namespace zv::windows {

/// The fields behind the columns of the query window's grid, from the first on.
std::vector<const items::Field*> AskFields();

/// What the numbers of a row stand for; a number without a text shows nothing.
struct AskTexts {
    std::vector<std::string> types;
    std::vector<std::string> states;
};

/// Opens a connection of its own with the control's present settings and runs the statement; both
/// are closed when this dies. The shared connection is left as it is.
class AskRows {
 public:
    /// Throws RuntimeError with the opener's or the database's reason.
    AskRows(Session& session, const std::string& statement, AskTexts texts);
    ~AskRows();
    AskRows(const AskRows&) = delete;
    AskRows& operator=(const AskRows&) = delete;

    /// Adds at most `most` rows; false when none is left.
    bool Fill(forms::Grid& grid, int most);

 private:
    void TakeRow();
    std::string_view TextOf(std::size_t column);
    static std::string_view DayOf(const store::Value& value, std::string& kept);

    std::unique_ptr<store::Connection> connection_;
    std::unique_ptr<store::Recordset> rows_;
    AskTexts texts_;
    std::vector<const items::Field*> shown_;
    std::vector<int> fields_;
    std::vector<std::string> kept_;
    std::vector<std::string_view> row_;
};

}  // namespace zv::windows
