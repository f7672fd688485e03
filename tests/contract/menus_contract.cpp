#include "forms/buttons.h"
#include "forms/grid.h"
#include "forms/menu.h"
#include "forms/picture.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct MenusForm : TestForm {
    explicit MenusForm(WindowSystem& windows) : TestForm(windows) {
        mnuImg.SetVisible(false);
        grdList.SetColumns({{"编号", 60, true}, {"名称", 120, true}, {"键", 0, false}});
    }
    MenuItem mnuTask{*this, "mnuTask", nullptr, "任务(&T)"};
    MenuItem mnuTaskAdd{*this, "mnuTaskAdd", &mnuTask, "新增(&A)"};
    MenuItem mnuTaskDone0{*this, "mnuTaskDone", &mnuTask, "完毕(&D)", 0};
    MenuItem mnuTaskDone1{*this, "mnuTaskDone", &mnuTask, "在办(&I)", 1};
    MenuItem mnuImg{*this, "mnuImg", nullptr, "图片"};
    MenuItem mnuImgClose{*this, "mnuImgClose", &mnuImg, "关闭"};
    CommandButton cmdMenu{*this, "cmdMenu"};
    Picture picImage{*this, "picImage"};
    Grid grdList{*this, "grdList"};
};

class Menus : public Contract {
 protected:
    Menus() : form(windows_.Create<MenusForm>()) {
        Arrange(form);
        form.mnuTaskAdd.onClick = [this] { events_.push_back("add"); };
        form.mnuTaskDone1.onClick = [this] { events_.push_back("done1"); };
        form.mnuImgClose.onClick = [this] { events_.push_back("imgClose"); };
    }
    MenusForm& form;
};

TEST_F(Menus, ChoosingAnEntryRaisesItsClick) {
    form.Show(false);
    driver().Choose(form.mnuTaskAdd);
    driver().Choose(form.mnuTaskDone1);
    EXPECT_EQ(events_, (std::vector<std::string>{"add", "done1"}));
}

TEST_F(Menus, AnAccessKeyIsMarkedBehindTheCaptionAndBeforeItsDots) {
    form.mnuImgClose.SetAccessKey('C');
    EXPECT_EQ(form.mnuImgClose.Marked(), "关闭(&C)");
    form.mnuImgClose.SetCaption("关闭...");
    EXPECT_EQ(form.mnuImgClose.Marked(), "关闭(&C)...");
    EXPECT_EQ(form.mnuImgClose.Caption(), "关闭...");
    form.Show(false);
    driver().Choose(form.mnuImgClose);
    EXPECT_EQ(events_, std::vector<std::string>{"imgClose"});
}

TEST_F(Menus, EntriesOfAPopupMenuCanBeChosen) {
    form.Show(false);
    driver().Choose(form.mnuImgClose);
    EXPECT_EQ(events_, std::vector<std::string>{"imgClose"});
}

TEST_F(Menus, ADisabledOrInvisibleEntryCannotBeChosen) {
    form.Show(false);
    form.mnuTaskAdd.SetEnabled(false);
    EXPECT_THROW(driver().Choose(form.mnuTaskAdd), driver::DriverError);
    form.mnuTaskAdd.SetEnabled(true);
    form.mnuTaskAdd.SetVisible(false);
    EXPECT_THROW(driver().Choose(form.mnuTaskAdd), driver::DriverError);
    form.mnuTaskAdd.SetVisible(true);
    form.mnuTask.SetEnabled(false);
    EXPECT_THROW(driver().Choose(form.mnuTaskAdd), driver::DriverError);
    EXPECT_TRUE(events_.empty());
}

TEST_F(Menus, AMenuWithEntriesIsNoEntry) {
    form.Show(false);
    EXPECT_THROW(driver().Choose(form.mnuTask), driver::DriverError);
}

class StandingMenu : public Menus {
 protected:
    StandingMenu() {
        form.cmdMenu.onClick = [this] {
            form.PopupMenu(form.mnuTask, 10, 10);
            events_.push_back("closed");
        };
    }
    void Open(std::function<void()> whileOpen) {
        stand_->SetMenuLoop(std::move(whileOpen));
        form.Show(false);
        driver().Click(form.cmdMenu);
    }
};

TEST_F(StandingMenu, AnEntryIsNotifiedWhenTheMenuHasClosed) {
    form.mnuTaskAdd.onClick = [this] {
        EXPECT_EQ(windows_.StandingMenu(), nullptr);
        events_.push_back("add");
    };
    Open([this] {
        EXPECT_EQ(windows_.StandingMenu(), &form.mnuTask);
        driver().Choose(form.mnuTaskAdd);
        EXPECT_TRUE(events_.empty());
    });
    EXPECT_EQ(events_, (std::vector<std::string>{"add", "closed"}));
}

