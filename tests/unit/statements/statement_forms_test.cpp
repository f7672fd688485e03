// Every form of statement that the system sends gives the same rows on every engine.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "base/text.h"
#include "engines.h"
#include "fixture.h"
#include "store/dialect/translator.h"

namespace zv::store {
namespace {

using Names = std::vector<std::string>;

Names ColumnsOf(Recordset& rows) {
    Names names;
    for (int column = 0; column < rows.FieldCount(); column++) {
        names.push_back(rows.FieldName(column));
    }
    return names;
}

/// A line a row; `columns` by name where there are more, because a server's table may have a key of
/// its own besides.
std::vector<std::string> RowsWith(Recordset& rows, const Names& columns) {
    std::vector<int> places;
    const bool byPlace = rows.FieldCount() == static_cast<int>(columns.size());
    for (const std::string& column : columns) {
        places.push_back(byPlace ? static_cast<int>(places.size()) : rows.FieldIndex(column));
    }
    std::vector<std::string> lines;
    for (; !rows.Eof(); rows.MoveNext()) {
        std::string line;
        for (const int place : places) {
            const Value& value = rows.Field(place);
            line += (value.IsNull() ? "null" : value.ToText()) + "|";
        }
        lines.push_back(line);
    }
    return lines;
}

bool Holds(const std::string& sql, const char* words) {
    return text::Contains(text::ToLower(sql), words);
}

/// The embedded engine and another one with the same rows.
class StatementForms : public EngineTest {
 protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (IsSkipped()) return;
        reference_ = MakeTestDatabase(EngineKind::Embedded);
        embedded_ = reference_->Connect();
        for (const std::string& sql : ReadDataStatements()) {
            embedded_->Execute(sql);
            connection_->Execute(sql);
        }
    }

    void ExpectSameRows(const std::string& sql, LockType lock) {
        const CursorType cursor =
            lock == LockType::ReadOnly ? CursorType::ForwardOnly : CursorType::Keyset;
        const auto expected = embedded_->Open(sql, cursor, lock);
        const auto actual = connection_->Open(sql, cursor, lock);
        const Names columns = ColumnsOf(*expected);
        auto expectedRows = RowsWith(*expected, columns);
        auto actualRows = RowsWith(*actual, columns);
        if (Holds(sql, "select top ")) {
            // Of rows that are alike in their order, any may be the first.
            EXPECT_EQ(actualRows.size(), expectedRows.size());
            return;
        }
        if (!Holds(sql, "order by")) {
            std::sort(expectedRows.begin(), expectedRows.end());
            std::sort(actualRows.begin(), actualRows.end());
        }
        EXPECT_EQ(actualRows, expectedRows);
    }

    std::unique_ptr<TestDatabase> reference_;
    std::unique_ptr<Connection> embedded_;
};

TEST_P(StatementForms, SelectsYieldTheSameRows) {
    int selects = 0;
    for (const NamedStatement& statement : ReadStatements()) {
        if (!statement.IsSelect()) continue;
        SCOPED_TRACE(statement.name + ": " + statement.sql);
        try {
            ExpectSameRows(statement.sql, LockType::ReadOnly);
            ExpectSameRows(statement.sql, LockType::Optimistic);
        } catch (const RuntimeError& error) {
            ADD_FAILURE() << error.Text();
        }
        selects++;
    }
    EXPECT_GT(selects, 100);
}

TEST_P(StatementForms, ChangesLeaveTheSameRows) {
    int changes = 0;
    for (const NamedStatement& statement : ReadStatements()) {
        if (statement.IsSelect()) continue;
        SCOPED_TRACE(statement.name + ": " + statement.sql);
        const int expected = embedded_->Execute(statement.sql);
        EXPECT_GT(expected, 0) << "the statement finds nothing in the data";
        EXPECT_EQ(connection_->Execute(statement.sql), expected);
        ExpectSameRows("select * from tTaskList order by fID", LockType::ReadOnly);
        ExpectSameRows("select * from tTaskSet order by TaskID", LockType::ReadOnly);
        changes++;
    }
    EXPECT_GT(changes, 5);
}

ZV_ON_EVERY_ENGINE(StatementForms);

TEST(StatementFixture, FindsRowsWithEveryForm) {
    const auto database = MakeTestDatabase(EngineKind::Embedded);
    const auto connection = database->Connect();
    for (const std::string& sql : ReadDataStatements()) connection->Execute(sql);
    // Forms that by themselves exclude everything.
    const Names empty{"list-without-all-kinds", "list-without-all-kinds-server", "query-no-kind",
                      "list-doer-with-blank"};
    for (const NamedStatement& statement : ReadStatements()) {
        if (!statement.IsSelect()) continue;
        const bool mayBeEmpty =
            std::find(empty.begin(), empty.end(), statement.name) != empty.end();
        const auto rows =
            connection->Open(statement.sql, CursorType::ForwardOnly, LockType::ReadOnly);
        EXPECT_EQ(rows->Eof(), mayBeEmpty) << statement.name;
    }
}

TEST(StatementFixture, HasEachNameAndEachStatementOnce) {
    std::vector<std::string> names;
    std::vector<std::string> statements;
    for (const NamedStatement& statement : ReadStatements()) {
        names.push_back(statement.name);
        statements.push_back(statement.sql);
    }
    for (auto* list : {&names, &statements}) {
        std::sort(list->begin(), list->end());
        const auto twice = std::adjacent_find(list->begin(), list->end());
        EXPECT_TRUE(twice == list->end()) << *twice;
    }
}

TEST(FormOf, ReplacesValuesOnly) {
    EXPECT_EQ(FormOf("select a1 from t2 where x='it' And y=#03/07/2003# and z = '03/07/2003' and "
                     "n=-1.5 and w='2003-03-07'Order By 3"),
              "select a1 from t2 where x=T And y=D and z = D and n=-N and w=TOrder By N");
    EXPECT_EQ(FormOf("where fType=0Order By a.fType"), "where fType=NOrder By a.fType");
    EXPECT_EQ(FormOf("where x='open"), "where x='open");
}

}  // namespace
}  // namespace zv::store
