#include "forms/dpi_awareness.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "doubles/no_dialogs.h"
#include "doubles/scripted_dpi.h"
#include "forms/headless/headless_backend.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

using doubles::kMonitor;
using doubles::kMonitorV2;
using doubles::kSystem;
using doubles::kUnaware;
using doubles::ScriptedDpi;

struct Windows10 {
    ScriptedDpi thread{{kUnaware, kSystem, kMonitor, kMonitorV2}};
    DpiAwareness dpi{thread};
};

TEST(DpiAwareness, WindowsHaveTheBestContextAndTheThreadItsOwnAfterwards) {
    Windows10 system;
    {
        const auto scope = system.dpi.ForWindows();
        EXPECT_EQ(system.thread.now, kMonitorV2);
    }
    EXPECT_EQ(system.thread.now, kUnaware);
}

TEST(DpiAwareness, WhereTheBestIsNotKnownWindowsHaveTheNext) {
    ScriptedDpi thread({kUnaware, kSystem, kMonitor});
    DpiAwareness dpi(thread);
    {
        const auto scope = dpi.FromHost();
        EXPECT_EQ(thread.now, kMonitor);
        const auto host = dpi.ForHost();
        EXPECT_EQ(thread.now, kUnaware);
    }
    EXPECT_EQ(thread.now, kUnaware);
}

TEST(DpiAwareness, WithoutTheFunctionNothingChangesAndItIsNotAskedAgain) {
    ScriptedDpi thread({});
    DpiAwareness dpi(thread);
    { const auto scope = dpi.FromHost(); }
    const int asked = thread.calls;
    {
        const auto scope = dpi.FromHost();
        const auto again = dpi.ForWindows();
        const auto host = dpi.ForHost();
        EXPECT_EQ(thread.now, kUnaware);
    }
    EXPECT_EQ(thread.now, kUnaware);
    EXPECT_EQ(thread.calls, asked);
}

TEST(DpiAwareness, TheContextComesBackWhenAHandlerThrows) {
    Windows10 system;
    system.thread.now = kSystem;
    const auto fail = [&] {
        const auto scope = system.dpi.FromHost();
        const auto host = system.dpi.ForHost();
        throw std::runtime_error("a handler");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_EQ(system.thread.now, kSystem);
}

TEST(DpiAwareness, WhatTheHostIsCalledForRunsInItsContextAndMayCallBack) {
    Windows10 system;
    system.thread.now = kSystem;
    const auto outer = system.dpi.FromHost();
    {
        const auto event = system.dpi.ForHost();
        EXPECT_EQ(system.thread.now, kSystem);
        {
            const auto inner = system.dpi.FromHost();
            EXPECT_EQ(system.thread.now, kMonitorV2);
            const auto innerEvent = system.dpi.ForHost();
            EXPECT_EQ(system.thread.now, kSystem);
        }
        EXPECT_EQ(system.thread.now, kSystem);
    }
    EXPECT_EQ(system.thread.now, kMonitorV2);
}

TEST(DpiAwareness, AHandlerOfAWindowCallsTheHostInTheContextOfItsLastCall) {
    Windows10 system;
    { const auto call = system.dpi.FromHost(); }
    // The system has set the window's for the message.
    system.thread.now = kMonitorV2;
    {
        const auto event = system.dpi.ForHost();
        EXPECT_EQ(system.thread.now, kUnaware);
    }
    EXPECT_EQ(system.thread.now, kMonitorV2);
}

TEST(DpiAwareness, BeforeAnyCallOfTheHostItsContextIsWhatTheThreadHas) {
    Windows10 system;
    const auto event = system.dpi.ForHost();
    EXPECT_EQ(system.thread.now, kUnaware);
}

class HostCalls : public headless::HeadlessBackend {
 public:
    using HeadlessBackend::HeadlessBackend;
    void RunForHost(const std::function<void()>& act) override {
        const auto scope = dpi.FromHost();
        act();
    }
    ScriptedDpi thread{{kUnaware, kMonitorV2}};
    DpiAwareness dpi{thread};
};

TEST(DpiAwareness, ACallOfTheHostHasTheContextOfWindowsAlsoForWhatFollowsAndFails) {
    doubles::NoDialogs dialogs;
    HostCalls backend(dialogs);
    WindowSystem windows(backend);
    std::vector<DpiContext> seen;
    const auto look = [&] { seen.push_back(backend.thread.now); };
    windows.FromHost([&] {
        look();
        windows.AfterHandler(look);
    });
    EXPECT_EQ(seen, (std::vector<DpiContext>{kMonitorV2, kMonitorV2}));
    EXPECT_EQ(backend.thread.now, kUnaware);
    EXPECT_THROW(windows.FromHost([] { throw RuntimeError(ErrorNumber::Overflow); }), RuntimeError);
    EXPECT_EQ(backend.thread.now, kUnaware);
}

}  // namespace
}  // namespace zv::forms
