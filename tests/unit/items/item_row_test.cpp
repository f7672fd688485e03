#include "items/item_row.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace zv::items {
namespace {

TEST(MergeGroups, WhatBelongsTogetherComesFromOneVersion) {
    const std::vector<std::size_t> groups = MergeGroups();
    ASSERT_EQ(groups.size(), kColumns.size());
    std::map<std::size_t, std::set<std::string_view>> together;
    for (std::size_t i = 0; i < groups.size(); i++) together[groups[i]].insert(kColumns[i]);
    std::set<std::set<std::string_view>> joined;
    for (const auto& [group, fields] : together) {
        if (fields.size() > 1) joined.insert(fields);
    }
    EXPECT_EQ(joined, (std::set<std::set<std::string_view>>{{"fType", "TaskID", "fGuest"},
                                                            {"taskTime", "tDuring1", "tDuring2"},
                                                            {"tDone", "tDoneMan"}}));
}

TEST(MergeGroups, OnlyTheUserIsAlwaysTheCurrentOne) {
    const std::vector<std::size_t> groups = MergeGroups();
    for (std::size_t i = 0; i < groups.size(); i++) {
        EXPECT_EQ(groups[i] == store::RowMerge::kAlwaysOwn, kColumns[i] == "fUser") << kColumns[i];
    }
}

}  // namespace
}  // namespace zv::items
