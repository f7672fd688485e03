// What other programs do to tables and indexes while a connection is open.
#include <atomic>
#include <thread>

#include "database_fixture.h"
#include "store/engines/sqlite/window_index.h"

namespace zv::store {
namespace {

constexpr const char* kDue =
    "select fID from tTaskList where tDuring1<=#03/07/2003# and tDuring2>=#03/07/2003#";

class SchemaChanges : public DatabaseTest {
 protected:
    SchemaChanges() : other_(OpenSqlite(path_, {.translate = false})) {
        other_->Execute(
            "insert into tTaskList(taskTitle,tDuring1,tDuring2) values"
            "('due','2003-03-01 00:00:00','2003-03-09 00:00:00')");
    }
    void DropIndex() {
        other_->Execute("drop index " + std::string(engines::sqlite::kWindowIndex));
    }
    std::unique_ptr<Connection> other_;
};

TEST_F(SchemaChanges, ADroppedIndexIsNoErrorOfTheList) {
    ASSERT_EQ(Rows(kDue), "1");
    DropIndex();
    EXPECT_EQ(Rows(kDue), "1");
    EXPECT_EQ(Rows(std::string(kDue) + " and tDone=0"), "1");
}
TEST_F(SchemaChanges, ADroppedIndexIsNoErrorOfAnEditedList) {
    ASSERT_EQ(Edit(kDue)->Field(0).ToInt32(), 1);
    DropIndex();
    EXPECT_EQ(Edit(kDue)->Field(0).ToInt32(), 1);
}
TEST_F(SchemaChanges, AnIndexOfTheSameNameButAnotherMakingIsNotUsed) {
    ASSERT_EQ(Rows(kDue), "1");
    DropIndex();
    other_->Execute("create index " + std::string(engines::sqlite::kWindowIndex) +
                    " on tTaskList(fID)");
    EXPECT_EQ(Rows(kDue), "1");
}
TEST_F(SchemaChanges, AnIndexThatIsDroppedAndMadeAllTheTimeIsNeverAnError) {
    std::atomic<bool> ended{false};
    std::thread program([&] {
        const auto own = OpenSqlite(path_, {.translate = false});
        while (!ended) {
            own->Execute("drop index " + std::string(engines::sqlite::kWindowIndex));
            own->Execute(engines::sqlite::WindowIndexStatement());
        }
    });
    int wrong = 0;
    std::string reason;
    for (int i = 0; i < 10000; i++) {
        try {
            if (Rows(kDue) != "1") wrong++;
        } catch (const RuntimeError& error) {
            wrong++;
            reason = error.Text();
        }
    }
    ended = true;
    program.join();
    EXPECT_EQ(wrong, 0) << reason;
}
TEST_F(SchemaChanges, AColumnThatChangesItsKindIsComparedAsItIs) {
    // Dates are known by the column's type.
    other_->Execute("create table own(day text)");
    other_->Execute("insert into own values('2003-03-07 00:00:00')");
    ASSERT_EQ(Rows("select count(*) from own where day=#03/07/2003#"), "1");
    other_->Execute("drop table own");
    other_->Execute("create table own(day datetime,more)");
    other_->Execute("insert into own values('2003-03-07 00:00:00',1)");
    EXPECT_EQ(Read("select day from own")->Field(0), Value(DateTime(2003, 3, 7)));
    EXPECT_EQ(Rows("select * from own where day=#03/07/2003#"), "2003-03-07 00:00:00|1");
}
TEST_F(SchemaChanges, ATableThatComesLaterIsFound) {
    EXPECT_EQ(ErrorOf([&] { Rows("select * from own"); }).Number(), ErrorNumber::DatabaseTable);
    other_->Execute("create table own(a)");
    other_->Execute("insert into own values(7)");
    EXPECT_EQ(Rows("select * from own"), "7");
    other_->Execute("alter table own add column b");
    EXPECT_EQ(Rows("select * from own"), "7|");
}

}  // namespace
}  // namespace zv::store
