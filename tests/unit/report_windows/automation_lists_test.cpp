#include "report/windows/automation_lists.h"

#include <gtest/gtest.h>

#include "opener_object.h"
#include "platform/win32/report_objects.h"
#include "report/list_rows.h"
#include "store/ado/ado_connection.h"
#include "store/ado/ado_recordset.h"
#include "store/sqlite/create_database.h"
#include "temporary_folder.h"

namespace zv::report {
namespace {

using Lines = std::vector<std::string>;
using win32::ComPtr;
using win32::MakeCom;
using win32::Variant;

class SignedTable final : public platform::ReportTable {
 public:
    int RowCount() const override { return 2; }
    int ColumnCount() const override { return 2; }
    std::string Heading(int column) const override { return "C" + std::to_string(column); }
    int ColumnWidth(int) const override { return 0; }
    std::string Text(int row, int column) const override {
        return std::to_string(row) + "/" + std::to_string(column);
    }
    std::string Sign(int row) const override { return row == 2 ? "逾期 3 天" : ""; }
};

/// What a client of its own prints, who knows of no signs.
class PlainGrid final : public automation::DispatchObject<PlainGrid, automation::KeepsNothing> {
 public:
    static constexpr std::string_view kSourceName = "client";
    static std::span<const automation::MemberEntry<PlainGrid>> Members() {
        using T = PlainGrid;
        static constexpr std::array<automation::MemberEntry<T>, 4> kMembers{{
            automation::Offers<&T::One>(L"RowCount", 2).Taking(0),
            automation::Offers<&T::One>(L"ColumnCount", 3).Taking(0),
            automation::Offers<&T::One>(L"Heading", 4).Taking(1),
            automation::Offers<&T::One>(L"Text", 5).Taking(2),
        }};
        return kMembers;
    }

 private:
    ~PlainGrid() override = default;
    Variant One(const automation::Arguments&) { return Variant(std::int32_t{1}); }
};

class AutomationLists : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    }
    void TearDown() override { CoUninitialize(); }
};

TEST_F(AutomationLists, AGridBringsTheSignsOfItsRows) {
    const SignedTable signs;
    const ComPtr<platform::win32::TableObject> object =
        MakeCom<platform::win32::TableObject>(signs);
    const Table table = ReadGrid(*object);
    EXPECT_EQ(table.signs, (Lines{"", "逾期 3 天"}));
    EXPECT_EQ(table.Printed(0, 0), "1/1");
    EXPECT_EQ(table.Printed(1, 0), "2/1  逾期 3 天");
    EXPECT_EQ(table.Printed(1, 1), "2/2");
    EXPECT_EQ(table.rows[1], (Lines{"2/1", "2/2"}));
}

TEST_F(AutomationLists, AGridNeedNotKnowOfSigns) {
    const ComPtr<PlainGrid> object = MakeCom<PlainGrid>();
    const Table table = ReadGrid(*object);
    EXPECT_TRUE(table.signs.empty());
    EXPECT_EQ(table.Printed(0, 0), "1");
}

TEST_F(AutomationLists, ARecordsetSaysWhatIsOverdueAsRowsOfTheStoreDo) {
    const test::TemporaryFolder folder;
    const std::string file = Utf8Of(folder / "t.db");
    store::CreateSqliteDatabase(file);
    store::ConnectionSettings settings;
    settings.dataPath = store::ConnectionText(file);
    const auto connection = store::ado::WrapConnection(host::OpenDatabase(settings));
    connection->Execute(
        "insert into tTaskList(taskTitle,taskTime,tDone) values('甲',#03/04/2003#,0)");
    const std::vector<Heading> columns{
        {"主题", "taskTitle"}, {"状况", "tDone"}, {"时间", "taskTime"}};
    const DateTime today(2003, 3, 7);
    const auto open = [&] {
        return connection->Open(ListStatement("", ""), store::CursorType::Static,
                                store::LockType::ReadOnly);
    };
    const auto rows = open();
    const Table fromStore = ReadRows(*rows, columns, today, 0);
    const auto again = open();
    const Table fromObject = ReadRecordset(*store::ado::ObjectOf(*again), columns, today, 0);
    EXPECT_EQ(fromObject.Printed(0, 1), "未完成  逾期 3 天");
    EXPECT_EQ(fromStore.Printed(0, 1), "未完成  逾期 3 天");
    EXPECT_EQ(fromObject.rows, fromStore.rows);
}

}  // namespace
}  // namespace zv::report
