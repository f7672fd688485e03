// What is known of a change of a row.
#include "changes/row_change.h"

#include <gtest/gtest.h>

#include "items/item_row.h"

namespace zv::changes {
namespace {

namespace field = items::field;

Fields Item() {
    return Fields(items::kFields.size());
}

TEST(RowChange, OnlyWhatIsKnownOnBothSidesAndDiffersIsChanged) {
    RowChange change{&items::ItemTable(), 5, Item(), Item()};
    (*change.before)[field::kTitle] = "t";
    (*change.after)[field::kTitle] = "u";
    (*change.before)[field::kDoer] = store::Value();
    (*change.after)[field::kDoer] = "";
    (*change.before)[field::kState] = 1;
    (*change.after)[field::kState] = "1";
    (*change.after)[field::kUser] = "Li";
    EXPECT_EQ(ChangedFields(change), std::vector<std::size_t>{field::kTitle});
    change.before.reset();
    EXPECT_EQ(ChangedFields(change), std::vector<std::size_t>());
}

TEST(RowChange, IsCalledByItsFormerTitleElseByItsPresentOne) {
    RowChange change{&items::ItemTable(), 5, Item(), Item()};
    EXPECT_EQ(TitleOf(change), "");
    (*change.after)[field::kTitle] = "u";
    EXPECT_EQ(TitleOf(change), "u");
    (*change.before)[field::kTitle] = "t";
    EXPECT_EQ(TitleOf(change), "t");
    EXPECT_EQ(TitleOf(Reversed(change)), "u");
}

TEST(RowChange, ADeletionReversedIsAnAddition) {
    const RowChange back = Reversed({&items::ItemTable(), 5, Item(), std::nullopt});
    EXPECT_FALSE(back.before);
    EXPECT_EQ(back.after, Item());
    EXPECT_EQ(back.row, 5);
}

TEST(RowChange, EveryFieldOfAnItemIsAColumnOfItsTable) {
    ASSERT_EQ(items::ItemTable().columns.size(), items::kFields.size());
    EXPECT_EQ(items::ItemTable().columns[field::kTime].kind, store::ColumnKind::Date);
    EXPECT_EQ(items::ItemTable().columns[field::kState].kind, store::ColumnKind::Number);
    EXPECT_EQ(items::ItemTable().columns[field::kKind].kind, store::ColumnKind::Number);
    EXPECT_EQ(items::ItemTable().columns[field::kTitle].kind, store::ColumnKind::Text);
}

}  // namespace
}  // namespace zv::changes
