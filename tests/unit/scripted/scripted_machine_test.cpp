#include "platform/scripted/scripted_machine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>

#include "base/errors.h"
#include "temporary_folder.h"

namespace zv::platform::scripted {
namespace {

TEST(ScriptedClock, StandsStillUntilItIsMoved) {
    ScriptedClock clock;
    clock.Set(DateTime(2003, 3, 7, 23, 59, 30));
    EXPECT_EQ(clock.Now(), clock.Now());
    clock.Advance(45);
    EXPECT_EQ(clock.Now(), DateTime(2003, 3, 8, 0, 0, 15));
    EXPECT_EQ(clock.Today(), DateTime(2003, 3, 8));
}

TEST(ScriptedCodePage, SimplifiedHoldsSimplifiedCharacters) {
    ScriptedCodePage page;
    page.Select(936);
    EXPECT_EQ(page.ByteWidth(U'a'), 1);
    EXPECT_EQ(page.ByteWidth(U'\x7F'), 1);
    EXPECT_EQ(page.ByteWidth(U'任'), 2);
    EXPECT_EQ(page.ByteWidth(U'務'), 2);
    EXPECT_EQ(page.ByteWidth(U'（'), 2);
    EXPECT_EQ(page.ByteWidth(U'°'), 2);
}

TEST(ScriptedCodePage, TraditionalLacksSimplifiedCharacters) {
    ScriptedCodePage page;
    page.Select(950);
    EXPECT_EQ(page.ByteWidth(U'務'), 2);
    EXPECT_EQ(page.ByteWidth(U'务'), 1);
}

TEST(ScriptedCodePage, WesternCharactersAreSingleBytes) {
    ScriptedCodePage page;
    page.Select(1252);
    EXPECT_EQ(page.ByteWidth(U'é'), 1);
    EXPECT_EQ(page.ByteWidth(U'任'), 1);
}

TEST(ScriptedCodePage, UnknownCharactersCountOne) {
    ScriptedCodePage page;
    page.Select(936);
    EXPECT_EQ(page.ByteWidth(U'\U0001F600'), 1);
    EXPECT_EQ(page.ByteWidth(0xD800), 1);
    EXPECT_EQ(page.ByteWidth(0x110000), 1);
}

TEST(ScriptedCodePage, NoLookAlikes) {
    ScriptedCodePage page;
    page.Select(936);
    EXPECT_EQ(page.ByteWidth(U'\u00A2'), 1);
}

TEST(ScriptedCodePage, UserDefinedCharactersReachAsFarAsTheCodePage) {
    ScriptedCodePage page;
    page.Select(936);
    EXPECT_EQ(page.ByteWidth(0xE000), 2);
    EXPECT_EQ(page.ByteWidth(0xE864), 2);
    EXPECT_EQ(page.ByteWidth(0xF000), 1);
    page.Select(950);
    EXPECT_EQ(page.ByteWidth(0xF848), 2);
    EXPECT_EQ(page.ByteWidth(0xF849), 1);
    page.Select(1252);
    EXPECT_EQ(page.ByteWidth(0xE000), 1);
}

// One number over the whole plane shows that both implementations hold the same table.
TEST(ScriptedCodePage, HoldsTheSameCharactersOnEverySystem) {
    const auto doubles = [](int codePage) {
        ScriptedCodePage page;
        page.Select(codePage);
        int count = 0;
        for (char32_t c = 0; c < 0x10000; c++) {
            if (c < 0xD800 || c > 0xDFFF) count += page.ByteWidth(c) == 2 ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(doubles(936), 23940);
    EXPECT_EQ(doubles(950), 19710);
    EXPECT_EQ(doubles(1252), 0);
}

TEST(ScriptedCodePage, RefusesOtherCodePages) {
    ScriptedCodePage page;
    EXPECT_THROW(page.Select(65001), RuntimeError);
}

TEST(ScriptedShell, KeepsWhatItIsHanded) {
    ScriptedShell shell;
    shell.Open("mailto:a@b");
    shell.Start("C:\\Windows\\dialer.exe");
    shell.SendKeys("123~");
    EXPECT_EQ(shell.lines,
              (std::vector<std::string>{"mailto:a@b", "C:\\Windows\\dialer.exe", "keys:123~"}));
}

TEST(ScriptedFiles, RelativeNamesStartInTheFolder) {
    test::TemporaryFolder folder;
    std::filesystem::create_directories(folder / "数据");
    std::ofstream(folder / "数据/t 1.mdb") << "x";
    const ScriptedFiles files(folder.Path());
    EXPECT_TRUE(files.FileExists("数据/t 1.mdb"));
    EXPECT_TRUE(files.FileExists("数据\\t 1.mdb"));
    EXPECT_TRUE(files.FileExists(files.ApplicationFolder() + "\\数据\\t 1.mdb"));
    EXPECT_FALSE(files.FileExists("t 1.mdb"));
    EXPECT_FALSE(files.FileExists(""));
}

std::string Content(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

ErrorNumber NumberOfFailure(const std::function<void()>& act, std::string_view path) {
    try {
        act();
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.Text().find(path), std::string::npos) << error.Text();
        return error.Number();
    }
    return {};
}

TEST(ScriptedFiles, AFileAppearsUnderItsNameWithItsCommit) {
    test::TemporaryFolder folder;
    ScriptedFiles files(folder.Path());
    const auto file = files.Create("清单.csv");
    file->Write("a");
    file->Write("b");
    EXPECT_FALSE(files.FileExists("清单.csv"));
    file->Commit();
    EXPECT_EQ(Content(folder / "清单.csv"), "ab");
}

TEST(ScriptedFiles, WithoutACommitNothingIsLostAndNothingLeft) {
    test::TemporaryFolder folder;
    std::ofstream(folder / "t.csv") << "old";
    ScriptedFiles files(folder.Path());
    files.Create("t.csv")->Write("new");
    EXPECT_EQ(Content(folder / "t.csv"), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(ScriptedFiles, ACommitReplacesTheFileOfThatName) {
    test::TemporaryFolder folder;
    std::ofstream(folder / "t.csv") << "old and longer";
    ScriptedFiles files(folder.Path());
    const auto file = files.Create("t.csv");
    file->Write("new");
    file->Commit();
    EXPECT_EQ(Content(folder / "t.csv"), "new");
}

TEST(ScriptedFiles, WritingFailsWithTheClassicNumbersAndThePath) {
    test::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "sub");
    ScriptedFiles files(folder.Path());
    EXPECT_EQ(NumberOfFailure([&] { files.Create("none\\t.csv"); }, "none\\t.csv"),
              ErrorNumber::PathNotFound);
    EXPECT_EQ(NumberOfFailure([&] { files.Create("sub"); }, "sub"), ErrorNumber::PathFileAccess);
    files.room = 3;
    const auto file = files.Create("t.csv");
    file->Write("ab");
    EXPECT_EQ(NumberOfFailure([&] { file->Write("cd"); }, "t.csv"), ErrorNumber::DiskFull);
}

TEST(ScriptedFiles, AFolderIsNoFile) {
    test::TemporaryFolder folder;
    const ScriptedFiles files(folder.Path());
    EXPECT_FALSE(files.FileExists(files.ApplicationFolder()));
}

}  // namespace
}  // namespace zv::platform::scripted