TEST_F(StandingMenu, WithoutAChoiceItClosesAndReportsNothing) {
    Open([] {});
    EXPECT_EQ(events_, std::vector<std::string>{"closed"});
    EXPECT_EQ(windows_.StandingMenu(), nullptr);
}

TEST_F(StandingMenu, AnEntryThatWentGreyMeanwhileIsNotNotified) {
    Open([this] {
        driver().Choose(form.mnuTaskAdd);
        form.mnuTaskAdd.SetEnabled(false);
    });
    EXPECT_EQ(events_, std::vector<std::string>{"closed"});
}

TEST_F(StandingMenu, ASecondMenuDoesNotOpen) {
    Open([this] {
        form.PopupMenu(form.mnuImg, 0, 0);
        EXPECT_EQ(form.LastPopup(), "mnuTask");
        EXPECT_EQ(windows_.StandingMenu(), &form.mnuTask);
    });
    EXPECT_EQ(events_, std::vector<std::string>{"closed"});
}

TEST_F(StandingMenu, TheWindowMayGoWhileItsMenuIsOpen) {
    form.cmdMenu.onClick = [this] { form.PopupMenu(form.mnuTask, 10, 10); };
    Open([this] {
        driver().Choose(form.mnuTaskAdd);
        form.Unload();
    });
    EXPECT_TRUE(events_.empty());
    EXPECT_TRUE(windows_.Windows().empty());
    EXPECT_EQ(windows_.StandingMenu(), nullptr);
}

TEST_F(Menus, CaptionsMayChangeWhileShown) {
    form.Show(false);
    form.mnuTaskAdd.SetCaption("新增事件");
    form.mnuTaskAdd.SetChecked(true);
    EXPECT_EQ(form.mnuTaskAdd.Caption(), "新增事件");
    driver().Choose(form.mnuTaskAdd);
    EXPECT_EQ(events_, std::vector<std::string>{"add"});
}

TEST_F(Menus, AShortcutIsShownAndChangesNoCaption) {
    form.mnuTaskAdd.SetShortcut("Ctrl+N");
    form.Show(false);
    EXPECT_EQ(form.mnuTaskAdd.Caption(), "新增(&A)");
    EXPECT_EQ(form.mnuTaskAdd.Shortcut(), "Ctrl+N");
    driver().Choose(form.mnuTaskAdd);
    EXPECT_EQ(events_, std::vector<std::string>{"add"});
}

TEST_F(Menus, MouseMovesReportTheirPlaceInTwips) {
    int y = -1;
    form.picImage.onMouseMove = [&](const MouseEvent& event) { y = event.y; };
    form.Show(false);
    driver().MoveMouse(form.picImage, 150, 300);
    EXPECT_EQ(y, 300);
}

TEST_F(Menus, AGridCountsItsDataRowsFromOne) {
    form.grdList.SetDataRowCount(2);
    form.grdList.SetCell(1, 1, "001");
    form.grdList.SetCell(2, 2, "张三");
    form.Show(false);
    EXPECT_EQ(Read(form.grdList, "rows"), "2");
    EXPECT_EQ(Read(form.grdList, "cell", {1, 1}), "001");
    EXPECT_EQ(Read(form.grdList, "cell", {2, 2}), "张三");
    EXPECT_EQ(Read(form.grdList, "cell", {2, 1}), "");
    EXPECT_THROW(form.grdList.SetCell(0, 1, "x"), RuntimeError);
    EXPECT_THROW(form.grdList.SetCell(1, 4, "x"), RuntimeError);
}

TEST_F(Menus, AGridFollowsItsRows) {
    form.Show(false);
    form.grdList.SetDataRowCount(3);
    form.grdList.SetCell(3, 1, "neu");
    EXPECT_EQ(Read(form.grdList, "rows"), "3");
    EXPECT_EQ(Read(form.grdList, "cell", {3, 1}), "neu");
    form.grdList.SetDataRowCount(0);
    EXPECT_EQ(Read(form.grdList, "rows"), "0");
}

TEST_F(Menus, SelectingAGridRowReportsIt) {
    form.grdList.SetDataRowCount(3);
    form.grdList.onSelect = [this] {
        events_.push_back("row" + std::to_string(form.grdList.SelectedRow()));
    };
    form.Show(false);
    driver().SelectRow(form.grdList, 2);
    EXPECT_EQ(events_, std::vector<std::string>{"row2"});
}

}  // namespace
}  // namespace zv::contract
