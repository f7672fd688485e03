// Tables and indexes that another program changes while a connection is open: the next statement
// succeeds, on every engine.
#include "engines.h"

namespace zv::store {
namespace {

constexpr const char* kDue =
    "select fID from tTaskList where tDuring1<=#03/07/2003# and tDuring2>=#03/07/2003#";

class ChangedTables : public EngineTest {
 protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (!IsSkipped()) other_ = database_->ConnectRaw();
    }
    void TearDown() override {
        other_.reset();
        EngineTest::TearDown();
    }
    std::unique_ptr<Connection> other_;
};

TEST_P(ChangedTables, AnIndexThatIsDroppedIsNoErrorOfTheList) {
    other_->Execute(
        "insert into tTaskList(taskTitle,tDuring1,tDuring2) values"
        "('due','2003-03-01 00:00:00','2003-03-09 00:00:00')");
    ASSERT_EQ(Rows(kDue), "1");
    other_->Execute("drop index tTaskList_window");
    EXPECT_EQ(Rows(kDue), "1");
    EXPECT_EQ(Edit(kDue)->Field(0).ToInt32(), 1);
}
TEST_P(ChangedTables, AColumnOfAnotherTypeIsComparedAsItIs) {
    other_->Execute("create table own(a varchar(20))");
    other_->Execute("insert into own values('5')");
    ASSERT_EQ(Rows("select a from own where a='5'"), "5");
    other_->Execute("drop table own");
    other_->Execute("create table own(a integer,b integer)");
    other_->Execute("insert into own values(5,6)");
    EXPECT_EQ(Rows("select a from own where a='5'"), "5");
    EXPECT_EQ(Rows("select * from own where a='5'"), "5|6");
    Execute("update own set b=7 where a='5'");
    EXPECT_EQ(Rows("select b from own"), "7");
}
TEST_P(ChangedTables, ATableThatComesLaterIsFoundAndWritten) {
    EXPECT_EQ(ErrorOf([&] { Read("select a,b from own"); }).Number(), ErrorNumber::DatabaseTable);
    EXPECT_EQ(ErrorOf([&] { Edit("select a,b from own")->AddNew(); }).Number(),
              ErrorNumber::DatabaseTable);
    other_->Execute("create table own(a integer primary key,b varchar(20))");
    const auto rows = Edit("select a,b from own");
    rows->AddNew();
    rows->SetField("a", Value(std::int64_t{1}));
    rows->SetField("b", Value("later"));
    rows->Update();
    EXPECT_EQ(Rows("select a,b from own where b='later'"), "1|later");
}
TEST_P(ChangedTables, AColumnThatComesLaterIsRead) {
    ASSERT_EQ(Rows("select * from tRsBasic"), "");
    other_->Execute("alter table tRsBasic add column more integer");
    other_->Execute("insert into tRsBasic(fCode,fName,more) values('1','a',3)");
    if (!Traits().seesNewColumnsAtOnce) Rows("select * from tRsBasic");
    EXPECT_EQ(Read("select * from tRsBasic")->Field("more").ToInt32(), 3);
    Execute("update tRsBasic set more='4' where more='3'");
    EXPECT_EQ(Rows("select more from tRsBasic"), "4");
}

ZV_ON_EVERY_ENGINE(ChangedTables);

}  // namespace
}  // namespace zv::store
