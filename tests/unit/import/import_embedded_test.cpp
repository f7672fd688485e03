// From an embedded file into another: what comes over, what is refused, what stays as it was.
#include <algorithm>

#include "scratch.h"
#include "store/sqlite/journal_mode.h"
#include "zvdb/engine.h"
#include "zvdb/import/system_tables.h"

namespace zv::zvdb {
namespace {

class ImportEmbedded : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "300"}).status, 0);
    }
    Outcome Import(const std::vector<std::string>& options = {}) {
        std::vector<std::string> arguments = {"import", Path("a.db"), Path("b.db")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunZvdb(arguments);
    }
    void Change(const std::string& sql, const std::string& file = "a.db") {
        Engine(Path(file)).Run(sql);
    }
    /// All rows of all tables, in the order of storing, with the types of their values.
    std::string Dump(const std::string& file) {
        Engine engine(Path(file));
        std::string all;
        for (const TableRule& table : SystemTables()) {
            Statement rows(engine, "select * from " + table.name + " order by rowid");
            while (rows.Step()) {
                for (int i = 0; i < rows.ColumnCount(); ++i) {
                    all +=
                        std::to_string(sqlite3_column_type(rows.Handle(), i)) + rows.Text(i) + "|";
                }
                all += "\n";
            }
        }
        return all;
    }
    /// Leaves the rows as they are and fills an index with something else: it is made for a moment
    /// of `wrong` in place of `right`.
    void DamageIndex(const std::string& file, const std::string& index, const std::string& right,
                     const std::string& wrong) {
        Engine engine(Path(file));
        const std::string as = " from sqlite_schema where name='" + index + "'";
        const std::string made = engine.Text("select sql" + as);
        sqlite3_db_config(engine.Handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
        engine.Run("pragma writable_schema=on");
        engine.Run("update sqlite_schema set sql=replace(sql,'" + right + "','" + wrong +
                   "') where name='" + index + "'; pragma writable_schema=reset");
        engine.Run("pragma writable_schema=on; reindex " + index);
        Statement back(engine, "update sqlite_schema set sql=? where name=?");
        back.Bind(made).Bind(index).Run();
        engine.Run("pragma writable_schema=reset");
    }
    std::vector<std::string> SortedFiles() {
        auto files = Files();
        std::sort(files.begin(), files.end());
        return files;
    }
    void ExpectRefused(const Outcome& outcome, const std::string& reason) {
        EXPECT_EQ(outcome.status, 2) << outcome.out;
        EXPECT_NE((outcome.out + outcome.err).find(reason), std::string::npos)
            << outcome.out << outcome.err;
    }
};

TEST_F(ImportEmbedded, EverythingComesOverAndTheFileIsWhole) {
    const Outcome import = Import();
    EXPECT_EQ(import.status, 0) << import.out << import.err;
    EXPECT_EQ(Dump("b.db"), Dump("a.db"));
    const Outcome check = RunZvdb({"check", Path("b.db")});
    EXPECT_EQ(check.status, 0) << check.out;
    Engine engine(Path("b.db"));
    EXPECT_EQ(
        engine.Number("select count(*) from sqlite_master where type='index' and sql is not null"),
        Engine(Path("a.db"))
            .Number("select count(*) from sqlite_master where type='index' and sql is not null"));
    EXPECT_EQ(engine.Text("pragma journal_mode"), "wal");
}

TEST_F(ImportEmbedded, TheSourceKeepsItsBytesAndNoNeighboursStay) {
    const std::string before = Read("a.db");
    ASSERT_EQ(Import().status, 0);
    EXPECT_TRUE(Read("a.db") == before);
    EXPECT_EQ(SortedFiles(), (std::vector<std::string>{"a.db", "b.db"}));
}

TEST_F(ImportEmbedded, RowsThatAreOnlyInTheLogComeOverAndTheLogStays) {
    // As a program leaves it that ended without closing: another one holds the log in place.
    Engine reader(Path("a.db"));
    reader.Run("begin; select count(*) from tTaskList");
    Change("update tTaskList set taskTitle='only in the log' where fID=1");
    std::filesystem::create_directory(File("crashed"));
    for (const char* name : {"a.db", "a.db-wal"}) {
        std::filesystem::copy_file(File(name), File("crashed") / name);
    }
    const std::string file = Read("crashed/a.db");
    const std::string log = Read("crashed/a.db-wal");
    const Outcome import = RunZvdb({"import", Path("crashed/a.db"), Path("b.db")});
    EXPECT_EQ(import.status, 0) << import.err;
    EXPECT_TRUE(Read("crashed/a.db") == file);
    EXPECT_TRUE(Read("crashed/a.db-wal") == log);
    EXPECT_EQ(Engine(Path("b.db"))
                  .Number("select count(*) from tTaskList where taskTitle='only in the log'"),
              1);
}

TEST_F(ImportEmbedded, AFileInRollBackModeComesOverAndKeepsItsMode) {
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    const std::string bytes = Read("a.db");
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{}, std::vector<std::string>{"--replace"}}) {
        const Outcome import = Import(options);
        EXPECT_EQ(import.status, 0) << import.out << import.err;
        EXPECT_EQ(Dump("b.db"), Dump("a.db"));
    }
    EXPECT_TRUE(Read("a.db") == bytes);
}
TEST_F(ImportEmbedded, UnusualValuesComeOverAsTheyAre) {
    Change(
        "update tTaskList set taskTime='never',tDone=1.5,taskTitle=x'61' || char(0) || 'b',"
        "fOther0=printf('%400c','x'),tDuring1=2003 where fID=3");
    const Outcome import = Import();
    EXPECT_EQ(import.status, 3) << import.out << import.err;
    EXPECT_EQ(Dump("b.db"), Dump("a.db"));
}

