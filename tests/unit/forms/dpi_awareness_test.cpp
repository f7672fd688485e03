#include "forms/dpi_awareness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "doubles/no_dialogs.h"
#include "forms/headless/headless_backend.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

DpiContext Named(int number) {
    static constexpr std::array<char, 8> kNames{};
    return &kNames.at(static_cast<std::size_t>(number));
}
const DpiContext kUnaware = Named(1);
const DpiContext kSystem = Named(2);
const DpiContext kMonitor = Named(3);
const DpiContext kMonitorV2 = Named(4);

/// A system that knows some contexts; one that knows none has no such function.
class FakeThread final : public ThreadDpi {
 public:
    explicit FakeThread(std::vector<DpiContext> known) : known_(std::move(known)) {}
    DpiContext Set(DpiContext context) noexcept override {
        calls++;
        if (std::find(known_.begin(), known_.end(), context) == known_.end()) return nullptr;
        return std::exchange(now, context);
    }
    std::span<const DpiContext> Wanted() const noexcept override { return wanted_; }

    DpiContext now = kUnaware;
    int calls = 0;

 private:
    std::vector<DpiContext> known_;
    std::array<DpiContext, 2> wanted_{kMonitorV2, kMonitor};
};

struct Windows10 {
    FakeThread thread{{kUnaware, kSystem, kMonitor, kMonitorV2}};
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
    FakeThread thread({kUnaware, kSystem, kMonitor});
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
    FakeThread thread({});
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
    FakeThread thread{{kUnaware, kMonitorV2}};
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
