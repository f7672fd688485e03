#include "reports/list_layout.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv::reports {
namespace {

constexpr const char* kChosenColumns = "zvTask.PrintColumns";

class ListLayout : public testing::Test {
 protected:
    std::string Chosen() {
        std::string names;
        for (const ListColumn& column : ChosenColumns(stage.session)) {
            names += (names.empty() ? "" : ",") + column.field;
        }
        return names;
    }

    test::TestApplication stage;
};

TEST_F(ListLayout, WithoutAChoiceHasTheUsualColumns) {
    EXPECT_EQ(Chosen(), "taskTime,taskTitle,fContent,tDoneMan,fUser,fType,tDone");
}

TEST_F(ListLayout, KeepsTheChoiceAndItsOrder) {
    KeepLayout(stage.session, "fOther0,taskTitle");
    EXPECT_EQ(stage.settings.values[kChosenColumns], "fOther0,taskTitle");
    EXPECT_EQ(Chosen(), "fOther0,taskTitle");
    EXPECT_EQ(ChosenColumns(stage.session)[1].caption, "主题");
}

TEST_F(ListLayout, LeavesOutWhatIsNoLongerOfferedOrNamedTwice) {
    KeepLayout(stage.session, "gone,tasktitle,,taskTitle,fUser");
    EXPECT_EQ(Chosen(), "taskTitle,fUser");
}

TEST_F(ListLayout, AChoiceOfWhichNothingIsLeftIsNoChoice) {
    KeepLayout(stage.session, "gone,,");
    EXPECT_EQ(Chosen(), "taskTime,taskTitle,fContent,tDoneMan,fUser,fType,tDone");
}

TEST_F(ListLayout, WithNoneOfTheUsualColumnsHasAllThatAreOffered) {
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldType,fieldID) values"
        "('ttasklist','fOther0','地点',0,1),('ttasklist','fOther1','费用',0,2)");
    EXPECT_EQ(Chosen(), "fOther0,fOther1");
}

TEST_F(ListLayout, IsWrittenOnlyWhenItChanged) {
    KeepLayout(stage.session, "");
    EXPECT_FALSE(stage.settings.values.contains(kChosenColumns));
}

}  // namespace
}  // namespace zv::reports
