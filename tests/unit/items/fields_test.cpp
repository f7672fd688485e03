#include "items/fields.h"

#include <gtest/gtest.h>

#include <set>

#include "items/item.h"
#include "items/names.h"

namespace zv::items {
namespace {

TEST(Fields, EachColumnStandsOnce) {
    std::set<std::string_view> columns(kColumns.begin(), kColumns.end());
    EXPECT_EQ(columns.size(), kFields.size());
}

TEST(Fields, AreFoundWithoutRegardToCase) {
    ASSERT_NE(FindField("TASKtitle"), nullptr);
    EXPECT_EQ(FindField("TASKtitle"), &kFields[field::kTitle]);
    EXPECT_EQ(FindField("compname"), nullptr);
    EXPECT_EQ(FindField(""), nullptr);
}

TEST(Fields, PlacesInListsAndOnPaperAreEachTakenOnce) {
    std::set<int> listed;
    for (const Field* field : ListedFields()) EXPECT_TRUE(listed.insert(field->listed).second);
    std::set<int> printed;
    std::set<std::string_view> headings;
    for (const Field* field : PrintedFields()) {
        EXPECT_TRUE(printed.insert(field->printed).second) << field->column;
        EXPECT_TRUE(headings.insert(field->heading).second) << field->column;
    }
}

TEST(Fields, WhatIsShownHasACaptionInBothScripts) {
    for (const Field* field : ListedFields()) {
        for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
            EXPECT_NE(field->caption.Text(language), "") << field->column;
        }
    }
    EXPECT_EQ(kFields[field::At("fOther2")].caption.Text(1), "備註 3");
}

TEST(Fields, APrintedFieldIsOneThatIsEdited) {
    for (const Field* field : PrintedFields()) EXPECT_NE(field->box, "") << field->column;
}

TEST(Names, ThereIsOneForEachKindAndState) {
    EXPECT_EQ(KindNames(0).size(), kItemKinds.size());
    EXPECT_EQ(StateNames(1).size(), kItemStates.size());
}

TEST(Numbers, ThoseOfATableMayBeAny) {
    EXPECT_EQ(KindOf(2), ItemKind::Diary);
    EXPECT_EQ(KindOf(3), std::nullopt);
    EXPECT_EQ(KindOf(-1), std::nullopt);
    EXPECT_EQ(StateOf(1), ItemState::Done);
    EXPECT_EQ(StateOf(3), std::nullopt);
}

}  // namespace
}  // namespace zv::items