TEST_F(ImportEmbedded, TheStatusShowsWhatTheCheckFindsWhereverTheRowsGo) {
    struct Case {
        const char* change;
        int status;
    };
    for (const Case& given :
         {Case{"select 1", 0},
          {"create table mine(a); insert into mine values(1)", 1},
          {"update tTaskList set fOther0=printf('%400c','x') where fID=3", 0},
          {"update tTaskList set taskTitle='' where fID=3", 3},
          {"update tTaskList set taskTitle='' where fID=3; create table other(a)", 3},
          {"update tTaskList set taskTime='never' where fID=4", 3},
          {"update tTaskList set fType=8 where fID=5", 3},
          {"update tTaskList set tDuring1='2003-01-02',tDuring2='2003-01-01' where fID=6", 3},
          {"update tTaskSet set CircleType=9", 3},
          {"delete from tTaskSet", 3},
          {"delete from cards", 3},
          {"update tRsBasic set fName=''", 3},
          {"update tSysFunc set SerialNo=900", 3}}) {
        SCOPED_TRACE(given.change);
        std::filesystem::remove(File("b.db"));
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "300", "--force"}).status, 0);
        ASSERT_EQ(RunZvdb({"sample", Path("c.db"), "--items", "20", "--force"}).status, 0);
        ASSERT_EQ(RunZvdb({"create", Path("d.db"), "--force"}).status, 0);
        Change(given.change);
        for (const char* target : {"b.db", "c.db", "d.db"}) {
            const Outcome import = RunZvdb({"import", Path("a.db"), Path(target), "--replace"});
            EXPECT_EQ(import.status, given.status) << import.out << import.err;
            ExpectStatusShowsCheck(import, RunZvdb({"check", Path(target)}));
        }
    }
}

