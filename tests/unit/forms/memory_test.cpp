// What becomes of windows when there is no memory for what is done with them.
#include "failing_memory.h"

#include <gtest/gtest.h>

#include "doubles/quiet_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"
#include "forms/text_box.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

class Refused : public Form {
 public:
    static constexpr std::string_view kName = "frmRefused";
    explicit Refused(WindowSystem& windows) : Form(windows, std::string(kName)) {}
    TextBox text{*this, "text"};
};

TEST(FormsWithoutMemory, AWindowThatIsRefusedGoesAllTheSame) {
    doubles::QuietDialogs dialogs;
    headless::HeadlessBackend backend(dialogs);
    bool failed = true;
    for (long allocation = 1; failed; allocation++) {
        WindowSystem windows(backend);
        memory::FailAllocation(allocation);
        bool refused = false;
        try {
            // An outer handler keeps windows that have gone until it ends.
            windows.FromHost([&] {
                windows.Open<Refused>(
                    false, [](Refused&) { throw RuntimeError(ErrorNumber::DatabaseFailure); });
            });
        } catch (const std::exception&) {
            refused = true;
        }
        failed = memory::StopFailing();
        EXPECT_TRUE(refused);
        EXPECT_TRUE(windows.IsEmpty());
        ASSERT_LT(allocation, 1000);
    }
}

}  // namespace
}  // namespace zv::forms
