// The commands: what they make, what they refuse, what they say.
#include <algorithm>

#include "scratch.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

using ZvdbCreate = Scratch;
using ZvdbSample = Scratch;
using ZvdbUsage = Scratch;

/// Every row of every table, in the order of storing.
std::string Dump(const std::string& path) {
    Engine engine(path);
    std::string all;
    for (const char* table :
         {"tTaskSet", "tTaskList", "cards", "tRsBasic", "Employees", "rptListDetail", "tSysFunc"}) {
        Statement rows(engine, std::string("select * from ") + table + " order by rowid");
        while (rows.Step()) {
            for (int column = 0; column < rows.ColumnCount(); ++column) {
                all += (rows.IsNull(column) ? "NULL" : rows.Text(column)) + "|";
            }
            all += "\n";
        }
    }
    return all;
}

TEST_F(ZvdbCreate, MakesAnEmptyDatabaseThatPassesItsOwnCheck) {
    EXPECT_EQ(RunZvdb({"create", Path("a.db")}).status, 0);
    const Outcome check = RunZvdb({"check", Path("a.db")});
    EXPECT_EQ(check.status, 0) << check.out << check.err;
    EXPECT_NE(check.out.find("tTaskList              0\n"), std::string::npos) << check.out;
    EXPECT_NE(check.out.find("nothing wrong"), std::string::npos);
}

TEST_F(ZvdbCreate, RegistersTheModulesThatTheWindowsAskFor) {
    ASSERT_EQ(RunZvdb({"create", Path("a.db")}).status, 0);
    Engine engine(Path("a.db"));
    EXPECT_EQ(engine.Number("select count(*) from tSysFunc"), 4);
    for (const char* module : {"mnuCardLimited", "mnuCardPlan", "mnuToolTask", "mnuZjComp"}) {
        EXPECT_EQ(engine.Number(std::string("select count(*) from tSysFunc where model_Name='") +
                                module + "' and password='' and NoUse_=0"),
                  1)
            << module;
    }
    EXPECT_EQ(engine.Text("select Model_Name_0||Model_Name_1 from tSysFunc where SerialNo=31"),
              "任务管理任務管理");
    // Nobody's rights overlap: the operations of a module are its next positions.
    EXPECT_EQ(engine.Number("select min(abs(a.SerialNo-b.SerialNo)) from tSysFunc a,tSysFunc b "
                            "where a.rowid<>b.rowid"),
              10);
}

TEST_F(ZvdbCreate, LeavesNoOtherFileBehind) {
    RunZvdb({"create", Path("a.db")});
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
}

TEST_F(ZvdbCreate, NeverOverwritesAFileUnlessAskedTo) {
    Write("a.db", "mine");
    for (const char* command : {"create", "sample"}) {
        const Outcome refused = RunZvdb({command, Path("a.db")});
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("there already"), std::string::npos) << refused.err;
        EXPECT_EQ(Read("a.db"), "mine");
    }
    EXPECT_EQ(RunZvdb({"create", Path("a.db"), "--force"}).status, 0);
    EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
}

