#include "items/filter.h"

#include <gtest/gtest.h>

namespace zv::items {
namespace {

std::string Literal(DateTime date) {
    return "#" + date.UsDate() + "#";
}

std::string Build(const Filter& choice) {
    return FilterText(choice, Literal);
}

TEST(FilterText, WithoutAnyChoiceLeavesOnlyTheConstant) {
    EXPECT_EQ(Build({}), " Where 1=1");
}

TEST(FilterText, EachUntickedKindIsExcluded) {
    Filter choice;
    choice.kinds = {false, false, false};
    EXPECT_EQ(Build(choice), " Where 1=1 And a.fType<>0 And a.fType<>1 And a.fType<>2");
    choice.kinds = {true, false, true};
    EXPECT_EQ(Build(choice), " Where 1=1 And a.fType<>1");
}

TEST(FilterText, TheDateWindowHasThreeForms) {
    Filter choice;
    choice.from = DateTime(2003, 3, 7);
    EXPECT_EQ(Build(choice),
              " Where 1=1 And a.tDuring1<=#03/07/2003# and a.tDuring2>=#03/07/2003#");
    choice.until = DateTime(2003, 3, 9);
    EXPECT_EQ(Build(choice),
              " Where 1=1 And a.tDuring1<=#03/09/2003# and a.tDuring2>=#03/07/2003#");
    choice.from.reset();
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDuring1<=#03/09/2003#");
}

TEST(FilterText, TextsBecomePatternsOrAreComparedAsTheyStand) {
    Filter choice;
    choice.title = " abc ";
    choice.content = "a_c";
    choice.doer = "张三 ";
    choice.user = "李四";
    choice.guest = "*";
    choice.company = "  ";
    choice.states = Filter::States::InHand;
    EXPECT_EQ(Build(choice),
              " Where 1=1 And a.taskTitle like '%abc%' And a.fContent like 'a_c'"
              " And a.tDoneMan ='张三 ' And a.fUser ='李四' And a.fGuest like '%'"
              " And b.CompName like '%' And a.tDone=2");
}

TEST(FilterText, ACompanyOfTheHostMayHaveAnApostrophe) {
    Filter choice;
    choice.company = "O'Brien & Co";
    EXPECT_EQ(Build(choice), " Where 1=1 And b.CompName like '%O_Brien & Co%'");
}

TEST(FilterText, TheRowForWhatIsNotDoneTakesWhatIsInHandToo) {
    Filter choice;
    choice.states = Filter::States::NotYetDone;
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDone<>1");
}

TEST(FilterText, OnlyTheThreeStatesFilter) {
    Filter choice;
    choice.states = Filter::States::NotDone;
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDone=0");
    choice.states = Filter::States::Done;
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDone=1");
    choice.states = Filter::States::All;
    EXPECT_EQ(Build(choice), " Where 1=1");
}

TEST(Filter, EachChoiceOfStatesTakesItsOwnAndNoOther) {
    using enum ItemState;
    struct Case {
        Filter::States states;
        std::vector<ItemState> taken;
    };
    for (const Case& one : std::vector<Case>{{Filter::States::NotDone, {NotDone}},
                                             {Filter::States::Done, {Done}},
                                             {Filter::States::InHand, {InHand}},
                                             {Filter::States::All, {NotDone, Done, InHand}},
                                             {Filter::States::NotYetDone, {NotDone, InHand}}}) {
        Filter filter;
        filter.states = one.states;
        std::vector<ItemState> taken;
        for (const ItemState state : {NotDone, Done, InHand}) {
            if (filter.Takes(state)) taken.push_back(state);
        }
        EXPECT_EQ(taken, one.taken) << Row(one.states);
    }
}

}  // namespace
}  // namespace zv::items
