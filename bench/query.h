// A query of all items until the grid holds them, and shows them where there is a display, against
// the bare engine that reads the same statement.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "bench_application.h"
#include "floors/raw_query.h"
#include "items/criteria.h"
#include "measure.h"
#include "windows/query/ask_window.h"

namespace zv::bench {

/// `paint` brings on the screen what is due. Prints the rows of the table.
inline void MeasureQuery(forms::Backend& backend, const std::string& path, int runs,
                         const std::string& place, const std::function<void(forms::Form&)>& paint,
                         double goal) {
    BenchApplication application(backend, path);
    Session& session = application.GetSession();
    windows::ShowAsk(session, false);
    auto* window = session.windows.Find<windows::frmAsk>(windows::frmAsk::kName);
    const int columns = window->Grid1.ColumnCount();
    const std::string statement = items::AskStatement({}, '#');

    Series ours;
    Series floor;
    int rows = 0;
    double bytes = 0;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            window->cmdAsk_Click();
            paint(*window);
            return watch.Milliseconds();
        },
        ours,
        [&] {
            const Stopwatch watch;
            RawDatabase database(path);
            bytes = 0;
            // Every text is looked at, as whoever shows it must.
            rows = database.Read(statement, [&](const char* const* row) {
                for (int column = 0; column < columns; column++) {
                    if (row[column]) {
                        bytes += static_cast<double>(std::char_traits<char>::length(row[column]));
                    }
                }
            });
            return watch.Milliseconds();
        },
        floor);
    if (rows != window->Grid1.DataRowCount()) throw std::runtime_error("the lists differ");
    const std::string what = "query of " + std::to_string(rows) + " to the grid, " + place;
    Print({what, ours.Median(), floor.Median(), "ms", goal, 0, runs});

    double texts = 0;
    for (int row = 1; row <= rows; row++) {
        for (int column = 1; column <= columns; column++) {
            texts += static_cast<double>(window->Grid1.Cell(row, column).size());
        }
    }
    // The texts alone: what they need at least.
    Print({"memory a row of the grid, " + std::to_string(rows) + ", " + place,
           static_cast<double>(window->Grid1.MemoryBytes()) / rows, texts / rows, "bytes", 0, 0,
           1});

    Series sorting;
    for (int run = 0; run < runs; run++) {
        const Stopwatch watch;
        window->Grid1.UserPressedHeading(2);
        paint(*window);
        sorting.Add(watch.Milliseconds());
    }
    Print({"sorting " + std::to_string(rows) + " by title, " + place, sorting.Median(), 0, "ms", 0,
           0, runs});
}

}  // namespace zv::bench