// The rows are there by then, so it cannot be reported as an import that was not made.
TEST_F(ImportEmbedded, ACheckThatCannotBeMadeIsNoFaultlessImport) {
    int opened = 0;
    const store::sqlite::ScriptedShares shares([&](const std::string& path) {
        // First it is looked at where it was put, then it is checked.
        return path == Path("b.db") && ++opened > 1;
    });
    const Outcome import = Import();
    EXPECT_EQ(import.status, 3) << import.out << import.err;
    EXPECT_NE(import.out.find("wrong: the check could not be made: "), std::string::npos)
        << import.out;
    EXPECT_NE(import.out.find("rows imported, counts and sums are equal"), std::string::npos);
}

TEST_F(ImportEmbedded, ALogThatIsSetAsideIsNoFaultOfTheRows) {
    Write("b.db-wal", "rows of a file that is gone");
    const Outcome import = Import();
    EXPECT_EQ(import.status, 1) << import.out << import.err;
    ExpectStatusShowsCheck(import, RunZvdb({"check", Path("b.db")}));
}

// An index that leads to other rows: looking for damage in the tables alone does not see it.
TEST_F(ImportEmbedded, ADamagedIndexIsRefused) {
    DamageIndex("a.db", "tTaskList_window", "tDone", "fID");
    ASSERT_EQ(Engine(Path("a.db")).Text("pragma quick_check"), "ok");
    ExpectRefused(Import(), "the file is damaged: ");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
}

TEST_F(ImportEmbedded, ATargetWithADamagedIndexIsNotFilled) {
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "40"}).status, 0);
    Change("create table mine(x); create index mine_x on mine(x); insert into mine values(1),(2)",
           "b.db");
    DamageIndex("b.db", "mine_x", "(x)", "(x+1)");
    const std::string before = Dump("b.db");
    ExpectRefused(Import({"--replace"}), "damaged file: ");
    EXPECT_EQ(Dump("b.db"), before);
}

TEST_F(ImportEmbedded, ATargetWithRowsIsRefusedUnlessAskedFor) {
    ASSERT_EQ(Import().status, 0);
    Change("update tTaskList set taskTitle='mine'", "b.db");
    const std::string before = Dump("b.db");
    ExpectRefused(Import(), "it is not empty (tTaskSet has 16 rows); --replace");
    EXPECT_EQ(Dump("b.db"), before);
    EXPECT_EQ(Import({"--replace"}).status, 0);
    EXPECT_EQ(Dump("b.db"), Dump("a.db"));
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportEmbedded, ADatabaseThatWasOnlyCreatedCountsAsEmpty) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    const Outcome import = Import();
    EXPECT_EQ(import.status, 0) << import.out << import.err;
    EXPECT_EQ(Dump("b.db"), Dump("a.db"));
}

TEST_F(ImportEmbedded, ASourceWithoutModulesLeavesThoseOfANewDatabase) {
    Change("delete from tSysFunc");
    for (const char* made : {"b.db", ""}) {
        if (*made != '\0') {
            ASSERT_EQ(RunZvdb({"create", Path(made)}).status, 0);
        }
        const Outcome import = Import();
        EXPECT_EQ(import.status, 0) << import.out << import.err;
        EXPECT_EQ(Engine(Path("b.db")).Number("select count(*) from tSysFunc where password=''"), 4)
            << made;
        std::filesystem::remove(File("b.db"));
    }
}

TEST_F(ImportEmbedded, ModulesOfTheHostAreNotTakenForThoseOfANewDatabase) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    Change("update tSysFunc set password='secret' where model_Name='mnuToolTask'", "b.db");
    ExpectRefused(Import(), "it is not empty (tSysFunc has 1 rows); --replace");
    EXPECT_EQ(Engine(Path("b.db")).Number("select count(*) from tSysFunc"), 4);
}

TEST_F(ImportEmbedded, AnEmptyTargetIsFilledAndKeepsWhatElseItHolds) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    Change("create table mine(x); insert into mine values(1)", "b.db");
    EXPECT_EQ(Import().status, 0);
    EXPECT_EQ(Dump("b.db"), Dump("a.db"));
    EXPECT_EQ(Engine(Path("b.db")).Number("select x from mine"), 1);
}

