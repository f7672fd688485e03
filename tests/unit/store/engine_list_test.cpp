// Engines are distinguished by what they are called and by what their files begin with.
#include <gtest/gtest.h>

#include <string>

#include "base/errors.h"
#include "base/text.h"
#include "store/engines/engines.h"

namespace zv::store::engines {
namespace {

TEST(EngineList, AProductIsThatOfOneEngine) {
    EXPECT_EQ(OfProduct("SQLite").folder, "sqlite");
    EXPECT_EQ(OfProduct("PostgreSQL").folder, "postgresql");
    EXPECT_EQ(OfProduct("Microsoft SQL Server").folder, "sqlserver");
    for (const std::string product : {"sqlite", "postgresql", "microsoft sql server"}) {
        int found = 0;
        for (const Engine& engine : All()) found += engine.facts->IsProduct(product) ? 1 : 0;
        EXPECT_EQ(found, 1) << product;
    }
}
TEST(EngineList, AnUnknownProductIsTakenForAPlainServer) {
    const Engine& engine = OfProduct("Oracle");
    EXPECT_EQ(engine.folder, "");
    EXPECT_EQ(engine.driverDialect, nullptr);
    EXPECT_EQ(engine.facts->EqualsExactly("a"), "a=?");
    EXPECT_EQ(engine.facts->StoredName("fID"), "fID");
}
TEST(EngineList, AScriptFallsIntoItsStatementsWithoutComments) {
    EXPECT_EQ(StatementsOf("-- two; of them\n\ncreate table a (\n  b int -- first; of all\n);\n"
                           "drop table a;\n\n-- end\n"),
              (std::vector<std::string>{"create table a (\n  b int \n)", "drop table a"}));
    EXPECT_TRUE(StatementsOf("").empty());
}
TEST(EngineList, AFileIsRecognisedByItsFirstBytes) {
    using namespace std::string_literals;
    EXPECT_EQ(OfFile("SQLite format 3\0\x10\0"s)->folder, "sqlite");
    EXPECT_EQ(OfFile("\0\1\0\0Standard Jet DB\0"s)->folder, "access");
    EXPECT_EQ(OfFile("\0\1\0\0Standard ACE DB\0"s)->folder, "access");
    EXPECT_EQ(OfFile("SQLite format 2\0"s), nullptr);
    EXPECT_EQ(OfFile(""), nullptr);
    EXPECT_EQ(OfFile("\0\1"s), nullptr);
}
TEST(EngineList, AnAddressIsThatOfItsSchemeOrNeedsNone) {
    EXPECT_EQ(OfAddress(" PostgreSQL:db").folder, "postgresql");
    EXPECT_EQ(OfAddress("db\\instance").folder, "sqlserver");
}
TEST(EngineList, ADriverIsThatOfItsEngine) {
    EXPECT_EQ(OfDriver("PostgreSQL Unicode")->folder, "postgresql");
    EXPECT_EQ(OfDriver("ODBC Driver 18 for SQL Server")->folder, "sqlserver");
    EXPECT_EQ(OfDriver("SQLite3")->folder, "sqlite");
    EXPECT_EQ(OfDriver("FreeTDS"), nullptr);
}
TEST(EngineList, EveryEngineHasATableOfItems) {
    for (const Engine& engine : All()) {
        EXPECT_TRUE(text::Contains(text::ToLower(engine.schema), "create table ") &&
                    text::Contains(engine.schema, "tTaskList"))
            << engine.folder;
        EXPECT_EQ(&Of(engine.folder), &engine);
        EXPECT_EQ(engine.dialect == nullptr, engine.driverDialect == nullptr) << engine.folder;
    }
}
/// Without quotes and blanks, in lower case.
std::string Plain(std::string_view sql) {
    std::string plain;
    for (const char c : text::ToLower(sql)) {
        if (std::string_view(" \n[]\"").find(c) == std::string_view::npos) plain += c;
    }
    return plain;
}
TEST(EngineList, EveryEngineHasTheSameSideTables) {
    for (const Engine& engine : All()) {
        const std::string script = Plain(engine.sideTables);
        for (const char* part :
             {"createtablezvmeta(fname", "createtablezvreminder(fid", "createtablezvhistory(fid",
              "createuniqueindexzvreminder_itemonzvreminder(fuser,fplan,fitem,fdate);",
              "createindexzvhistory_rowonzvhistory(ftable,frow,fid);",
              "createindexzvhistory_whenonzvhistory(fwhen);",
              "createindexttasklist_dueonttasklist(tdone,tduring1)",
              "insertintozvmeta(fname,fvalue)values('version','1');"}) {
            EXPECT_TRUE(text::Contains(script, part)) << engine.folder << ": " << part;
        }
        EXPECT_FALSE(text::Contains(text::ToLower(engine.schema), "zvmeta")) << engine.folder;
    }
}
TEST(EngineList, AFolderThatIsNotInItIsAnInternalError) {
    EXPECT_THROW(Of("oracle"), RuntimeError);
}

}  // namespace
}  // namespace zv::store::engines
