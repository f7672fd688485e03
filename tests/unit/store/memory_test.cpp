// What becomes of a statement when there is no memory for it: an error, at whatever point that is.
// Each allocation of the process fails once in its turn, or each of the engine.
#include <sqlite3.h>

#include "database_fixture.h"
#include "failing_memory.h"

namespace zv::store {
namespace {

using memory::FailsNow;

sqlite3_mem_methods systemMemory{};

void* EngineAllocate(int size) {
    return FailsNow() ? nullptr : systemMemory.xMalloc(size);
}
void* EngineReallocate(void* memory, int size) {
    return FailsNow() ? nullptr : systemMemory.xRealloc(memory, size);
}

class OutOfMemory : public DatabaseTest {
 protected:
    static void SetUpTestSuite() {
        // Only before the engine is used.
        sqlite3_shutdown();
        sqlite3_config(SQLITE_CONFIG_GETMALLOC, &systemMemory);
        sqlite3_mem_methods methods = systemMemory;
        methods.xMalloc = EngineAllocate;
        methods.xRealloc = EngineReallocate;
        ASSERT_EQ(sqlite3_config(SQLITE_CONFIG_MALLOC, &methods), SQLITE_OK);
        // So that the engine asks for each piece.
        sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
    }
    OutOfMemory() {
        Execute("insert into cards(CompName,Name) values('公司','张三')");
        Execute("insert into tTaskList(taskTitle,taskTime) values('a','2003-03-07 00:00:00')");
        for (int i = 0; i < 40; i++) Rows("select " + std::to_string(i));
    }

    /// Runs `action` until it needs no more allocations than may succeed; answers how often it
    /// failed. Every `step`-th is tried. Whatever it throws must say that memory is short.
    template <class Action>
    long FailAll(Action action, long step = 1) {
        for (long allocation = 1;; allocation += step) {
            bool failed = false;
            std::string other;
            memory::FailAllocation(allocation);
            try {
                action();
            } catch (const std::bad_alloc&) {
                failed = true;
            } catch (const RuntimeError& error) {
                failed = true;
                const bool named = error.Number() == ErrorNumber::OutOfMemory ||
                                   error.Text().find("memory") != std::string::npos;
                if (!named) other = error.Text();
            }
            const bool reached = memory::StopFailing();
            EXPECT_EQ(other, "") << "allocation " << allocation;
            if (!other.empty()) return -1;
            if (!failed && !reached) return allocation;
            if (allocation > 20000) return -1;
        }
    }
};

TEST_F(OutOfMemory, AReadIsWholeOrAnError) {
    std::string rows;
    const auto read = [&] {
        rows.clear();
        std::string text = Rows("select fID,CompName,Name from cards where Name='张三'");
        rows = std::move(text);
        if (rows != "1|公司|张三") throw std::logic_error("half a row: " + rows);
    };
    EXPECT_GT(FailAll(read), 10);
    EXPECT_EQ(Rows("select count(*) from cards"), "1");
}
TEST_F(OutOfMemory, AWriteIsDoneOrAnErrorWithoutATrace) {
    long done = 0;
    EXPECT_GT(FailAll([&] {
                  Execute("update cards set CompCode='x',fax='1' where CompName='公司'");
                  done++;
              }),
              10);
    EXPECT_GE(done, 1);
    EXPECT_EQ(Rows("select count(*) from cards where fax='1'"), "1");
}
TEST_F(OutOfMemory, AnEditedRowIsStoredWholeOrNotAtAll) {
    EXPECT_GT(FailAll([&] {
                  const auto row = Edit("select taskTitle,fContent from tTaskList where fID=1");
                  row->SetField("taskTitle", Value("b"));
                  row->SetField("fContent", Value("more than fits into a text without memory"));
                  row->Update();
                  row->Close();
              }),
              10);
    EXPECT_EQ(Rows("select taskTitle,fContent from tTaskList"),
              "b|more than fits into a text without memory");
}
TEST_F(OutOfMemory, ClosingAndOpeningNeverEndTheProgram) {
    connection_.reset();
    EXPECT_GT(FailAll(
                  [&] {
                      const auto connection = OpenSqlite(path_);
                      const auto rows = connection->Open(
                          "select * from cards", CursorType::ForwardOnly, LockType::ReadOnly);
                      connection->Execute("update cards set fax='2'");
                      connection->Close();
                  },
                  7),
              10);
}
TEST_F(OutOfMemory, ALongTextIsNeverCut) {
    Execute("update tTaskList set fContent='" + std::string(20000, 'x') + "'");
    std::size_t shortest = 20000;
    FailAll([&] {
        const auto rows = Read("select upper(fContent) as big from tTaskList");
        shortest = std::min(shortest, rows->Field(0).ToText().size());
    });
    EXPECT_EQ(shortest, 20000U);
}

}  // namespace
}  // namespace zv::store
