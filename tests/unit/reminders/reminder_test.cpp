// Whose a reminder is, and what is kept of it.
#include "reminders/reminder.h"

#include <gtest/gtest.h>

namespace zv::reminders {
namespace {

TEST(Concerns, WhoeverTheItemOrItsPlanNames) {
    for (std::string People::*name :
         {&People::doer, &People::setter, &People::planDoer, &People::planSetter}) {
        Subject subject;
        subject.people.*name = "Li";
        EXPECT_TRUE(Concerns(subject, "Li"));
        EXPECT_TRUE(Concerns(subject, "LI")) << "the databases compare without regard to case";
        EXPECT_FALSE(Concerns(subject, "Wang"));
        EXPECT_FALSE(Concerns(subject, "")) << "an empty name is nobody's";
    }
}

TEST(Concerns, EverybodyWhereNobodyIsNamed) {
    EXPECT_TRUE(Concerns(Subject(), "Li"));
    EXPECT_TRUE(Concerns(Subject(), ""));
}

TEST(KeyOf, AnItemOfAPlanIsKnownByPlanAndDate) {
    Subject subject{.item = 7, .plan = 3, .title = "t", .date = DateTime(2003, 3, 7)};
    const Key key = KeyOf(subject);
    subject.item = 8;
    EXPECT_EQ(KeyOf(subject), key) << "generating gives other numbers";
    subject.date = DateTime(2003, 3, 8);
    EXPECT_NE(KeyOf(subject), key);
}

TEST(KeyOf, AnyOtherItemIsKnownByItsNumber) {
    Subject subject{.item = 7, .title = "t", .date = DateTime(2003, 3, 7)};
    const Key key = KeyOf(subject);
    subject.item = 8;
    EXPECT_NE(KeyOf(subject), key);
}

TEST(KeyOf, HoldsForOneDateAndTitleOnly) {
    for (const std::int32_t plan : {0, 3}) {
        const Subject subject{.item = 7, .plan = plan, .title = "t", .date = DateTime(2003, 3, 7)};
        Subject other = subject;
        other.title = "T";
        EXPECT_NE(KeyOf(other), KeyOf(subject));
        other = subject;
        other.date = DateTime(2003, 3, 7, 0, 0, 1);
        EXPECT_NE(KeyOf(other), KeyOf(subject));
        other.date.reset();
        EXPECT_NE(KeyOf(other), KeyOf(subject));
    }
}

}  // namespace
}  // namespace zv::reminders