TEST_F(ImportEmbedded, ReplacingCountsOnBehindTheNewRows) {
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "900"}).status, 0);
    ASSERT_EQ(Import({"--replace"}).status, 0);
    Change("insert into tTaskList(taskTitle) values('next')", "b.db");
    EXPECT_EQ(Engine(Path("b.db")).Number("select max(fID) from tTaskList"), 301);
}

TEST_F(ImportEmbedded, ADryRunWritesNothingAndSaysTheSame) {
    Change("create table extra(x)");
    const Outcome dry = Import({"--dry-run"});
    EXPECT_EQ(dry.status, 1);
    EXPECT_NE(dry.out.find("rows would be imported"), std::string::npos) << dry.out;
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    const std::string empty = Read("b.db");
    EXPECT_EQ(Import({"--dry-run"}).status, 1);
    EXPECT_TRUE(Read("b.db") == empty);
}

TEST_F(ImportEmbedded, TablesAndColumnsThatAreNotOursAreNamed) {
    Change(
        "create table extra(x); insert into extra values(1),(2);"
        "alter table cards add column fax2; update cards set fax2='1'");
    const Outcome import = Import();
    EXPECT_EQ(import.status, 1);
    EXPECT_NE(import.out.find("remark: table extra (2 rows) is not one of the system and is not "
                              "copied"),
              std::string::npos)
        << import.out;
    EXPECT_NE(import.out.find("remark: column cards.fax2 is not one of the system"),
              std::string::npos);
    EXPECT_EQ(Dump("b.db").empty(), false);
}

TEST_F(ImportEmbedded, MissingTablesAndColumnsAreNamed) {
    Change("drop table Employees; alter table cards drop column fax");
    const Outcome import = Import();
    EXPECT_EQ(import.status, 1);
    EXPECT_NE(import.out.find("remark: table Employees is missing at the source"),
              std::string::npos)
        << import.out;
    EXPECT_NE(import.out.find("remark: column cards.fax is missing at the source"),
              std::string::npos);
    EXPECT_EQ(Engine(Path("b.db")).Number("select count(*) from cards where fax is null"),
              Engine(Path("a.db")).Number("select count(*) from cards"));
}

TEST_F(ImportEmbedded, AMissingKeyIsRefused) {
    Change(
        "create table c as select CompCode,CompName from cards; drop table cards; "
        "alter table c rename to cards");
    ExpectRefused(Import(), "refused: column cards.fID is missing at the source");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
}

TEST_F(ImportEmbedded, KeysThatOccurTwiceAreNamed) {
    Change(
        "create table c as select * from cards; drop table cards; "
        "alter table c rename to cards; update cards set fID=7 where fID in (9,11);"
        "update cards set fID=null where fID=20");
    const Outcome import = Import();
    ExpectRefused(import,
                  "refused: cards.fID: keys that more than one row has: fID 7, fID 7 (2 in all)");
    ExpectRefused(import, "refused: cards.fID: rows without a key: row 20");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
}

