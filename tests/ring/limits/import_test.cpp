// Values at the limits that come in with a file: kept as they are, or refused by name with nothing
// written.
#include <sstream>

#include "base/path.h"
#include "base/text.h"
#include "doubles/rows_of.h"
#include "items/fields.h"
#include "place.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"
#include "temporary_folder.h"
#include "test_server/scratch_schema.h"
#include "values.h"
#include "zvdb/tool.h"

namespace zv::ring {
namespace {

const DateTime kToday(2003, 3, 7);
constexpr int kRefused = 2;

/// What is no UTF-8, as other programs leave it in files.
const std::vector<std::string>& BrokenTexts() {
    static const std::vector<std::string> texts = {"\xFF",
                                                   "a\xC3",
                                                   "\xC3(",
                                                   "\x80",
                                                   "\xC0\x80",
                                                   "\xE0\x80\xAF",
                                                   "\xED\xA0\x80",
                                                   "\xED\xB8\x80",
                                                   "\xED\xA0\xBD\xED\xB8\x80",
                                                   "\xF0\x80\x80\x80",
                                                   "\xF4\x90\x80\x80",
                                                   "\xF8\x88\x80\x80\x80",
                                                   "\xE4\xBC"};
    return texts;
}

/// Why a server refuses what a file keeps: it keeps to the sizes and kinds of the columns.
bool IsNamed(const std::string& said) {
    for (const char* reason : {"texts longer than the column", "texts with a zero character",
                               "texts with broken characters", "numbers too large for the column",
                               "values that are no whole numbers", "values that are no dates",
                               "dates that the target cannot hold"}) {
        if (said.find(reason) != std::string::npos) return true;
    }
    return false;
}

class ImportLimits : public testing::Test {
 protected:
    struct Run {
        int status = 0;
        std::string said;
        std::string rows;
    };

    void SetUp() override {
        source_ = Utf8Of(folder_ / "a.db");
        store::CreateSqliteDatabase(source_);
        OpenSource()->Execute(
            "insert into tTaskList(fID,TaskID,taskTitle,taskTime,tDone) values"
            "(1,0,'a','2003-03-07 00:00:00',0),(2,0,'b','2003-03-07 00:00:00',0)");
        if (!test_server::Address().empty()) {
            schema_.emplace(test_server::Address(), "zv_limits");
            schema_->CreateTables();
        }
    }
    std::unique_ptr<store::Connection> OpenSource() const {
        return store::OpenSqlite(source_, {.translate = false, .datesAsText = true});
    }

    void Set(const std::string& column, const store::Value& value) {
        const auto connection = store::OpenSqlite(source_);
        const auto row = connection->Open("select * from tTaskList where fID=1",
                                          store::CursorType::Keyset, store::LockType::Optimistic);
        row->SetField(column, value);
        row->Update();
        row->Close();
    }
    /// Imports what is in the file by both ways and looks at what came over.
    void Expect(const std::string& name) {
        SCOPED_TRACE(name);
        cells_++;
        const std::string meant = RowsOf(*OpenSource());
        const std::string target = Utf8Of(folder_ / "b.db");
        std::filesystem::remove(PathOf(target));
        const Run file = Import(target);
        if (file.status == kRefused) {
            EXPECT_TRUE(IsNamed(file.said)) << file.said;
            EXPECT_FALSE(std::filesystem::exists(PathOf(target)));
        } else {
            EXPECT_EQ(RowsOf(*store::OpenSqlite(target, {.translate = false, .datesAsText = true})),
                      meant);
        }
        if (!schema_) return;
        const std::string before = ServerRows();
        const Run server = Import(schema_->Address(), {"--replace"});
        if (server.status == kRefused) {
            EXPECT_TRUE(IsNamed(server.said)) << server.said;
            EXPECT_EQ(ServerRows(), before);
        } else {
            EXPECT_EQ(ServerRows(), meant);
            EXPECT_EQ(file.status, server.status) << file.said << server.said;
        }
    }
    void TearDown() override {
        if (schema_) schema_->Drop();
        RecordProperty("cells", cells_);
        std::cout << "CELLS " << cells_ << '\n';
    }

 private:
    static constexpr const char* kColumns =
        "fID,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,tDoneMan,fUser,fType,fWay,"
        "fGuest,fOther0,fOther5";

    static std::string RowsOf(store::Connection& connection) {
        return doubles::RowsOf(connection,
                               std::string("select ") + kColumns + " from tTaskList order by fID");
    }
    std::string ServerRows() const { return RowsOf(*test_server::ConnectRaw(schema_->Address())); }

    Run Import(const std::string& target, const std::vector<std::string>& options = {}) const {
        std::ostringstream said;
        std::vector<std::string> arguments{"import", source_, target, "--quiet"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        Run run;
        run.status = zvdb::RunTool(arguments, kToday, {said, said});
        run.said = said.str();
        return run;
    }

    test::TemporaryFolder folder_;
    std::string source_;
    std::optional<test_server::ScratchSchema> schema_;
    int cells_ = 0;
};

TEST_F(ImportLimits, Texts) {
    const auto limit = static_cast<std::size_t>(items::kFields[items::field::kTitle].length);
    for (const TextValue& value : TextValues(limit)) {
        Set("taskTitle", value.Text());
        Expect("taskTitle " + value.name);
    }
    for (const std::string& text : BrokenTexts()) {
        Set("taskTitle", text);
        Expect("taskTitle " + Shown(text));
    }
}
TEST_F(ImportLimits, Numbers) {
    for (const char* column : {"TaskID", "tDone"}) {
        for (const std::int64_t number : WholeNumbers()) {
            Set(column, number);
            Expect(std::string(column) + " " + std::to_string(number));
        }
        for (const char* text : {"1.5", "1e400", "x", "", "-0.0", "9223372036854775808"}) {
            OpenSource()->Execute(std::string("update tTaskList set ") + column + "='" + text +
                                  "' where fID=1");
            Expect(std::string(column) + " " + text);
        }
        Set(column, 0);
    }
}
TEST_F(ImportLimits, Dates) {
    std::vector<std::string> texts = DateTexts();
    for (const DateTime& day : Dates()) texts.push_back(day.IsoDateTime());
    for (const std::string& text : texts) {
        OpenSource()->Execute("update tTaskList set taskTime='" + text + "' where fID=1");
        Expect("taskTime " + text);
    }
}

}  // namespace
}  // namespace zv::ring
