#include "items/list_fields.h"

#include <gtest/gtest.h>

#include "application/test_application.h"
#include "suite/field_captions.h"

namespace zv::items {
namespace {

std::vector<ListField> Fields(Session& session) {
    const std::int16_t language = session.state.Language;
    return ListFields(suite::ReadFieldCaptions(session.database, language), language);
}

using Lines = std::vector<std::string>;

std::string Names(const std::vector<ListField>& fields) {
    std::string names;
    for (const ListField& field : fields) {
        names += (names.empty() ? "" : " ") + field.field + ':' + field.caption;
    }
    return names;
}

constexpr const char* kInsert =
    "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,FieldType,fieldID) values";

class ListFields : public testing::Test {
 protected:
    void Describe(const std::string& rows) { stage.Sql(kInsert + rows); }
    std::string Read() { return Names(Fields(stage.session)); }

    test::TestApplication stage;
};

TEST_F(ListFields, ComeInTheOrderOfTheDatabaseUnderItsCaptions) {
    Describe(
        "('ttasklist','taskTitle','标题','標題',0,2),('ttasklist','taskTime','日子','日子',0,1)");
    EXPECT_EQ(Read(), "taskTime:日子 taskTitle:标题");
    EXPECT_EQ(stage.statements.Take(),
              (Lines{"select FieldName,FieldName_0 from rptListDetail Where fTable='ttasklist' And "
                     "FieldType>-1 Order by fieldID"}));
    stage.session.state.Language = 1;
    EXPECT_EQ(Read(), "taskTime:日子 taskTitle:標題");
}

TEST_F(ListFields, HiddenFieldsAndOtherTablesAreLeftOut) {
    Describe(
        "('ttasklist','taskTitle','标题','',0,2),('ttasklist','fUser','用户','',-1,1),"
        "('cards','Name','姓名','',0,3)");
    EXPECT_EQ(Read(), "taskTitle:标题");
}

TEST_F(ListFields, AFieldWithoutACaptionKeepsTheWindowsOwn) {
    Describe("('ttasklist','fcontent','','',0,1),('ttasklist','fLast','','',0,2)");
    EXPECT_EQ(Read(), "fcontent:内容 fLast:fLast");
}

TEST_F(ListFields, ANameThatIsNoIdentifierIsLeftOut) {
    Describe(
        "('ttasklist','x'' or 1','坏','',0,1),('ttasklist','1a','坏','',0,2),"
        "('ttasklist','','坏','',0,3),('ttasklist','fWay','好','',0,4)");
    EXPECT_EQ(Read(), "fWay:好");
}

TEST_F(ListFields, OfAFieldThatIsDescribedTwiceTheLaterRowHolds) {
    Describe("('ttasklist','FUSER','乙','',0,2),('ttasklist','fUser','甲','',0,1)");
    EXPECT_EQ(Read(), "FUSER:乙");
    Describe("('ttasklist','fUser','','',0,3)");
    EXPECT_EQ(Read(), "fUser:设置人");
}

TEST_F(ListFields, ADatabaseThatDescribesNoneYieldsThoseOfTheWindows) {
    const std::string own =
        "taskTime:日期 taskTitle:主题 fContent:内容 tDoneMan:执行人 fUser:设置人 fType:类型 "
        "tDone:状况 fWay:联络方式 fGuest:联系人 fOther0:备注 1 fOther1:备注 2 fOther2:备注 3 "
        "fOther3:备注 4 fOther4:备注 5 fOther5:备注 6";
    EXPECT_EQ(Read(), own);
    stage.Sql("drop table rptListDetail");
    EXPECT_EQ(Read(), own);
}

TEST_F(ListFields, AnyOtherFailureReachesTheCaller) {
    stage.statements.failing = "rptListDetail";
    EXPECT_THROW(Fields(stage.session), RuntimeError);
}

TEST(KindOfField, SaysHowAFieldIsCompared) {
    EXPECT_EQ(KindOfField("TASKTIME"), FieldKind::Date);
    EXPECT_EQ(KindOfField("tDone"), FieldKind::State);
    EXPECT_EQ(KindOfField("fType"), FieldKind::ItemKind);
    EXPECT_EQ(KindOfField("taskID"), FieldKind::Number);
    EXPECT_EQ(KindOfField("taskTitle"), FieldKind::Text);
}

}  // namespace
}  // namespace zv::items
