// What a window is asked, and knows of itself, while it goes.
#include <gtest/gtest.h>

#include <functional>

#include "base/errors.h"
#include "doubles/no_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

class AskedForm : public Form {
 public:
    explicit AskedForm(WindowSystem& windows) : Form(windows, "frmTest") {}
    std::function<void(bool& cancel)> onQuery;
    std::function<void(bool& cancel)> onUnload;

 private:
    void Form_QueryUnload(bool& cancel, bool) override {
        if (onQuery) onQuery(cancel);
    }
    void Form_Unload(bool& cancel) override {
        if (onUnload) onUnload(cancel);
    }
};

class Closing : public testing::Test {
 protected:
    doubles::NoDialogs dialogs;
    headless::HeadlessBackend backend{dialogs};
    WindowSystem windows{backend};
    AskedForm& form{windows.Create<AskedForm>()};
};

TEST_F(Closing, MayBeTriedAgainAfterAnErrorOfTheWindow) {
    int asked = 0;
    form.onUnload = [&](bool&) {
        if (++asked == 1) throw RuntimeError(ErrorNumber::Overflow);
    };
    form.Show(false);
    EXPECT_THROW(form.Unload(), RuntimeError);
    EXPECT_EQ(windows.Windows().size(), 1U);
    form.Unload();
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(windows.Windows().empty());
}

TEST_F(Closing, AWindowThatIsGoneIsNotLoaded) {
    bool before = false;
    bool after = true;
    form.Show(false);
    windows.FromUser([&] {
        before = form.IsLoaded();
        form.Unload();
        after = form.IsLoaded();
    });
    EXPECT_TRUE(before);
    EXPECT_FALSE(after);
}

TEST_F(Closing, NothingIsCancelledBeforeTheWindowSaysSo) {
    int asked = 0;
    const auto look = [&](bool& cancel) {
        EXPECT_FALSE(cancel);
        asked++;
    };
    form.onQuery = look;
    form.onUnload = look;
    backend.modalLoop = [](Form&) {};
    form.Show(true);
    EXPECT_EQ(asked, 2) << "a loop that ends";
    auto& other = windows.Create<AskedForm>();
    other.onQuery = look;
    other.onUnload = look;
    other.Show(false);
    other.Unload();
    EXPECT_EQ(asked, 4);
}

}  // namespace
}  // namespace zv::forms
