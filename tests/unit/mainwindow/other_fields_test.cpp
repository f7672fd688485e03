#include "mainwindow/other_fields.h"

#include "main_window_fixture.h"

namespace zv::mainwindow {
namespace {

class OtherFieldsTest : public MainWindow {};

TEST_F(OtherFieldsTest, TheFieldInUseIsScrolledIntoSight) {
    frmTaskMain& window = Open();
    const int height = window.txtOther[5].Bounds().Bottom();
    window.picOtherIn.Move({0, 0, 400, height + 4});
    window.picOther.Move({0, 0, 400, window.txtOther[0].Bounds().height + 10});
    const auto top = [&] { return window.picOtherIn.Bounds().top; };
    window.txtOther[0].SetFocus();
    EXPECT_EQ(top(), 0);
    // Below the visible part: its bottom comes to the edge.
    window.txtOther[3].SetFocus();
    EXPECT_EQ(top() + window.txtOther[3].Bounds().Bottom(), window.picOther.Bounds().height);
    window.txtOther[5].SetFocus();
    EXPECT_EQ(top() + window.txtOther[5].Bounds().Bottom(), window.picOther.Bounds().height);
    EXPECT_GE(top() + window.picOtherIn.Bounds().height, window.picOther.Bounds().height);
    // Above it: its top does.
    window.txtOther[1].SetFocus();
    EXPECT_EQ(top(), -window.txtOther[1].Bounds().top);
    // The first one, too, when it is reached from before the panel.
    window.txtOther[5].SetFocus();
    window.txtTaskCon.SetFocus();
    window.txtOther[0].SetFocus();
    EXPECT_EQ(top(), -window.txtOther[0].Bounds().top);
}

TEST_F(OtherFieldsTest, APanelThatShowsAllDoesNotMove) {
    frmTaskMain& window = Open();
    for (int i = 0; i < kOtherFields; i++) {
        window.txtOther[i].SetFocus();
        EXPECT_EQ(window.picOtherIn.Bounds().top, 0);
    }
}

}  // namespace
}  // namespace zv::mainwindow
