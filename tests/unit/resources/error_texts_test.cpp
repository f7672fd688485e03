// What a user reads of errors: a text in the user's script, and the engine's own words behind it.
#include "resources/error_texts.h"

#include <gtest/gtest.h>

#include <set>

#include "base/text.h"

namespace zv::resources {
namespace {

constexpr std::int16_t kSimplified = 0;
constexpr std::int16_t kTraditional = 1;

RuntimeError EngineError(ErrorKind kind, const std::string& words = "the engine's words") {
    return RuntimeError(ErrorNumber::DatabaseFailure, words, "Engine").Of(kind);
}
bool IsChinese(std::string_view text) {
    std::size_t at = 0;
    return text::NextCodePoint(text, at) > 0x2E80;
}

TEST(DescribeError, HasATextInBothScriptsForEveryKindWithTheEnginesOwnBehind) {
    for (const std::int16_t language : {kSimplified, kTraditional}) {
        std::set<std::string> texts;
        int kinds = 0;
        for (int kind = 1; kind <= static_cast<int>(ErrorKind::Last); kind++, kinds++) {
            const std::string text =
                DescribeError(EngineError(static_cast<ErrorKind>(kind)), language);
            EXPECT_TRUE(IsChinese(text)) << kind << ": " << text;
            EXPECT_TRUE(text.ends_with(" (the engine's words)")) << kind << ": " << text;
            texts.insert(text);
        }
        EXPECT_EQ(texts.size(), static_cast<std::size_t>(kinds));
    }
}

TEST(DescribeError, DistinguishesTheScripts) {
    for (const ErrorKind kind : {ErrorKind::Busy, ErrorKind::DiskFull, ErrorKind::LoginRefused}) {
        EXPECT_NE(DescribeError(EngineError(kind), kSimplified),
                  DescribeError(EngineError(kind), kTraditional));
    }
}

TEST(DescribeError, NamesTheCommandThatHelpsOnAShare) {
    for (const std::int16_t language : {kSimplified, kTraditional}) {
        const std::string text = DescribeError(
            EngineError(ErrorKind::WriteAheadOnShare, "run: zvdb mode \"Z:\\t.db\" rollback"),
            language);
        EXPECT_NE(text.find("zvdb mode "), std::string::npos) << text;
        EXPECT_TRUE(text.ends_with(" (run: zvdb mode \"Z:\\t.db\" rollback)")) << text;
    }
}

TEST(DescribeError, KeepsWhatIsReadyToBeRead) {
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::DatabaseFailure, "own words"), kSimplified),
              "own words");
    EXPECT_EQ(DescribeError(EngineError(ErrorKind::Other, "打印机没有准备好"), kSimplified),
              "打印机没有准备好");
}

TEST(DescribeError, ReportsAnUnknownErrorOfAnEngineByItsNumber) {
    const RuntimeError known(ErrorNumber::DatabaseColumn, "no such field: x", "Engine");
    EXPECT_EQ(DescribeError(known, kSimplified), "数据库中没有该字段 (no such field: x)");
    const RuntimeError unknown(static_cast<ErrorNumber>(-5), "what?", "Engine");
    EXPECT_EQ(DescribeError(unknown, kTraditional), "錯誤 -5 (what?)");
}

TEST(DescribeError, NeedsNoWordsOfTheEngine) {
    EXPECT_EQ(DescribeError(EngineError(ErrorKind::Busy, ""), kSimplified),
              "数据库正被其他程序锁定，请稍后再试。");
}

}  // namespace
}  // namespace zv::resources
