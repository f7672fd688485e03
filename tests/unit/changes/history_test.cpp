// Who did what to which row, on every engine.
#include "changes/history.h"

#include "changes/row_text.h"
#include "stored_items.h"

namespace zv::changes {
namespace {

const DateTime kNow(2003, 3, 7, 9, 30, 0);

class HistoryTest : public StoredItemsTest {
 protected:
    static std::string Text(const Record& record) {
        return record.who + "|" + std::to_string(record.act) + "|" + record.field + "|" +
               record.before + "|" + record.after;
    }
    Strings Of(std::int32_t row) {
        Strings texts;
        for (const Record& record : history_.Of(items::ItemTable(), row)) {
            texts.push_back(Text(record));
        }
        return texts;
    }

    History history_{database_};
};

ZV_ON_EVERY_ENGINE(HistoryTest);

TEST_P(HistoryTest, KnowsWhetherThereIsATable) {
    EXPECT_FALSE(history_.IsKept());
    MakeSideTables();
    EXPECT_FALSE(history_.IsKept()) << "looked at once for each connection";
    database_.ForgetTables();
    EXPECT_TRUE(history_.IsKept());
    EXPECT_TRUE(log_.lines.empty()) << "looking is no statement of a window";
}

TEST_P(HistoryTest, SaysThatThereIsNoTable) {
    const RowChange change = Retitled(5, "a", "b");
    EXPECT_EQ(KindOf([&] { history_.Write(kNow, "Li", Act::Change, {change}); }),
              ErrorKind::NoTable);
    EXPECT_EQ(KindOf([&] { history_.Of(items::ItemTable(), 5); }), ErrorKind::NoTable);
    EXPECT_EQ(KindOf([&] { history_.Deletions(5); }), ErrorKind::NoTable);
    EXPECT_EQ(KindOf([&] { history_.ForgetBefore(kNow); }), ErrorKind::NoTable);
}

TEST_P(HistoryTest, WritesARecordForEachFieldThatWasChanged) {
    MakeSideTables();
    RowChange change = Retitled(5, "O'Brien", "中文\r\nand more");
    (*change.before)[items::field::kState] = 0;
    (*change.after)[items::field::kState] = 1;
    (*change.before)[items::field::kDoer] = "same";
    (*change.after)[items::field::kDoer] = "same";
    history_.Write(kNow, "Li O'Hara", Act::Change, {change});
    EXPECT_EQ(Of(5),
              (Strings{"Li O'Hara|2|taskTitle|O'Brien|中文\r\nand more", "Li O'Hara|2|tDone|0|1"}));
    const auto records = history_.Of(items::ItemTable(), 5);
    EXPECT_EQ(records[0].when, kNow);
    EXPECT_EQ(records[0].table, "tTaskList");
    EXPECT_EQ(records[0].row, 5);
}

TEST_P(HistoryTest, ARowThatWasDeletedCanBeReadWhole) {
    MakeSideTables();
    Insert(5, "gone");
    const RowChange deletion = Deletion(5);
    history_.Write(kNow, "Li", Act::Delete, {deletion});
    const auto records = history_.Deletions(10);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].field, "");
    EXPECT_EQ(records[0].after, "");
    EXPECT_EQ(RowText(items::ItemTable(), FieldsOf(items::ItemTable(), records[0].before)),
              RowText(items::ItemTable(), *deletion.before));
}

TEST_P(HistoryTest, ListsTheLatestDeletionsAndNothingElse) {
    MakeSideTables();
    for (std::int32_t i = 1; i <= 3; i++) {
        Insert(i, "t");
        history_.Write(kNow, "Li", Act::Delete, {Deletion(i)});
    }
    history_.Write(kNow, "Li", Act::Add, {Reversed(Deletion(1))});
    history_.Write(kNow, "Li", Act::Change, {Retitled(2, "x", "")});
    const auto records = history_.Deletions(2);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].row, 3);
    EXPECT_EQ(records[1].row, 2);
}

TEST_P(HistoryTest, ForgetsWhatIsOlderThanADay) {
    MakeSideTables();
    history_.Write(kNow.AddDays(-2), "Li", Act::Change, {Retitled(5, "a", "b")});
    history_.Write(DateTime(2003, 3, 6), "Li", Act::Change, {Retitled(5, "b", "c")});
    history_.Write(kNow, "Li", Act::Change, {Retitled(5, "c", "d")});
    history_.ForgetBefore(DateTime(2003, 3, 6));
    EXPECT_EQ(Of(5), (Strings{"Li|2|taskTitle|b|c", "Li|2|taskTitle|c|d"}));
}

TEST_P(HistoryTest, ReadsWhatSomebodyElseWrote) {
    MakeSideTables();
    Run("insert into zvHistory(fTable,fRow) values('TTASKLIST',5)");
    EXPECT_EQ(Of(5), Strings{"|0|||"});
}

}  // namespace
}  // namespace zv::changes
