#include "forms/lists.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct ListsForm : TestForm {
    explicit ListsForm(WindowSystem& windows) : TestForm(windows) {
        for (const char* text : {"未办", "在办", "已办"}) {
            cboState.AddItem(text);
            cboWay.AddItem(text);
            lstStaff.AddItem(text);
        }
    }
    ComboBox cboState{*this, "cboState", nullptr, ComboStyle::ListOnly};
    ComboBox cboWay{*this, "cboWay", nullptr, ComboStyle::FreeText};
    ListBox lstStaff{*this, "lstStaff"};
};

class Lists : public Contract {
 protected:
    Lists() : form(windows_.Create<ListsForm>()) {
        Arrange(form);
        form.cboState.onClick = [this] { events_.push_back("click"); };
        form.cboWay.onClick = [this] { events_.push_back("wayClick"); };
        form.cboWay.onChange = [this] { events_.push_back("wayChange"); };
        form.lstStaff.onClick = [this] { events_.push_back("staff"); };
    }
    ListsForm& form;
};

TEST_F(Lists, AListStartsWithoutSelection) {
    form.Show(false);
    EXPECT_EQ(Read(form.cboState, "index"), "-1");
    EXPECT_EQ(Read(form.cboState, "text"), "");
    EXPECT_EQ(Read(form.cboState, "count"), "3");
    EXPECT_EQ(Read(form.cboState, "list", {1}), "在办");
}

TEST_F(Lists, SettingTheIndexFromCodeRaisesClickOnlyWhenItChanges) {
    form.Show(false);
    form.cboState.SetListIndex(2);
    form.cboState.SetListIndex(2);
    EXPECT_EQ(events_, std::vector<std::string>{"click"});
    EXPECT_EQ(Read(form.cboState, "index"), "2");
    EXPECT_EQ(Read(form.cboState, "text"), "已办");
}

TEST_F(Lists, AnIndexBeyondTheListIsAnError) {
    EXPECT_THROW(form.cboState.SetListIndex(3), RuntimeError);
    EXPECT_THROW(form.cboState.SetListIndex(-2), RuntimeError);
}

TEST_F(Lists, TheUserPicksARow) {
    form.Show(false);
    driver().Pick(form.cboState, 1);
    EXPECT_EQ(form.cboState.ListIndex(), 1);
    EXPECT_EQ(events_, std::vector<std::string>{"click"});
    EXPECT_EQ(Read(form.cboState, "focus"), "true");
    EXPECT_THROW(driver().Pick(form.cboState, 7), driver::DriverError);
}

TEST_F(Lists, ListEntriesCanBeReplacedWhileShown) {
    form.Show(false);
    form.cboState.SetListIndex(2);
    form.cboState.SetItems({"全部"});
    EXPECT_EQ(Read(form.cboState, "count"), "1");
    EXPECT_EQ(Read(form.cboState, "index"), "-1");
    form.cboState.AddItem("更多");
    form.cboState.SetListIndex(1);
    EXPECT_EQ(Read(form.cboState, "text"), "更多");
    form.cboState.Clear();
    EXPECT_EQ(Read(form.cboState, "count"), "0");
}

TEST_F(Lists, FreeTextNeedNotBeAnEntry) {
    form.Show(false);
    driver().Type(form.cboWay, "电话");
    EXPECT_EQ(form.cboWay.Text(), "电话");
    EXPECT_EQ(Read(form.cboWay, "text"), "电话");
    EXPECT_EQ(Read(form.cboWay, "index"), "-1");
    ASSERT_FALSE(events_.empty());
    EXPECT_EQ(events_.back(), "wayChange");
}

TEST_F(Lists, PickingARowFillsTheFreeText) {
    form.Show(false);
    driver().Pick(form.cboWay, 0);
    EXPECT_EQ(form.cboWay.Text(), "未办");
    EXPECT_EQ(Read(form.cboWay, "text"), "未办");
    EXPECT_EQ(events_, std::vector<std::string>{"wayClick"});
    form.cboWay.SetText("frei");
    EXPECT_EQ(Read(form.cboWay, "text"), "frei");
    EXPECT_EQ(Read(form.cboWay, "index"), "-1");
}

TEST_F(Lists, AListOnlyBoxTakesOnlyItsEntriesAsText) {
    form.cboState.SetText("在办");
    EXPECT_EQ(form.cboState.ListIndex(), 1);
    EXPECT_THROW(form.cboState.SetText("fremd"), RuntimeError);
    form.Show(false);
    EXPECT_THROW(driver().Type(form.cboState, "x"), driver::DriverError);
}

TEST_F(Lists, ALockedComboBoxKeepsItsValue) {
    form.cboState.SetListIndex(0);
    form.cboState.SetLocked(true);
    form.Show(false);
    EXPECT_EQ(Read(form.cboState, "locked"), "true");
    EXPECT_THROW(driver().Pick(form.cboState, 1), driver::DriverError);
    EXPECT_EQ(Read(form.cboState, "index"), "0");
}

TEST_F(Lists, AListBoxShowsItsSelection) {
    form.Show(false);
    driver().Pick(form.lstStaff, 2);
    EXPECT_EQ(Read(form.lstStaff, "index"), "2");
    EXPECT_EQ(Read(form.lstStaff, "text"), "已办");
    EXPECT_EQ(events_, std::vector<std::string>{"staff"});
}

TEST_F(Lists, AnEntryMayCarryAKeyBeyondTheVisibleWidth) {
    form.Show(false);
    const std::string entry = "公司" + std::string(78, ' ') + "4711";
    form.cboState.SetItems({entry});
    form.cboState.SetListIndex(0);
    EXPECT_EQ(Read(form.cboState, "text"), entry);
}

}  // namespace
}  // namespace zv::contract