TEST_F(ImportEmbedded, ARefusalLeavesATargetThatIsThereAsItWas) {
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "50"}).status, 0);
    const std::string before = Dump("b.db");
    // The last table, when all others are written.
    Change("update tSysFunc set password=x'00ff' where SerialNo=1");
    ExpectRefused(Import({"--replace"}), "tSysFunc.password: binary values are not copied");
    EXPECT_EQ(Dump("b.db"), before);
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportEmbedded, NothingOfTheSystemIsRefused) {
    Engine engine(Path("c.db"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    engine.Run("create table mine(x)");
    ExpectRefused(RunZvdb({"import", Path("c.db"), Path("b.db")}),
                  "it has none of the tables of the system");
    ExpectRefused(RunZvdb({"import", Path("a.db"), Path("c.db")}), "table tTaskSet is missing");
}

TEST_F(ImportEmbedded, SourceAndTargetMustDiffer) {
    ExpectRefused(RunZvdb({"import", Path("a.db"), Path("a.db"), "--replace"}),
                  "source and target are the same");
    std::filesystem::create_hard_link(File("a.db"), File("link.db"));
    ExpectRefused(RunZvdb({"import", Path("a.db"), Path("link.db"), "--replace"}),
                  "source and target are the same");
}

TEST_F(ImportEmbedded, BadSourcesAreNamed) {
    Write("text.db", "hello");
    Write("none.mdb", "hello");
    Write("empty.db", "");
    std::filesystem::create_directory(File("folder.db"));
    const std::string to = Path("b.db");
    ExpectRefused(RunZvdb({"import", Path("missing.db"), to}), "missing.db: there is no such file");
    ExpectRefused(RunZvdb({"import", Path("text.db"), to}),
                  "neither an Access file nor an embedded");
    ExpectRefused(RunZvdb({"import", Path("none.mdb"), to}), "this is not an Access file");
    ExpectRefused(RunZvdb({"import", Path("empty.db"), to}), "the file is empty");
    ExpectRefused(RunZvdb({"import", Path("folder.db"), to}), "this is a folder");
    EXPECT_FALSE(std::filesystem::exists(File("b.db")));
}

TEST_F(ImportEmbedded, ASourceThatIsCutShortOrDamagedIsRefused) {
    const std::string whole = Read("a.db");
    Write("short.db", whole.substr(0, whole.size() / 2));
    ExpectRefused(RunZvdb({"import", Path("short.db"), Path("b.db")}), "cut short");
    std::string torn = whole;
    std::fill_n(torn.begin() + static_cast<std::ptrdiff_t>(torn.size() / 4096 / 2 * 4096), 4096,
                '\xAA');
    Write("torn.db", torn);
    ExpectRefused(RunZvdb({"import", Path("torn.db"), Path("b.db")}), "damaged");
    EXPECT_FALSE(std::filesystem::exists(File("b.db")));
}

TEST_F(ImportEmbedded, BadTargetsAreNamed) {
    Write("text.db", "hello");
    std::filesystem::create_directory(File("folder.db"));
    const std::string from = Path("a.db");
    ExpectRefused(RunZvdb({"import", from, Path("text.db"), "--replace"}),
                  "something else is there");
    ExpectRefused(RunZvdb({"import", from, Path("folder.db")}), "this is a folder");
    ExpectRefused(RunZvdb({"import", from, Path("missing/b.db")}), "its folder does not exist");
    ExpectRefused(RunZvdb({"import", from, Path("b.txt")}), "a new embedded file ends in");
    EXPECT_EQ(Read("text.db"), "hello");
}

TEST_F(ImportEmbedded, LockedFilesAreNamed) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    {
        Engine other(Path("b.db"));
        other.Run("begin immediate");
        ExpectRefused(Import(), "another program has the file open");
    }
    Engine other(Path("a.db"));
    other.Run("pragma locking_mode=exclusive; begin exclusive");
    ExpectRefused(Import(), "another program has locked the file");
}

TEST_F(ImportEmbedded, ProgressIsDrawnForLongTables) {
    const Outcome import = RunZvdb({"import", Path("a.db"), Path("b.db"), "--quiet"}, true);
    EXPECT_EQ(import.err, "");
}

TEST_F(ImportEmbedded, WrongArgumentsAreRefused) {
    ExpectRefused(RunZvdb({"import", Path("a.db")}), "import wants two names");
    ExpectRefused(RunZvdb({"import", Path("a.db"), Path("b.db"), "--force"}), "has no option");
    ExpectRefused(RunZvdb({"import", Path("a.db"), Path("b.db"), Path("c.db")}), "two names");
}

}  // namespace
}  // namespace zv::zvdb
