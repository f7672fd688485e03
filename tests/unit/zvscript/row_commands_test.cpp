#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "base/path.h"
#include "runner.h"
#include "script_engine.h"
#include "temporary_folder.h"

namespace zv::script {
namespace {

struct RowCommand {
    std::string name;
    std::string table;
};

class RowCommandsTest : public ::testing::TestWithParam<RowCommand> {
 protected:
    std::vector<std::string> Columns(const std::string& table) {
        const auto engine = MakeScriptEngine("embedded");
        const std::string path = Utf8Of(folder / "columns.db");
        engine->Create(path);
        const auto connection = engine->OpenForHost(path);
        const auto rows = connection->Open("select * from " + table, store::CursorType::ForwardOnly,
                                           store::LockType::ReadOnly);
        std::vector<std::string> columns;
        for (int i = 0; i < rows->FieldCount(); i++) columns.push_back(rows->FieldName(i));
        rows->Close();
        return columns;
    }

    /// What the runner reports of the scenario.
    std::string Play(const std::string& lines) {
        const auto path = folder / "a.zvs";
        std::ofstream(path, std::ios::binary) << lines;
        std::vector<std::string> reports;
        Runner({}, [&](const std::string& line) { reports.push_back(line); }).Run({Utf8Of(path)});
        return reports.front();
    }

    test::TemporaryFolder folder;
};

TEST_P(RowCommandsTest, TakesEveryColumnOfItsTable) {
    const std::vector<std::string> columns = Columns(GetParam().table);
    ASSERT_FALSE(columns.empty());
    std::string row = GetParam().name;
    for (const std::string& column : columns) row += ' ' + column + '=';
    EXPECT_EQ(Play("database t.db\n" + row + '\n'), "ok " + Utf8Of(folder / "a.zvs"));
}

INSTANTIATE_TEST_SUITE_P(All, RowCommandsTest,
                         ::testing::Values(RowCommand{"item", "tTaskList"},
                                           RowCommand{"plan", "tTaskSet"},
                                           RowCommand{"card", "cards"},
                                           RowCommand{"staff", "tRsBasic"}),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace zv::script
