// The texts of every language, and the one rule for a language that has none.
#include "resources/texts.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "base/errors.h"
#include "resources/error_texts.h"
#include "resources/language.h"
#include "resources/text_ids.h"

namespace zv::resources {
namespace {

template <class Id>
ErrorNumber NumberOfLoading(Id id, std::int16_t language) {
    try {
        LoadText(id, language);
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    ADD_FAILURE() << "no error";
    return ErrorNumber{};
}

template <class Id>
class TextsOf : public testing::Test {};

struct Numbered {
    static constexpr std::int16_t id = text_id::kTask;
};
struct Design {
    static constexpr auto id = DesignText::ButtonSave;
};
struct Ask {
    static constexpr auto id = AskText::Working;
};
struct Item {
    static constexpr auto id = ItemText::SaveAnyway;
};
struct Plan {
    static constexpr auto id = PlanText::ListPrefix;
};
struct Report {
    static constexpr auto id = ReportText::NoColumns;
};
struct Print {
    static constexpr auto id = PrintText::NoPrinter;
};

using AllTables = testing::Types<Numbered, Design, Ask, Item, Plan, Report, Print>;
TYPED_TEST_SUITE(TextsOf, AllTables);

TYPED_TEST(TextsOf, EveryLanguageHasOneOfItsOwn) {
    std::set<std::string> texts;
    for (std::int16_t language = 0; language < LanguageCount(); language++) {
        texts.insert(LoadText(TypeParam::id, language));
    }
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(LanguageCount()));
    EXPECT_FALSE(texts.contains(""));
}

TYPED_TEST(TextsOf, ALanguageWithoutTextsIsAnError) {
    EXPECT_EQ(NumberOfLoading(TypeParam::id, LanguageCount()), ErrorNumber::ResourceNotFound);
    EXPECT_EQ(NumberOfLoading(TypeParam::id, 3), ErrorNumber::ResourceNotFound);
    EXPECT_EQ(NumberOfLoading(TypeParam::id, -1), ErrorNumber::ResourceNotFound);
}

TYPED_TEST(TextsOf, ALanguageWhoseNumbersLeaveSixteenBitsOverflows) {
    EXPECT_EQ(NumberOfLoading(TypeParam::id, 4), ErrorNumber::Overflow);
    EXPECT_EQ(NumberOfLoading(TypeParam::id, -4), ErrorNumber::Overflow);
}

TEST(SpokenLanguage, IsTheFirstWhereALanguageHasNoTexts) {
    EXPECT_EQ(SpokenLanguage(kSimplifiedChinese), kSimplifiedChinese);
    EXPECT_EQ(SpokenLanguage(kTraditionalChinese), kTraditionalChinese);
    for (const std::int32_t language : {std::int32_t{LanguageCount()}, -1, 4, 65536, 65537}) {
        EXPECT_EQ(SpokenLanguage(language), 0) << language;
    }
}

TEST(SpokenLanguage, IsTheOneOfErrors) {
    const RuntimeError error(ErrorNumber::Overflow);
    EXPECT_EQ(DescribeError(error, LanguageCount()), DescribeError(error, 0));
    EXPECT_EQ(DescribeError(error, -4), DescribeError(error, 0));
}

TEST(Languages, NameThemselves) {
    EXPECT_EQ(LoadText(DesignText::LanguageName, kSimplifiedChinese), "简体中文");
    EXPECT_EQ(LoadText(DesignText::LanguageName, kTraditionalChinese), "繁體中文");
}

/// The texts of a language that its catalogue does not fix.
std::vector<std::string_view> OwnTexts(std::int16_t number) {
    std::vector<std::string_view> all;
    const auto add = [&]<class Id>(const Texts<Id>& texts) {
        if constexpr (!std::is_same_v<Id, std::int16_t>) {
            for (const Text<Id>& text : texts) all.push_back(text.text);
        }
    };
    std::apply([&](const auto&... texts) { (add(texts), ...); }, LanguageOf(number));
    return all;
}

TEST(Languages, HaveOneWordForOneThing) {
    // What the other script, or another part of the same country, calls it.
    const std::map<std::int16_t, std::vector<std::string>> foreign = {
        {kSimplifiedChinese,
         {"储存", "资料库", "档案", "使用者", "伺服器", "预设", "选单", "视窗"}},
        {kTraditionalChinese,
         {"保存", "數據", "文件", "用戶", "服務器", "默認", "菜單", "窗口", "當前", "網絡"}}};
    for (const auto& [language, words] : foreign) {
        const auto texts = OwnTexts(language);
        EXPECT_GT(texts.size(), 300U);
        for (const std::string_view text : texts) {
            for (const std::string& word : words) {
                EXPECT_FALSE(text.find(word) != std::string_view::npos) << text;
            }
        }
    }
}

TEST(FillIn, TakesThePlacesOfTheTextOnly) {
    EXPECT_EQ(FillIn("{0} - {1}", "{1}", "x"), "{1} - x");
    EXPECT_EQ(FillIn("{0}{0}{2}{", "a"), "aa{2}{");
    EXPECT_EQ(LoadText(AskText::RowsFound, kTraditionalChinese, "12"), "共 12 列");
}

}  // namespace
}  // namespace zv::resources
