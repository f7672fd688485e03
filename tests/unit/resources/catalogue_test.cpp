#include "resources/texts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "resources/design_texts.h"
#include "resources/error_texts.h"

namespace zv::resources {
namespace {

template <typename Act>
ErrorNumber NumberOf(Act act) {
    try {
        act();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    ADD_FAILURE() << "no error";
    return ErrorNumber{};
}

struct Row {
    std::int16_t id;
    std::string simplified;
    std::string traditional;
};

std::vector<Row> Table() {
    std::ifstream file(ZV_CATALOGUE_TSV);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        const auto first = line.find('\t');
        const auto second = line.find('\t', first + 1);
        rows.push_back({static_cast<std::int16_t>(std::stoi(line.substr(0, first))),
                        line.substr(first + 1, second - first - 1), line.substr(second + 1)});
    }
    return rows;
}

TEST(Catalogue, HoldsEveryEntryOfTheTableInBothScripts) {
    const auto rows = Table();
    ASSERT_EQ(rows.size(), 82u);
    for (const Row& row : rows) {
        EXPECT_EQ(LoadText(row.id, 0), row.simplified) << row.id;
        EXPECT_EQ(LoadText(row.id, 1), row.traditional) << row.id;
        EXPECT_EQ(CatalogueText(row.id + 10000), row.traditional) << row.id;
    }
}

TEST(Catalogue, HoldsNothingBesideTheTableAndTheBranding) {
    std::set<int> ids = {1, 2, 3, 4};
    for (const Row& row : Table()) ids.insert(row.id);
    for (int id = -10; id < 32768; id++) {
        const int base = id >= 10000 ? id - 10000 : id;
        if (ids.contains(base)) {
            EXPECT_FALSE(CatalogueText(id).empty()) << id;
        } else {
            EXPECT_THROW(CatalogueText(id), RuntimeError) << id;
        }
    }
}

TEST(LoadText, TakesTheTraditionalTwin) {
    EXPECT_EQ(LoadText(22, 0), "退出");
    EXPECT_EQ(LoadText(22, 1), "退出");
    EXPECT_EQ(LoadText(5, 1), "任務");
    EXPECT_EQ(LoadText(0, 0), "0");
    EXPECT_EQ(LoadText(0, 1), "1");
}

TEST(LoadText, RaisesTheResourceErrorForAMissingEntry) {
    EXPECT_EQ(NumberOf([] { LoadText(47, 0); }), ErrorNumber::ResourceNotFound);
    EXPECT_EQ(NumberOf([] { LoadText(22, 2); }), ErrorNumber::ResourceNotFound);
    EXPECT_EQ(NumberOf([] { LoadText(22, 3); }), ErrorNumber::ResourceNotFound);
    EXPECT_EQ(NumberOf([] { LoadText(22, -1); }), ErrorNumber::ResourceNotFound);
}

TEST(LoadText, OverflowsInSixteenBitsOnSumAndProduct) {
    EXPECT_EQ(NumberOf([] { LoadText(2768, 3); }), ErrorNumber::Overflow);
    EXPECT_EQ(NumberOf([] { LoadText(2767, 3); }), ErrorNumber::ResourceNotFound);
    EXPECT_EQ(NumberOf([] { LoadText(5, 4); }), ErrorNumber::Overflow);
    EXPECT_EQ(NumberOf([] { LoadText(-5, 4); }), ErrorNumber::Overflow);
}

TEST(DescribeError, PrefersTheErrorsOwnText) {
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::Overflow, "own"), 0), "own");
}

TEST(DescribeError, NamesClassicNumbersInBothScripts) {
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::Overflow), 0), "数值溢出");
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::Overflow), 1), "數值溢位");
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::TypeMismatch), 0), "类型不匹配");
    EXPECT_EQ(DescribeError(RuntimeError(static_cast<ErrorNumber>(777)), 0), "错误 777");
    // A language without texts must not hide the error that reports it.
    EXPECT_EQ(DescribeError(RuntimeError(ErrorNumber::ResourceNotFound), 3), "未找到该编号的资源");
}

TEST(DesignTexts, InHandEntryEndsInASuffixOfThreeCharacters) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        const std::string caption = LoadText(DesignText::MenuInHandEntry, language);
        EXPECT_EQ(caption.substr(caption.size() - 3), "...");
    }
}

}  // namespace
}  // namespace zv::resources