TEST_F(ZvdbCreate, DoesNotReplaceAFileThatAProgramHasOpen) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "20"}).status, 0);
    Engine program(Path("a.db"));
    ASSERT_EQ(program.Number("select count(*) from tTaskList"), 20);
    const Outcome refused = RunZvdb({"create", Path("a.db"), "--force"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_NE(refused.err.find("another program"), std::string::npos) << refused.err;
    EXPECT_EQ(program.Number("select count(*) from tTaskList"), 20);
}

TEST_F(ZvdbCreate, ReportsThatAFolderIsMissing) {
    const Outcome refused = RunZvdb({"create", Path("missing/a.db")});
    EXPECT_EQ(refused.status, 2);
    EXPECT_NE(refused.err.find("missing/a.db: its folder does not exist"), std::string::npos)
        << refused.err;
}

TEST_F(ZvdbCreate, RefusesAFolder) {
    std::filesystem::create_directory(File("folder"));
    EXPECT_EQ(RunZvdb({"create", Path("folder"), "--force"}).status, 2);
    EXPECT_TRUE(std::filesystem::is_directory(File("folder")));
}

TEST_F(ZvdbSample, GivesTheNumbersAskedFor) {
    const Outcome made =
        RunZvdb({"sample", Path("a.db"), "--items", "1000", "--cards", "33", "--plans", "21"});
    EXPECT_EQ(made.status, 0) << made.err;
    Engine engine(Path("a.db"));
    EXPECT_EQ(engine.Number("select count(*) from tTaskList"), 1000);
    EXPECT_EQ(engine.Number("select count(*) from cards"), 33);
    EXPECT_EQ(engine.Number("select count(*) from tTaskSet"), 21);
    EXPECT_NE(made.out.find("tTaskList           1000\n"), std::string::npos) << made.out;
}

TEST_F(ZvdbSample, PassesTheCheckWhateverTheNumbers) {
    const std::vector<std::vector<std::string>> cases = {
        {},
        {"--items", "0", "--cards", "0", "--plans", "0"},
        {"--items", "3"},
        {"--items", "500", "--cards", "0"},
        {"--items", "5000", "--plans", "400", "--today", "2004-02-29"},
        {"--items", "300", "--plans", "1", "--today", "1999-12-31", "--seed", "99"},
    };
    for (const auto& options : cases) {
        std::vector<std::string> arguments = {"sample", Path("a.db"), "--force"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        ASSERT_EQ(RunZvdb(arguments).status, 0);
        const Outcome check = RunZvdb({"check", Path("a.db")});
        EXPECT_EQ(check.status, 0) << check.out;
    }
}

TEST_F(ZvdbSample, IsTheSameForTheSameSeedAndDay) {
    RunZvdb({"sample", Path("a.db")});
    RunZvdb({"sample", Path("b.db"), "--today", "2003-03-07"});
    RunZvdb({"sample", Path("c.db"), "--seed", "8"});
    RunZvdb({"sample", Path("d.db"), "--today", "2003-03-08"});
    const std::string a = Dump(Path("a.db"));
    EXPECT_EQ(a, Dump(Path("b.db")));
    EXPECT_NE(a, Dump(Path("c.db")));
    EXPECT_NE(a, Dump(Path("d.db")));
}

/// The same on every machine (FNV-1a).
std::uint64_t SumOf(const std::string& text) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return sum;
}

// What was once written down of a sample is still so in another version, with another compiler.
// Whoever changes the words or the rules of samples changes these sums.
TEST_F(ZvdbSample, IsTheSameOnEveryMachine) {
    struct Case {
        std::vector<std::string> options;
        std::uint64_t sum;
    };
    for (const Case& each : std::vector<Case>{
             {{}, 0xA92C718DF8F2AFE9},
             {{"--script", "simplified", "--items", "700", "--today", "2004-02-29"},
              0x5802F26273FBE4C},
             {{"--script", "traditional", "--plans", "70", "--cards", "150", "--seed", "9"},
              0x41CA17E5D50EA7EE}}) {
        std::vector<std::string> arguments = {"sample", Path("a.db"), "--force"};
        arguments.insert(arguments.end(), each.options.begin(), each.options.end());
        ASSERT_EQ(RunZvdb(arguments).status, 0);
        EXPECT_EQ(SumOf(Dump(Path("a.db"))), each.sum) << each.options.size();
    }
}

TEST_F(ZvdbSample, IsWrittenInTheScriptAskedFor) {
    // Of each script some characters that the other one does not write.
    const std::vector<std::string> simplified = {"务", "销", "报", "检", "会", "电", "紧", "号",
                                                 "张", "刘", "陈", "东", "华", "国", "贸", "业"};
    const std::vector<std::string> traditional = {"務", "銷", "報", "檢", "會", "電", "緊", "號",
                                                  "張", "劉", "陳", "東", "華", "國", "貿", "業"};
    const auto written = [&](const std::vector<std::string>& script) {
        std::vector<std::string> arguments = {"sample",  Path("a.db"), "--items", "2000",
                                              "--plans", "40",         "--force"};
        arguments.insert(arguments.end(), script.begin(), script.end());
        EXPECT_EQ(RunZvdb(arguments).status, 0);
        EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
        Engine engine(Path("a.db"));
        return engine.Text(
                   "select group_concat(taskTitle||ifnull(fContent,'')||ifnull(fWay,'')||"
                   "ifnull(fOther0,'')||ifnull(fOther1,'')) from tTaskList") +
               engine.Text("select group_concat(taskTitle||Content||SetMan) from tTaskSet") +
               engine.Text("select group_concat(CompName||Name||CompAdd||cityname) from cards") +
               engine.Text("select group_concat(fName) from tRsBasic");
    };
    const auto holds = [](const std::string& text, const std::vector<std::string>& characters) {
        return std::ranges::count_if(characters, [&](const std::string& character) {
            return text.find(character) != std::string::npos;
        });
    };
    const std::string both = written({});
    EXPECT_GT(holds(both, simplified), 8);
    EXPECT_GT(holds(both, traditional), 8);
    const std::string one = written({"--script", "simplified"});
    EXPECT_GT(holds(one, simplified), 8);
    EXPECT_EQ(holds(one, traditional), 0);
    const std::string other = written({"--script", "traditional"});
    EXPECT_EQ(holds(other, simplified), 0);
    EXPECT_GT(holds(other, traditional), 8);
}

TEST_F(ZvdbSample, KeepsTheStaffWhenOtherNumbersChange) {
    RunZvdb({"sample", Path("a.db")});
    RunZvdb({"sample", Path("b.db"), "--items", "50", "--cards", "10"});
    const std::string staff = "select group_concat(fCode||fName) from tRsBasic";
    EXPECT_EQ(Engine(Path("a.db")).Text(staff), Engine(Path("b.db")).Text(staff));
}

TEST_F(ZvdbSample, SaysNothingOnAShortRun) {
    EXPECT_EQ(RunZvdb({"sample", Path("a.db")}, true).err, "");
}

TEST_F(ZvdbUsage, HelpNamesEveryCommandAndOption) {
    for (const char* way : {"--help", "-h"}) {
        const Outcome help = RunZvdb({way});
        EXPECT_EQ(help.status, 0);
        for (const char* word :
             {"create", "sample", "check", "upgrade", "--items", "--cards", "--plans", "--today",
              "--seed", "--script", "--force", "--side-tables", "--dry-run", "--quiet"}) {
            EXPECT_NE(help.out.find(word), std::string::npos) << word;
        }
    }
}

// The versions meant are those of the project and of its table of dependencies.
TEST_F(ZvdbUsage, ReportsItsVersionAndThoseOfTheLibrariesInside) {
    const Outcome version = RunZvdb({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.err, "");
    EXPECT_TRUE(version.out.starts_with("zvdb " ZV_VERSION_MEANT "\nSQLite " ZV_SQLITE_MEANT
                                        "\nGCC runtime " ZV_COMPILER_MEANT "\n"))
        << version.out;
    EXPECT_TRUE(version.out.ends_with('\n')) << version.out;
    EXPECT_NE(RunZvdb({"--help"}).out.find("zvdb --version"), std::string::npos);
}

TEST_F(ZvdbUsage, WrongArgumentsAreReportedAndMakeNothing) {
    const std::vector<std::vector<std::string>> cases = {
        {},
        {"make", Path("a.db")},
        {"--version", "check"},
        {"create"},
        {"create", Path("a.db"), Path("b.db")},
        {"create", Path("a.db"), "--items", "5"},
        {"check", Path("a.db"), "--force"},
        {"upgrade"},
        {"upgrade", Path("a.db"), Path("b.db")},
        {"upgrade", Path("a.db"), "--side-tables"},
        {"sample", Path("a.db"), "--items"},
        {"sample", Path("a.db"), "--items", "many"},
        {"sample", Path("a.db"), "--items", "12x"},
        {"sample", Path("a.db"), "--items", "-1"},
        {"sample", Path("a.db"), "--items", "99999999999"},
        {"sample", Path("a.db"), "--plans", "32001"},
        {"sample", Path("a.db"), "--today", "2003-02-29"},
        {"sample", Path("a.db"), "--today", "7.3.2003"},
        {"sample", Path("a.db"), "--seed", ""},
        {"sample", Path("a.db"), "--script", "latin"},
    };
    for (const auto& arguments : cases) {
        const Outcome refused = RunZvdb(arguments);
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("--help"), std::string::npos) << refused.err;
    }
    EXPECT_TRUE(Files().empty());
}

}  // namespace
}  // namespace zv::zvdb
