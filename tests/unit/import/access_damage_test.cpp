// Damaged Access files: reported, never imported in part, and never the end of the program.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <random>

#include "access_rows_file.h"
#include "scratch.h"
#include "zvdb/access/access_source.h"
#include "zvdb/access/isolated_reader.h"

namespace zv::zvdb {
namespace {

constexpr std::size_t kPage = 4096;

class ImportDamaged : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        std::ifstream in(AccessFixture("taskAlert-2000.mdb"), std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(in), {});
    }
    void ExpectRefused(const std::string& reason) {
        Write("damaged.mdb", bytes_);
        const Outcome import = RunZvdb({"import", Path("damaged.mdb"), Path("a.db")});
        EXPECT_EQ(import.status, 2) << import.out;
        EXPECT_NE((import.out + import.err).find(reason), std::string::npos)
            << import.out << import.err;
        EXPECT_EQ(Files(), std::vector<std::string>{"damaged.mdb"});
    }
    void Clear(std::size_t page) {
        std::fill_n(bytes_.begin() + static_cast<std::ptrdiff_t>(page * kPage), kPage, '\0');
    }
    /// Pages whose first byte is `type` and whose owner is `owner`.
    std::vector<std::size_t> Pages(char type, std::uint32_t owner) const {
        std::vector<std::size_t> pages;
        for (std::size_t page = 0; page < bytes_.size() / kPage; ++page) {
            std::uint32_t found = 0;
            std::memcpy(&found, bytes_.data() + page * kPage + 4, sizeof found);
            if (bytes_[page * kPage] == type && found == owner) pages.push_back(page);
        }
        return pages;
    }

    std::string bytes_;
};

TEST_F(ImportDamaged, CutShort) {
    bytes_.resize(300000);
    ExpectRefused("the file is cut short: 300000 bytes are not whole pages");
}

TEST_F(ImportDamaged, CutShortAfterAWholePage) {
    bytes_.resize(70 * kPage);
    ExpectRefused("the file is damaged");
}

TEST_F(ImportDamaged, OnlyTheHeadIsLeft) {
    bytes_.resize(1000);
    ExpectRefused("cut short");
}

TEST_F(ImportDamaged, AnotherProductInTheHead) {
    bytes_[6] = 'x';
    ExpectRefused("not an Access file, or its head is damaged");
}

TEST_F(ImportDamaged, TheDefinitionOfTheCatalogueIsGone) {
    Clear(2);
    ExpectRefused("the definition of table MSysObjects is not where the catalogue says");
}

TEST_F(ImportDamaged, RowsOfTheCatalogueAreGone) {
    Clear(14);
    ExpectRefused("table MSysObjects: page 14 is not one of its pages");
}

TEST_F(ImportDamaged, ANameInTheCatalogueThatCannotBeReadIsNamedWithItsRow) {
    const std::size_t name = bytes_.find(std::string("c\0a\0r\0d\0s\0", 10), 14 * kPage);
    // Where the name ends is told behind it in the row.
    const std::size_t end = name + 44;
    ASSERT_LT(end, 15 * kPage);
    ASSERT_EQ(bytes_[end], 42);
    bytes_[end] = 41;
    ExpectRefused(": Name cannot be read: a text ends in the middle of a character");
}

// Every third page; ZV_FUZZ_FILES in the environment asks for all.
TEST_F(ImportDamaged, LostPagesOfRowsAreNoticed) {
    const std::string whole = bytes_;
    std::size_t refused = 0;
    const std::size_t step = std::getenv("ZV_FUZZ_FILES") != nullptr ? 1 : 3;
    for (std::size_t page = 4; page < whole.size() / kPage; page += step) {
        if (whole[page * kPage] != 1) continue;
        bytes_ = whole;
        std::uint16_t rows = 0;
        std::memcpy(&rows, bytes_.data() + page * kPage + 12, sizeof rows);
        if (rows == 0) continue;
        Clear(page);
        Write("damaged.mdb", bytes_);
        // A page that nothing of ours is on may be lost; then everything is there.
        if (RunZvdb({"import", Path("damaged.mdb"), Path("a.db"), "--dry-run"}).status == 2) {
            ++refused;
            continue;
        }
        ASSERT_EQ(RunZvdb({"import", Path("damaged.mdb"), Path("a.db")}).status, 3);
        EXPECT_EQ(StoredRows(Path("a.db")), ExpectedRows()) << "page " << page;
        std::filesystem::remove(File("a.db"));
    }
    EXPECT_GT(refused, 15U);
}

