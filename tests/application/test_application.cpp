#include "application/test_application.h"

#include <atomic>
#include <chrono>

#include "base/text.h"
#include "doubles/rows_of.h"
#include "resources/error_texts.h"
#include "store/engines/engines.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::test {
namespace {

std::filesystem::path NewFolder() {
    static std::atomic<int> count = 0;
    for (;;) {
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        const auto folder =
            std::filesystem::temp_directory_path() /
            ("zv-application-" + std::to_string(now) + "-" + std::to_string(count++));
        if (std::filesystem::create_directory(folder)) return folder;
    }
}

}  // namespace

TestApplication::TestApplication() {
    clock.Set({2003, 3, 7, 9, 30});
    folder = NewFolder();
    store::CreateSqliteDatabase(Path("t.db"));
    control.UserControl_InitProperties();
    session.state.UserPath = Path("t.db");
    session.state.UserName = "张三";
    session.state.ZgName = "李四";
}

TestApplication::~TestApplication() {
    windows.UnloadAll();
    session.database.Close();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

void TestApplication::Sql(const std::string& script) {
    store::SqliteOptions options;
    options.translate = false;
    const auto connection = store::OpenSqlite(Path("t.db"), options);
    for (const std::string& statement : text::Split(script, ";")) {
        connection->Execute(statement);
    }
}

void TestApplication::AddSideTables() {
    namespace engines = store::engines;
    for (const std::string& statement : engines::StatementsOf(engines::Of("sqlite").sideTables)) {
        Sql(statement);
    }
}

std::string TestApplication::Query(const std::string& statement) {
    store::SqliteOptions options;
    options.translate = false;
    const auto connection = store::OpenSqlite(Path("t.db"), options);
    return connection->Open(statement, store::CursorType::ForwardOnly, store::LockType::ReadOnly)
        ->Field(0)
        .ToText();
}

std::string TestApplication::Rows(const std::string& query) {
    store::SqliteOptions options;
    options.translate = false;
    options.datesAsText = true;
    const auto connection = store::OpenSqlite(Path("t.db"), options);
    return doubles::RowsOf(*connection, query);
}

int TestApplication::Refresh(std::int32_t mode, std::int16_t modal) {
    try {
        control.refresh(mode, modal);
    } catch (const RuntimeError& error) {
        errorText = resources::DescribeError(error, session.state.Language);
        return static_cast<int>(error.Number());
    }
    return 0;
}

windows::frmTaskMain* TestApplication::Window() {
    return windows.Find<windows::frmTaskMain>(windows::frmTaskMain::kName);
}

std::string TestApplication::Nodes() {
    return user.Read(Window()->tree.tvwTask, "nodes", {}).value();
}

std::string TestApplication::NodeKeys() {
    const forms::TreeView& tree = Window()->tree.tvwTask;
    std::string keys;
    for (int node = tree.FirstRoot(); node != forms::TreeView::kNone;
         node = tree.NextInOrder(node)) {
        if (!keys.empty()) keys += ' ';
        keys += tree.Key(node);
    }
    return keys;
}

}  // namespace zv::test
