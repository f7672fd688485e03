#include "mainwindow/item_record.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace zv::mainwindow {
namespace {

TEST(ItemGroups, WhatBelongsTogetherComesFromOneVersion) {
    const std::vector<std::size_t> groups = ItemGroups();
    ASSERT_EQ(groups.size(), kItemFields.size());
    std::map<std::size_t, std::set<std::string_view>> together;
    for (std::size_t i = 0; i < groups.size(); i++) together[groups[i]].insert(kItemFields[i]);
    std::set<std::set<std::string_view>> joined;
    for (const auto& [group, fields] : together) {
        if (fields.size() > 1) joined.insert(fields);
    }
    EXPECT_EQ(joined, (std::set<std::set<std::string_view>>{{"fType", "TaskID", "fGuest"},
                                                            {"taskTime", "tDuring1", "tDuring2"},
                                                            {"tDone", "tDoneMan"}}));
}

TEST(ItemGroups, OnlyTheUserIsAlwaysTheCurrentOne) {
    const std::vector<std::size_t> groups = ItemGroups();
    for (std::size_t i = 0; i < groups.size(); i++) {
        EXPECT_EQ(groups[i] == store::RowMerge::kAlwaysOwn, kItemFields[i] == "fUser")
            << kItemFields[i];
    }
}

}  // namespace
}  // namespace zv::mainwindow
