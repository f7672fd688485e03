// The window of reminders until it holds everything that is due, and shows it where there is a
// display, against the bare engine that reads the same rows.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "bench_application.h"
#include "floors/raw_query.h"
#include "measure.h"
#include "windows/remind/frm_remind.h"

namespace zv::bench {

/// `paint` brings on the screen what is due. Prints the rows of the table.
inline void MeasureRemindWindow(forms::Backend& backend, const std::string& path, int runs,
                                const std::string& place,
                                const std::function<void(forms::Form&)>& paint) {
    BenchApplication application(backend, path);
    Session& session = application.GetSession();
    const auto window = [&]() -> windows::frmRemind& {
        auto* found = session.windows.Find<windows::frmRemind>(windows::frmRemind::kName);
        if (found == nullptr) throw std::runtime_error("nothing reminds");
        return *found;
    };
    // The first look ever finds nothing that is older.
    application.Control().StartReminders();
    const int rows = window().DueCount();
    application.Control().StopReminders();

    RawDatabase database(path);
    Series ours;
    Series floor;
    std::size_t bytes = 0;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            application.Control().StartReminders();
            paint(window());
            const double time = watch.Milliseconds();
            if (!window().IsShown() || window().grdDue.DataRowCount() != rows) {
                throw std::runtime_error("the window does not show what is due");
            }
            application.Control().StopReminders();
            return time;
        },
        ours,
        [&] {
            const Stopwatch watch;
            bytes = 0;
            database.Read(AlertStatement(Day().IsoDateTime()), [&](const char* const* row) {
                for (int column = 0; column < kItemColumns; column++) {
                    if (row[column]) bytes += std::char_traits<char>::length(row[column]);
                }
            });
            return watch.Milliseconds();
        },
        floor);
    if (bytes == 0) throw std::runtime_error("the floor finds nothing");
    const std::string what = std::to_string(rows) + " reminders, ";
    Print({what + "window made and opened, " + place, ours.Median(), floor.Median(), "ms", 0, 0,
           runs});

    application.Control().StartReminders();
    paint(window());
    Series up;
    for (int run = 0; run < runs; run++) {
        // As when nothing was due before: it stays behind, and is there already.
        window().Hide();
        window().ForgetStore();
        const Stopwatch watch;
        window().LookAgain();
        paint(window());
        up.Add(watch.Milliseconds());
        if (!window().IsShown()) throw std::runtime_error("the window did not come up");
    }
    Print({what + "window comes up, " + place, up.Median(), floor.Median(), "ms", 0, 50, runs});

    Series again;
    for (int run = 0; run < runs; run++) {
        const Stopwatch watch;
        window().LookAgain();
        paint(window());
        again.Add(watch.Milliseconds());
    }
    application.Control().StopReminders();
    Print({what + "looked at again, " + place, again.Median(), floor.Median(), "ms", 0, 50, runs});
}

}  // namespace zv::bench
