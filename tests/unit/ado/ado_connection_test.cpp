#include "store/ado/ado_connection.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "connection_object.h"
#include "doubles/scripted_connection.h"
#include "store/ado/ado_recordset.h"
#include "store/ado/value_conversion.h"

namespace zv::store::ado {
namespace {

using doubles::Script;
using doubles::Table;

template <class Action>
RuntimeError ErrorFrom(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return RuntimeError(ErrorNumber::InternalError);
}

class AdoConnection : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        connection_ = WrapConnection(win32::ComPtr<IDispatch>::Attach(new host::ConnectionObject(
            [this] { return doubles::MakeScriptedConnection(script_); }, "test")));
    }
    void TearDown() override {
        connection_.reset();
        EXPECT_EQ(script_.openRecordsets, 0);
        EXPECT_EQ(automation::module::Locks(), 0);
        CoUninitialize();
    }

    void FillNumbers(const std::string& statement, int count) {
        Table& table = script_.answers[statement];
        table.columns = {"n", "Twice"};
        for (int i = 0; i < count; ++i) table.rows.push_back({Value(i), Value(2 * i)});
    }

    Script script_;
    std::unique_ptr<Connection> connection_;
};

TEST_F(AdoConnection, ReportsItsStateAndCloses) {
    EXPECT_EQ(connection_->State(), Connection::kStateOpen);
    connection_->Close();
    EXPECT_EQ(connection_->State(), Connection::kStateClosed);
}

TEST_F(AdoConnection, ExecutePassesTheStatementOnAsItStandsAndAnswersTheRowsChanged) {
    script_.affected = 3;
    EXPECT_EQ(connection_->Execute("Update t  Set x='中文'"), 3);
    EXPECT_EQ(script_.executed, std::vector<std::string>{"Update t  Set x='中文'"});
}

TEST_F(AdoConnection, AnErrorKeepsItsNumberTextAndSource) {
    const auto error = ErrorFrom([&] { connection_->Execute("fail"); });
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
    EXPECT_EQ(error.Text(), "语句错误: fail");
    EXPECT_EQ(error.Source(), "Engine");
}

TEST_F(AdoConnection, AnErrorOfOpenKeepsItsNumberForEachKindOfCursor) {
    for (const auto cursor : {CursorType::ForwardOnly, CursorType::Keyset}) {
        const auto lock = cursor == CursorType::Keyset ? LockType::Optimistic : LockType::ReadOnly;
        const auto error = ErrorFrom([&] { connection_->Open("select x", cursor, lock); });
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseTable);
        EXPECT_EQ(error.Text(), "no such table: select x");
    }
}

