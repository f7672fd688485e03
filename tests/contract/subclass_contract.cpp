// How a control gets hold of the messages of its native window, which others may watch besides.
#include <windows.h>

#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

#include "driver/win32/played_backend.h"
#include "forms/buttons.h"
#include "forms/lists.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct WatchedForm : TestForm {
    using TestForm::TestForm;
    CommandButton cmdOK{*this, "cmdOK"};
    ComboBox cmbText{*this, "cmbText", nullptr, ComboStyle::FreeText};
};

class Subclassing : public Contract {
 protected:
    Subclassing() : form(windows_.Create<WatchedForm>()) {
        Arrange(form);
        form.cmdOK.onClick = [this] { clicks++; };
        form.Show(false);
    }
    HWND Inside(const wchar_t* windowClass) {
        const HWND window = static_cast<driver::PlayedBackend&>(stand_->GetBackend()).Handle(form);
        return FindWindowExW(window, nullptr, windowClass, nullptr);
    }

    WatchedForm& form;
    int clicks = 0;
};

/// Stands before the procedures of windows as another program's code does that never goes.
class Stranger {
 public:
    explicit Stranger(HWND window) {
        former_[window] = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
            window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Stranger::Procedure)));
        last_ = WM_NULL;
    }
    static UINT LastSeen() { return last_; }

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        last_ = message;
        return CallWindowProcW(former_.at(window), window, message, wParam, lParam);
    }
    inline static std::map<HWND, WNDPROC> former_;
    inline static UINT last_ = WM_NULL;
};

BOOL CALLBACK NoteName(HWND, LPWSTR name, HANDLE, ULONG_PTR names) {
    // A number stands for the name of an atom.
    if (!IS_INTRESOURCE(name)) reinterpret_cast<std::vector<std::wstring>*>(names)->push_back(name);
    return TRUE;
}

TEST_F(Subclassing, NoMessageAsksTheWindowForAProperty) {
    std::vector<std::wstring> names;
    EnumPropsExW(Inside(WC_BUTTONW), &NoteName, reinterpret_cast<LPARAM>(&names));
    ASSERT_FALSE(names.empty());
    for (const std::wstring& name : names) {
        EXPECT_EQ(name.find(L"Subclass"), std::wstring::npos)
            << std::string(name.begin(), name.end());
    }
}

TEST_F(Subclassing, AStrangerBeforeTheControlSeesAllAndTakesNothing) {
    const HWND button = Inside(WC_BUTTONW);
    const Stranger stranger(button);
    SendMessageW(button, BM_CLICK, 0, 0);
    EXPECT_EQ(clicks, 1);
    form.Unload();
    EXPECT_EQ(Stranger::LastSeen(), UINT{WM_NCDESTROY});
    EXPECT_FALSE(IsWindow(button));
}

LRESULT CALLBACK PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                        DWORD_PTR seen) {
    ++*reinterpret_cast<int*>(seen);
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(Subclassing, TheSystemsOwnMayComeAndGoBesides) {
    const HWND button = Inside(WC_BUTTONW);
    int seen = 0;
    SetWindowSubclass(button, &PassOn, 1, reinterpret_cast<DWORD_PTR>(&seen));
    SendMessageW(button, BM_CLICK, 0, 0);
    EXPECT_GT(seen, 0);
    RemoveWindowSubclass(button, &PassOn, 1);
    seen = 0;
    SendMessageW(button, BM_CLICK, 0, 0);
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Subclassing, AControlThatAnotherDestroysIsAskedNothingMore) {
    const HWND button = Inside(WC_BUTTONW);
    const HWND combo = Inside(WC_COMBOBOXW);
    DestroyWindow(button);
    DestroyWindow(combo);
    form.cmdOK.SetCaption("确定");
    form.cmbText.SetText("新");
    EXPECT_FALSE(IsWindow(button));
    EXPECT_EQ(SendMessageW(button, BM_CLICK, 0, 0), 0);
    EXPECT_EQ(clicks, 0);
    form.Unload();
    EXPECT_TRUE(windows_.Windows().empty());
}

}  // namespace
}  // namespace zv::contract
