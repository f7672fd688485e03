// Keeps the statements that are sent and the rows that are written through recordsets, and makes
// those fail that a test chooses, with the number of a database that failed.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/statement_log.h"

namespace zv::doubles {

class RecordedStatements : public store::StatementObserver {
 public:
    void OnStatement(const std::string& sql) override;
    void OnRowUpdate() override;

    /// The lines since the last call.
    std::vector<std::string> Take();
    /// The `position`-th statement or row from now on, 1 the next, fails with that text.
    void Fail(int position, std::string text);
    /// One of the statements or rows to come is to fail.
    bool FailsLater() const { return step_.left > 0; }
    /// The `count`-th row from now on fails.
    void FailRow(int count);

    /// A statement that holds this text fails with it; empty: none does.
    std::string failing;
    /// Not empty: every row fails with this text.
    std::string failingUpdate;
    std::function<void(const std::string&)> onStatement;  ///< may be empty
    std::function<void()> onRow;                          ///< may be empty
    /// Each row is a line "row" among the statements.
    bool tellsRows = false;

    std::vector<std::string> lines;  ///< statements exactly as sent
    int rows = 0;

 private:
    struct PlannedFailure {
        void Count();
        int left = 0;  ///< 0: none planned
        std::string text;
    };
    PlannedFailure step_;
    PlannedFailure row_;
};

}  // namespace zv::doubles