TEST_F(ImportDamaged, APieceOfAMemoIsGoneEachCellIsNamed) {
    const auto pages = Pages(1, 0x4C41564C);
    ASSERT_GT(pages.size(), 5U);
    Clear(pages[pages.size() / 2]);
    ExpectRefused("holds no long values");
    const Outcome import = RunZvdb({"import", Path("damaged.mdb"), Path("a.db")});
    EXPECT_NE(import.out.find("refused: "), std::string::npos) << import.out;
    EXPECT_NE(import.out.find(": fID "), std::string::npos) << import.out;
    EXPECT_NE(import.out.find("nothing was imported"), std::string::npos) << import.out;
}

TEST_F(ImportDamaged, AccessOf97IsRefused) {
    const Outcome import = RunZvdb({"import", AccessFixture("access97.mdb"), Path("a.db")});
    EXPECT_EQ(import.status, 2);
    EXPECT_NE(import.err.find("made by Access 97 or older"), std::string::npos) << import.err;
}

/// Reads everything, as an import does.
void ReadAll(const std::string& path) {
    const auto source = OpenAccessFile(path);
    for (const SourceTable& table : source->Tables()) {
        const auto reader = source->Read(table, table.columns);
        std::vector<store::Value> row;
        while (reader->Next(row)) {
        }
    }
}

// ZV_FUZZ_FILES in the environment asks for more of them, ZV_FUZZ_SEED for others.
TEST_F(ImportDamaged, FlippedBytesNeverEndOrHangTheProgram) {
    const char* wanted = std::getenv("ZV_FUZZ_FILES");
    const char* seed = std::getenv("ZV_FUZZ_SEED");
    const int files = wanted != nullptr ? std::atoi(wanted) : 20;
    std::mt19937 random(seed != nullptr ? static_cast<unsigned>(std::atoi(seed)) : 1U);
    const std::string whole = bytes_;
    int refused = 0;
    int crashed = 0;
    for (int i = 0; i < files; ++i) {
        bytes_ = whole;
        const int flips = 1 + static_cast<int>(random() % 8);
        for (int flip = 0; flip < flips; ++flip) {
            // Half of them where structure is: the begins of pages.
            const std::size_t page = random() % (bytes_.size() / kPage);
            const std::size_t at = random() % 2 == 0 ? random() % 128 : random() % kPage;
            bytes_[page * kPage + at] = static_cast<char>(random());
        }
        Write("damaged.mdb", bytes_);
        const auto begin = std::chrono::steady_clock::now();
        try {
            ReadAll(Path("damaged.mdb"));
        } catch (const SourceError& error) {
            ++refused;
            if (std::string(error.what()).find("reading it failed") != std::string::npos) {
                ++crashed;
            }
        }
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10)) << i;
    }
    EXPECT_GT(refused, files / 10);
    RecordProperty("refused", refused);
    RecordProperty("crashed", crashed);
    std::printf("%d files, %d refused, %d of them crashed the library\n", files, refused, crashed);
}

using access::IsolatedReader;
using access::StreamWriter;

std::string FailureOf(const std::function<void(StreamWriter&)>& work) {
    IsolatedReader reader(work);
    try {
        while (reader.Next()) reader.Number();
    } catch (const SourceError& error) {
        return error.what();
    }
    return "none";
}

TEST(IsolatedReader, HandsOverWhatTheWorkWrites) {
    IsolatedReader reader([](StreamWriter& out) {
        out.Put(IsolatedReader::kMessage);
        out.Put(std::string_view("zero \0 inside", 13));
        out.Put(store::Value(DateTime(9999, 12, 31, 23, 59, 59)));
        out.Put(store::Value(-1.5));
        out.Put(store::Value());
    });
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Text(), std::string("zero \0 inside", 13));
    store::Value value;
    reader.Get(value);
    EXPECT_EQ(value, store::Value(DateTime(9999, 12, 31, 23, 59, 59)));
    reader.Get(value);
    EXPECT_EQ(value, store::Value(-1.5));
    reader.Get(value);
    EXPECT_TRUE(value.IsNull());
    EXPECT_FALSE(reader.Next());
}

TEST(IsolatedReader, ACrashIsAnError) {
    EXPECT_EQ(FailureOf([](StreamWriter&) { raise(SIGKILL); }),
              "the file is damaged: reading it failed (Killed)");
}

TEST(IsolatedReader, AnExceptionComesOver) {
    EXPECT_EQ(FailureOf([](StreamWriter& out) {
                  out.Put(IsolatedReader::kMessage);
                  out.Put(std::uint64_t{1});
                  throw std::runtime_error("no page 7");
              }),
              "no page 7");
}

TEST(IsolatedReader, AReaderThatIsLeftEarlyEndsItsProcess) {
    IsolatedReader reader([](StreamWriter& out) {
        while (true) {
            out.Put(IsolatedReader::kMessage);
            out.Put(std::uint64_t{1});
        }
    });
    EXPECT_TRUE(reader.Next());
}

}  // namespace
}  // namespace zv::zvdb
