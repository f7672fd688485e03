// Access files come over cell by cell.
#include <algorithm>
#include <filesystem>

#include "access_rows_file.h"
#include "scratch.h"
#include "zvdb/access/mdb_file.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

using ImportAccess = Scratch;

std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

class ImportAccessFile : public Scratch, public testing::WithParamInterface<const char*> {};

TEST_P(ImportAccessFile, EveryCellIsEqual) {
    const Outcome import = RunZvdb({"import", AccessFixture(GetParam()), Path("a.db")});
    // The files hold values that break rules, which is reported.
    EXPECT_EQ(import.status, 3) << import.out << import.err;
    ExpectStatusShowsCheck(import, RunZvdb({"check", Path("a.db")}));
    const RowsByTable expected = ExpectedRows();
    const RowsByTable stored = StoredRows(Path("a.db"));
    ASSERT_EQ(expected.size(), 7U);
    ASSERT_EQ(stored.size(), expected.size());
    std::size_t rows = 0;
    for (const auto& [table, lines] : expected) {
        EXPECT_EQ(stored.at(table), lines) << table;
        rows += lines.size();
    }
    EXPECT_EQ(rows, 627U);
    EXPECT_NE(import.out.find("627 rows imported, counts and sums are equal"), std::string::npos)
        << import.out;
}

TEST_P(ImportAccessFile, TheSourceKeepsItsBytesAndGetsNoNeighbours) {
    std::filesystem::copy_file(AccessFixture(GetParam()), File(GetParam()));
    const std::string before = Bytes(AccessFixture(GetParam()));
    ASSERT_EQ(RunZvdb({"import", Path(GetParam()), Path("a.db")}).status, 3);
    EXPECT_TRUE(Read(GetParam()) == before);
    auto files = Files();
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::string>{"a.db", GetParam()}));
}

INSTANTIATE_TEST_SUITE_P(Versions, ImportAccessFile,
                         testing::Values("taskAlert-2000.mdb", "taskAlert-2003.mdb",
                                         "taskAlert-2010.accdb"),
                         [](const auto& file) { return "File" + std::to_string(file.index); });

TEST_F(ImportAccess, TheNextItemGetsANumberBehindTheGreatest) {
    ASSERT_EQ(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), Path("a.db")}).status, 3);
    Engine engine(Path("a.db"));
    const std::int64_t greatest = engine.Number("select max(fID) from tTaskList");
    engine.Run("insert into tTaskList(taskTitle) values('next')");
    EXPECT_EQ(engine.Number("select fID from tTaskList where taskTitle='next'"), greatest + 1);
}

TEST_F(ImportAccess, ADryRunWritesNothing) {
    const Outcome dry =
        RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), Path("a.db"), "--dry-run"});
    EXPECT_EQ(dry.status, 0) << dry.err;
    EXPECT_NE(dry.out.find("627 rows would be imported"), std::string::npos) << dry.out;
    EXPECT_TRUE(Files().empty());
}

TEST_F(ImportAccess, TheContentSaysWhatAFileIs) {
    std::filesystem::copy_file(AccessFixture("taskAlert-2003.mdb"), File("backup.dat"));
    const Outcome import = RunZvdb({"import", Path("backup.dat"), Path("a.db")});
    EXPECT_EQ(import.status, 3);
    EXPECT_NE(import.out.find("backup.dat, Access file (Jet 4)\n"), std::string::npos)
        << import.out;
}

TEST_F(ImportAccess, TheVersionOfAFileStandsInItsHead) {
    const auto version = [&](char number) {
        std::string bytes = Bytes(AccessFixture("taskAlert-2000.mdb"));
        bytes[0x14] = number;
        Write("a.mdb", bytes);
        return access::MdbFile(Path("a.mdb")).Version();
    };
    EXPECT_EQ(version(1), "Jet 4");
    EXPECT_EQ(version(2), "ACE 12");
    EXPECT_EQ(version(3), "ACE 14");
    EXPECT_EQ(version(4), "ACE 15");
    EXPECT_EQ(version(5), "ACE 16");
    EXPECT_EQ(version(6), "ACE 17");
}

TEST_F(ImportAccess, ALockFileBesideItIsReported) {
    std::filesystem::copy_file(AccessFixture("taskAlert-2003.mdb"), File("tasks.mdb"));
    Write("tasks.ldb", "");
    const Outcome import = RunZvdb({"import", Path("tasks.mdb"), Path("a.db")});
    EXPECT_EQ(import.status, 3);
    EXPECT_NE(import.out.find("remark: somebody may have the file open: tasks.ldb"),
              std::string::npos)
        << import.out;
}

TEST_F(ImportAccess, AccessFilesAreNotWritten) {
    const Outcome missing =
        RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), Path("new.mdb")});
    EXPECT_EQ(missing.status, 2);
    EXPECT_NE(missing.err.find("Access files are read, not written"), std::string::npos);
    std::filesystem::copy_file(AccessFixture("taskAlert-2003.mdb"), File("old.mdb"));
    const Outcome present =
        RunZvdb({"import", AccessFixture("taskAlert-2000.mdb"), Path("old.mdb"), "--replace"});
    EXPECT_EQ(present.status, 2);
    EXPECT_TRUE(Read("old.mdb") == Bytes(AccessFixture("taskAlert-2003.mdb")));
}

}  // namespace
}  // namespace zv::zvdb
