#include "store/statement_cache.h"

#include <gtest/gtest.h>

#include "store/dialect/translations.h"

namespace zv::store {
namespace {

TEST(StatementCache, TheOneUsedLongestAgoGoesFirst) {
    StatementCache<int> cache(2);
    cache.Keep("a", 1);
    cache.Keep("b", 2);
    EXPECT_EQ(*cache.Find("a"), 1);
    cache.Keep("c", 3);
    EXPECT_EQ(cache.Find("b"), nullptr);
    EXPECT_EQ(*cache.Find("a"), 1);
    EXPECT_EQ(*cache.Find("c"), 3);
}
TEST(StatementCache, WhatIsRemovedIsNotFound) {
    StatementCache<int> cache(2);
    cache.Keep("a", 1);
    cache.Keep("b", 2);
    cache.RemoveIf([](const std::string&, int value) { return value == 1; });
    EXPECT_EQ(cache.Find("a"), nullptr);
    cache.Clear();
    EXPECT_EQ(cache.Find("b"), nullptr);
}
TEST(Translations, AStatementIsTranslatedOnce) {
    dialect::Translations translations;
    int made = 0;
    const auto make = [&] {
        made++;
        return dialect::Untranslated("SELECT 1");
    };
    const auto first = translations.For("select 1", make);
    EXPECT_EQ(translations.For("select 1", make), first);
    EXPECT_EQ(made, 1);
    ASSERT_NE(translations.SourceOf("SELECT 1"), nullptr);
    EXPECT_EQ(*translations.SourceOf("SELECT 1"), "select 1");
    EXPECT_EQ(translations.SourceOf("SELECT 2"), nullptr);
    translations.Clear();
    translations.For("select 1", make);
    EXPECT_EQ(made, 2);
}

}  // namespace
}  // namespace zv::store
