// Reminders kept in the database, on every engine.
#include "reminders/table_memory.h"

#include "watched_database.h"

namespace zv::reminders {
namespace {

const DateTime kNow(2003, 3, 7, 9, 30);

Answer AnswerFor(std::int32_t item, std::optional<DateTime> until = std::nullopt) {
    return {{0, item, DateTime(2003, 3, 7), "t"}, until};
}

class TableMemoryTest : public store::WatchedDatabaseTest {
 protected:
    void SetUp() override {
        WatchedDatabaseTest::SetUp();
        database_.EnsureConnection();
    }
    TableMemory memory_{database_};
};

ZV_ON_EVERY_ENGINE(TableMemoryTest);

TEST_P(TableMemoryTest, WithoutTheTableSaysSo) {
    try {
        memory_.Answers("Li");
        FAIL() << "there is no such table";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::NoTable);
    }
}

}  // namespace
}  // namespace zv::reminders