TEST_F(AdoConnection, AClosedConnectionAnswers3704) {
    connection_->Close();
    EXPECT_EQ(ErrorFrom([&] { connection_->Execute("x"); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorFrom([&] {
                  connection_->Open("select x", CursorType::ForwardOnly, LockType::ReadOnly);
              }).Number(),
              ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorFrom([&] { connection_->Close(); }).Number(), ErrorNumber::ObjectClosed);
}

TEST_F(AdoConnection, ReadsEveryRowAcrossBlocks) {
    // Around the sizes at which a block ends: 32, 32 + 128, 32 + 128 + 512, and much later.
    for (const int count : {0, 1, 31, 32, 33, 160, 161, 672, 673, 2720, 2721, 10000}) {
        FillNumbers("select n", count);
        auto rows = connection_->Open("select n", CursorType::ForwardOnly, LockType::ReadOnly);
        int read = 0;
        for (; !rows->Eof(); rows->MoveNext(), ++read) {
            ASSERT_EQ(rows->Field(0).ToInt32(), read);
            ASSERT_EQ(rows->Field("twice").ToInt32(), 2 * read);
        }
        EXPECT_EQ(read, count);
        script_.answers.clear();
    }
}

TEST_F(AdoConnection, StaticRowsAreReadOneByOneSoThatTheObjectStandsOnTheCurrentRow) {
    FillNumbers("select n", 100);
    auto rows = connection_->Open("select n", CursorType::Static, LockType::ReadOnly);
    const auto object = ObjectOf(*rows);
    ASSERT_TRUE(object);
    int read = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++read) {
        Member fields(L"Fields"), item(L"Item"), value(L"Value");
        const auto all = GetObjectProperty(*object, fields);
        const auto field = GetObjectProperty(*all, item, {win32::Variant("n").Get()});
        ASSERT_EQ(FromVariant(GetProperty(*field, value).Get()).ToInt32(), read);
    }
    EXPECT_EQ(read, 100);
}

TEST_F(AdoConnection, EveryKindOfValueIsRead) {
    Table& table = script_.answers["select v"];
    table.columns = {"a", "b", "c", "d", "e", "f"};
    table.rows = {{Value(), Value(7), Value(1.5), Value("提醒"),
                   Value(DateTime(2024, 2, 29, 8, 5, 9)), Value(std::int64_t{5000000000})}};
    for (const auto lock : {LockType::ReadOnly, LockType::Optimistic}) {
        auto rows = connection_->Open("select v", CursorType::Keyset, lock);
        EXPECT_TRUE(rows->Field(0).IsNull());
        EXPECT_EQ(rows->Field(1), Value(7));
        EXPECT_EQ(rows->Field(2), Value(1.5));
        EXPECT_EQ(rows->Field(3), Value("提醒"));
        EXPECT_EQ(rows->Field(4), Value(DateTime(2024, 2, 29, 8, 5, 9)));
        EXPECT_EQ(rows->Field(5).ToDouble(), 5000000000.0);
    }
}

TEST_F(AdoConnection, FieldsAreFoundByNameWithoutRegardToCase) {
    FillNumbers("select n", 1);
    auto rows = connection_->Open("select n", CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_EQ(rows->FieldCount(), 2);
    EXPECT_EQ(rows->FieldName(1), "Twice");
    EXPECT_EQ(rows->FieldIndex("TWICE"), 1);
    EXPECT_EQ(ErrorFrom([&] { rows->FieldIndex("other"); }).Number(), ErrorNumber::DatabaseColumn);
    EXPECT_EQ(ErrorFrom([&] { rows->Field(2); }).Number(), ErrorNumber::DatabaseColumn);
}

TEST_F(AdoConnection, BehindTheLastRowIsNoCurrentRecord) {
    FillNumbers("select n", 1);
    for (const auto lock : {LockType::ReadOnly, LockType::Optimistic}) {
        auto rows = connection_->Open("select n", CursorType::Keyset, lock);
        rows->MoveNext();
        EXPECT_TRUE(rows->Eof());
        EXPECT_EQ(ErrorFrom([&] { rows->Field(0); }).Number(), ErrorNumber::NoCurrentRecord);
        EXPECT_EQ(ErrorFrom([&] { rows->MoveNext(); }).Number(), ErrorNumber::NoCurrentRecord);
    }
}

TEST_F(AdoConnection, AClosedRecordsetAnswers3704) {
    FillNumbers("select n", 1);
    auto rows = connection_->Open("select n", CursorType::ForwardOnly, LockType::ReadOnly);
    rows->Close();
    EXPECT_EQ(script_.openRecordsets, 0);
    EXPECT_EQ(ErrorFrom([&] { rows->Eof(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorFrom([&] { rows->MoveNext(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorFrom([&] { rows->Field(0); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorFrom([&] { rows->AddNew(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_NO_THROW(rows->Close());
}

TEST_F(AdoConnection, ClosingTheConnectionClosesItsRecordsets) {
    FillNumbers("select n", 2);
    auto rows = connection_->Open("select n", CursorType::Keyset, LockType::Optimistic);
    connection_->Close();
    EXPECT_EQ(script_.openRecordsets, 0);
    EXPECT_EQ(ErrorFrom([&] { rows->Eof(); }).Number(), ErrorNumber::ObjectClosed);
}

TEST_F(AdoConnection, AStatementWithoutRowsOpensAClosedRecordset) {
    auto rows = connection_->Open("delete from t", CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_EQ(script_.executed, std::vector<std::string>{"delete from t"});
    EXPECT_EQ(ErrorFrom([&] { rows->Eof(); }).Number(), ErrorNumber::ObjectClosed);
}

TEST_F(AdoConnection, AddNewWritesARowWithItsFields) {
    FillNumbers("select n", 2);
    auto rows = connection_->Open("select n", CursorType::Keyset, LockType::Optimistic);
    rows->AddNew();
    rows->SetField("N", Value(42));
    rows->SetField("twice", Value("文"));
    EXPECT_EQ(rows->Field("n"), Value(42));
    rows->Update();
    const Table& table = script_.answers["select n"];
    ASSERT_EQ(table.rows.size(), 3u);
    EXPECT_EQ(table.rows[2][0], Value(42));
    EXPECT_EQ(table.rows[2][1], Value("文"));
}

TEST_F(AdoConnection, ReadingBeforeAChangeKeepsTheCurrentRow) {
    FillNumbers("select n", 40);
    auto rows = connection_->Open("select n", CursorType::Keyset, LockType::Optimistic);
    for (int i = 0; i < 35; ++i) {
        EXPECT_EQ(rows->Field(0).ToInt32(), i);
        rows->MoveNext();
    }
    rows->SetField("twice", Value(-1));
    rows->Update();
    EXPECT_EQ(rows->Field(0).ToInt32(), 35);
    EXPECT_EQ(rows->Field(1).ToInt32(), -1);
    const Table& table = script_.answers["select n"];
    for (std::size_t i = 0; i < 40; ++i) {
        EXPECT_EQ(table.rows[i][1], Value(i == 35 ? -1 : static_cast<int>(2 * i)));
    }
}

TEST_F(AdoConnection, RowsThatAreReadOnlyRefuseAddNew) {
    FillNumbers("select n", 1);
    auto rows = connection_->Open("select n", CursorType::Static, LockType::ReadOnly);
    EXPECT_EQ(static_cast<int>(ErrorFrom([&] { rows->AddNew(); }).Number()), 3251);
    EXPECT_EQ(rows->Field(0).ToInt32(), 0);
}

TEST_F(AdoConnection, ADroppedRecordsetClosesItself) {
    FillNumbers("select n", 1);
    connection_->Open("select n", CursorType::Keyset, LockType::Optimistic).reset();
    EXPECT_EQ(script_.openRecordsets, 0);
}

TEST(WrapConnection, NothingIsNoConnection) {
    EXPECT_EQ(ErrorFrom([] { WrapConnection(nullptr); }).Number(), ErrorNumber::ObjectNotSet);
}

}  // namespace
}  // namespace zv::store::ado
