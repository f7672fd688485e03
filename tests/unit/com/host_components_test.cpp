#include "com/host_components.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "doubles/recording_opener.h"
#include "doubles/scripted_dpi.h"
#include "platform/scripted/scripted_machine.h"

namespace zv::com {
namespace {

using doubles::kMonitorV2;
using doubles::kUnaware;

class HostComponents : public testing::Test {
 protected:
    void Look() { seen.push_back(thread.now); }

    doubles::ScriptedDpi thread{{kUnaware, kMonitorV2}};
    forms::DpiAwareness dpi{thread};
    std::vector<forms::DpiContext> seen;
};

TEST_F(HostComponents, TheOpenerRunsInTheHostsContextAndMayFail) {
    doubles::RecordingOpener theirs;
    theirs.open = [&](const store::ConnectionSettings&) -> std::unique_ptr<store::Connection> {
        Look();
        throw RuntimeError(ErrorNumber::CannotCreateObject);
    };
    HostOpener opener(dpi, theirs);
    const auto call = dpi.FromHost();
    EXPECT_THROW(opener.Open({}), RuntimeError);
    EXPECT_EQ(seen, std::vector{kUnaware});
    EXPECT_EQ(thread.now, kMonitorV2) << "the windows' again";
}

/// Looks when the report component reads it.
class WatchedTable final : public platform::ReportTable {
 public:
    explicit WatchedTable(std::function<void()> look) : look_(std::move(look)) {}
    int RowCount() const override {
        look_();
        return 0;
    }
    int ColumnCount() const override { return 0; }
    std::string Heading(int) const override { return {}; }
    int ColumnWidth(int) const override { return 0; }
    std::string Text(int, int) const override { return {}; }

 private:
    std::function<void()> look_;
};

TEST_F(HostComponents, APrintRunsInTheHostsContext) {
    platform::scripted::ScriptedReports theirs;
    HostReports reports(dpi, theirs);
    const WatchedTable table([this] { Look(); });
    platform::ReportJob job;
    job.grid = &table;
    const auto call = dpi.FromHost();
    reports.Prepare();
    reports.Print(job);
    reports.Release();
    EXPECT_EQ(seen, std::vector{kUnaware});
    EXPECT_EQ(thread.now, kMonitorV2);
    EXPECT_EQ(theirs.printed.size(), 1U);
}

TEST_F(HostComponents, AStartOfAModuleRunsInTheHostsContext) {
    platform::scripted::ScriptedModules theirs;
    HostModules modules(dpi, theirs);
    const auto call = dpi.FromHost();
    const int before = thread.calls;
    modules.Run({});
    EXPECT_EQ(thread.calls, before + 2) << "to the host's and back";
    EXPECT_EQ(thread.now, kMonitorV2);
}

}  // namespace
}  // namespace zv::com
