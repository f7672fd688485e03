// Placing controls by what their captions need.
#include <gtest/gtest.h>

#include "doubles/no_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"
#include "forms/layout/row.h"
#include "forms/text_box.h"
#include "forms/window_system.h"

namespace zv::forms::layout {
namespace {

class Layout : public testing::Test {
 protected:
    doubles::NoDialogs dialogs_;
    headless::HeadlessBackend backend_{dialogs_};
    WindowSystem windows_{backend_};
    Form& form_ = windows_.Create<Form>("frmTest");
    Metrics dialog_{backend_, dialog::kSpacing};
};

TEST_F(Layout, AnAccessKeyTakesNoPlace) {
    EXPECT_EQ(dialog_.Width("&Save"), dialog_.Width("Save"));
    EXPECT_EQ(dialog_.ButtonWidth("&Show everything"), dialog_.ButtonWidth("Show everything"));
}

TEST_F(Layout, ATextHasRoomForEveryCharactersLastPixel) {
    const Size usual = backend_.MeasureText("Save");
    form_.Show(false);
    backend_.SetMonitors(Monitors({{{0, 0, 1280, 800}, {0, 0, 1280, 760}, 100}}));
    // 6.25 and 16.67 pixels are 7 and 17, and four times 7 are 26.88 units.
    EXPECT_EQ(usual, (Size{24, 16}));
    EXPECT_EQ(backend_.MeasureText("Save"), (Size{27, 17}));
}

TEST_F(Layout, AButtonHasItsLeastWidthOrWhatItsCaptionNeeds) {
    EXPECT_EQ(dialog_.ButtonWidth("A"), dialog::kSpacing.buttonWidth);
    const std::string caption(40, 'A');
    EXPECT_EQ(dialog_.ButtonWidth(caption),
              dialog_.Width(caption) + dialog::kSpacing.buttonPadding);
    EXPECT_LT(Metrics(backend_).ButtonWidth(caption), dialog_.ButtonWidth(caption));
}

TEST_F(Layout, ARowPlacesOneControlBehindTheOther) {
    forms::Label label(form_, "lbl");
    TextBox first(form_, "txt1");
    TextBox second(form_, "txt2");
    label.SetCaption("Title");
    Row row(dialog_, 14, 20);
    row.Label(label);
    row.Field(first, 100);
    row.Skip(-dialog::kGap);
    row.Field(second, 30);
    EXPECT_EQ(label.Bounds(),
              (Rect{14, 20 + dialog_.LabelDrop(), dialog_.Widest({&label}), dialog_.Text()}));
    EXPECT_EQ(first.Bounds(),
              (Rect{label.Bounds().Right() + dialog::kGap, 20, 100, dialog_.Field()}));
    EXPECT_EQ(second.Bounds(), (Rect{first.Bounds().Right(), 20, 30, dialog_.Field()}));
}

TEST_F(Layout, LabelsOfAColumnAreAsWideAsTheWidest) {
    forms::Label narrow(form_, "lbl1");
    forms::Label wide(form_, "lbl2");
    narrow.SetCaption("To");
    wide.SetCaption("Everything");
    const int width = dialog_.Widest({&narrow, &wide});
    EXPECT_GE(width, dialog_.Width("Everything"));
    Row(dialog_, 0, 0).Label(narrow, width);
    Row(dialog_, 0, 30).Label(wide, width);
    EXPECT_EQ(narrow.Bounds().Right(), wide.Bounds().Right());
}

TEST_F(Layout, ButtonsEndAtTheRightEdge) {
    CommandButton leave(form_, "cmdLeave");
    CommandButton take(form_, "cmdTake");
    leave.SetCaption("Leave");
    take.SetCaption("Take the selected person");
    const int left = PlaceFromRight(dialog_, 500, 60, {&leave, &take});
    EXPECT_EQ(leave.Bounds(), (Rect{500 - dialog_.ButtonWidth("Leave"), 60,
                                    dialog_.ButtonWidth("Leave"), dialog_.Button()}));
    EXPECT_EQ(take.Bounds().Right(), leave.Bounds().left - dialog::kGap);
    EXPECT_EQ(left, take.Bounds().left - dialog::kGap);
}

}  // namespace
}  // namespace zv::forms::layout
