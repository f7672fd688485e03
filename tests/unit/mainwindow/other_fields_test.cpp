#include "windows/main/panels/content_panel.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class OtherFieldsTest : public MainWindow {};

TEST_F(OtherFieldsTest, TheFieldInUseIsScrolledIntoSight) {
    frmTaskMain& window = Open();
    const int height = window.content.txtOther[5].Bounds().Bottom();
    window.content.picOtherIn.Move({0, 0, 400, height + 4});
    window.content.picOther.Move({0, 0, 400, window.content.txtOther[0].Bounds().height + 10});
    const auto top = [&] { return window.content.picOtherIn.Bounds().top; };
    window.content.txtOther[0].SetFocus();
    EXPECT_EQ(top(), 0);
    // Below the visible part: its bottom comes to the edge.
    window.content.txtOther[3].SetFocus();
    EXPECT_EQ(top() + window.content.txtOther[3].Bounds().Bottom(),
              window.content.picOther.Bounds().height);
    window.content.txtOther[5].SetFocus();
    EXPECT_EQ(top() + window.content.txtOther[5].Bounds().Bottom(),
              window.content.picOther.Bounds().height);
    EXPECT_GE(top() + window.content.picOtherIn.Bounds().height,
              window.content.picOther.Bounds().height);
    // Above it: its top does.
    window.content.txtOther[1].SetFocus();
    EXPECT_EQ(top(), -window.content.txtOther[1].Bounds().top);
    // The first one, too, when it is reached from before the panel.
    window.content.txtOther[5].SetFocus();
    window.content.txtTaskCon.SetFocus();
    window.content.txtOther[0].SetFocus();
    EXPECT_EQ(top(), -window.content.txtOther[0].Bounds().top);
}

TEST_F(OtherFieldsTest, APanelThatShowsAllDoesNotMove) {
    frmTaskMain& window = Open();
    for (int i = 0; i < window.content.txtOther.Count(); i++) {
        window.content.txtOther[i].SetFocus();
        EXPECT_EQ(window.content.picOtherIn.Bounds().top, 0);
    }
}

}  // namespace
}  // namespace zv::windows
