// Where windows start.
#include <gtest/gtest.h>

#include "doubles/no_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

TEST(Center, TheWorkAreasOriginCounts) {
    doubles::NoDialogs dialogs;
    headless::HeadlessBackend backend(dialogs);
    constexpr Rect kArea{-1280, 40, 1280, 760};
    backend.monitors = Monitors({{kArea, kArea}});
    WindowSystem windows(backend);
    auto& form = windows.Create<Form>("frmTest");
    form.Move({0, 0, 400, 300});
    form.Center();
    EXPECT_EQ(form.Bounds(), (Rect{-1280 + 440, 40 + 230, 400, 300}));
    form.Move({0, 0, 2000, 1000});
    form.Center();
    EXPECT_EQ(form.Bounds(), (Rect{-1280, 40, 2000, 1000}));
}

}  // namespace
}  // namespace zv::forms
