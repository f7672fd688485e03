// What becomes of a program whose windows get messages when there is no memory to handle them: it
// goes on.
#include <windows.h>

#include "failing_memory.h"

#include <gtest/gtest.h>

#include <functional>

#include "doubles/quiet_dialogs.h"
#include "driver/win32/played_backend.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_box.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

class Tested : public Form {
 public:
    static constexpr std::string_view kName = "frmTested";
    explicit Tested(WindowSystem& windows) : Form(windows, std::string(kName)) {
        text.Move({10, 10, 100, 24});
        button.Move({10, 50, 100, 24});
    }
    TextBox text{*this, "text"};
    CommandButton button{*this, "button"};
};

class NativeFormsWithoutMemory : public testing::Test {
 protected:
    NativeFormsWithoutMemory() : form(windows.Create<Tested>()) { form.Show(false); }
    ~NativeFormsWithoutMemory() override { windows.UnloadAll(); }

    HWND Window() { return backend.Handle(form); }
    HWND Inner() { return FindWindowExW(Window(), nullptr, L"Edit", nullptr); }

    /// Runs `act` with each of its allocations failing in its turn; how many there were.
    long FailEach(const std::function<void()>& act) {
        for (long allocation = 1; allocation < 1000; allocation++) {
            memory::FailAllocation(allocation);
            act();
            if (!memory::StopFailing()) return allocation - 1;
        }
        return -1;
    }
    void StillWorks() {
        int clicks = 0;
        form.button.onClick = [&] { clicks++; };
        SendMessageW(FindWindowExW(Window(), nullptr, L"Button", nullptr), BM_CLICK, 0, 0);
        form.button.onClick = nullptr;
        EXPECT_EQ(clicks, 1);
    }

    doubles::QuietDialogs dialogs;
    driver::PlayedBackend backend{GetModuleHandleW(nullptr), &dialogs};
    WindowSystem windows{backend};
    Tested& form;
};

TEST_F(NativeFormsWithoutMemory, MessagesAreHandledOrLost) {
    ASSERT_TRUE(Inner());
    for (const UINT message : {WM_MOUSEMOVE, WM_SIZE, WM_SETFOCUS, WM_GETTEXTLENGTH, WM_PAINT}) {
        EXPECT_GE(FailEach([&] { SendMessageW(Window(), message, 0, 0); }), 0) << message;
        EXPECT_GE(FailEach([&] { SendMessageW(Inner(), message, 0, 0); }), 0) << message;
    }
    StillWorks();
}

TEST_F(NativeFormsWithoutMemory, KeysAreHandledOrLost) {
    form.FocusTo(form.text);
    EXPECT_GT(FailEach([&] {
                  PostMessageW(Inner(), WM_KEYDOWN, VK_HOME, 0);
                  driver::PumpMessages();
              }),
              0);
    StillWorks();
}

TEST_F(NativeFormsWithoutMemory, AModalWindowStandsOrNothingIsBlocked) {
    backend.modalLoop = [](Form& shown) { shown.Unload(); };
    EXPECT_GT(FailEach([&] {
                  windows.FromUser([&] { windows.OpenNew<Tested>(true, [](Tested&) {}); });
                  EXPECT_TRUE(IsWindowEnabled(Window()));
              }),
              0);
    StillWorks();
}

}  // namespace
}  // namespace zv::forms
