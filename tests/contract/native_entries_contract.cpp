// What drops down from entries in real windows, and the input method that they take.
#include <windows.h>

#include <commctrl.h>
#include <imm.h>

#include "driver/win32/played_backend.h"
#include "forms/date_picker.h"
#include "forms/lists.h"
#include "forms/monitors.h"
#include "forms/text_box.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct EntryForm : TestForm {
    using TestForm::TestForm;
    ComboBox cboKind{*this, "cboKind", nullptr, ComboStyle::ListOnly};
    DatePicker dtpDate{*this, "dtpDate"};
    TextBox txtValue{*this, "txtValue"};
};

class NativeEntries : public Contract {
 protected:
    NativeEntries() : form(windows_.Create<EntryForm>("frmTest")) {
        form.cboKind.SetItems({"甲", "乙"});
        Arrange(form);
    }
    driver::PlayedBackend& backend() {
        return static_cast<driver::PlayedBackend&>(stand_->GetBackend());
    }
    /// The only native window of a class in the form.
    HWND Find(const wchar_t* className) {
        return FindWindowExW(backend().Handle(form), nullptr, className, nullptr);
    }
    void ChangeScale() {
        constexpr int kHalfMore = 144;
        stand_->SetMonitors(Monitors({{{0, 0, 1280, 1024}, {0, 0, 1280, 984}, kHalfMore}}));
    }

    EntryForm& form;
};

TEST_F(NativeEntries, ADroppedListClosesWhenTheMonitorsChange) {
    form.Show(false);
    const HWND combo = Find(WC_COMBOBOXW);
    SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    ASSERT_TRUE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
    // At the same scale: another one closes a list anyway.
    stand_->SetMonitors(Monitors({{{0, 0, 800, 600}, {100, 100, 700, 500}, 96}}));
    EXPECT_FALSE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(form.IsShown());
}

TEST_F(NativeEntries, AnOpenCalendarClosesWhenTheMonitorsChange) {
    form.Show(false);
    const HWND picker = Find(DATETIMEPICK_CLASSW);
    RECT inside{};
    GetClientRect(picker, &inside);
    SendMessageW(picker, WM_LBUTTONDOWN, MK_LBUTTON,
                 MAKELPARAM(inside.right - 4, inside.bottom / 2));
    const auto calendar = [&] {
        return reinterpret_cast<HWND>(SendMessageW(picker, DTM_GETMONTHCAL, 0, 0));
    };
    ASSERT_TRUE(calendar() && IsWindowVisible(calendar()));
    ChangeScale();
    EXPECT_FALSE(calendar() && IsWindowVisible(calendar()));
    EXPECT_TRUE(form.IsShown());
}

TEST_F(NativeEntries, ABoxForNumbersHasNoInputMethodWhileItIsOne) {
    form.Show(false);
    const HWND box = Find(WC_EDITW);
    const auto hasInputMethod = [&] {
        const HIMC context = ImmGetContext(box);
        if (context) ImmReleaseContext(box, context);
        return context != nullptr;
    };
    ASSERT_TRUE(hasInputMethod());
    form.txtValue.SetNumericKeyboard(true);
    EXPECT_FALSE(hasInputMethod());
    form.txtValue.SetNumericKeyboard(false);
    EXPECT_TRUE(hasInputMethod());
}

}  // namespace
}  // namespace zv::contract
