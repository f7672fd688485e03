// What is due at a moment, and when the next look is.
#include "reminders/look.h"

#include <gtest/gtest.h>

#include <string>

namespace zv::reminders {
namespace {

const DateTime kNow(2003, 3, 7, 14, 0, 0);
const DateTime kFirstLook(2003, 3, 1, 9, 0, 0);

class Looking : public testing::Test {
 protected:
    /// An item of that moment, as the editor enters it.
    Subject& Add(DateTime moment, const std::string& title = "t") {
        Subject& subject = subjects_.emplace_back();
        subject.item = static_cast<std::int32_t>(subjects_.size());
        subject.title = title;
        subject.date = moment;
        subject.from = moment;
        return subject;
    }
    Look LookNow(DateTime now = kNow) {
        circumstances_.now = now;
        return LookAt(subjects_, answers_, circumstances_);
    }
    std::string Titles(DateTime now = kNow) {
        std::string titles;
        for (const Due& due : LookNow(now).due) titles += due.subject.title + ' ';
        return titles;
    }

    std::vector<Subject> subjects_;
    std::vector<Answer> answers_;
    Circumstances circumstances_{.user = "Li", .now = kNow, .firstLook = kFirstLook};
};

TEST_F(Looking, AnItemIsDueFromTheBeginningOfItsAlert) {
    Add(kNow);
    EXPECT_EQ(Titles(kNow.AddSeconds(-1)), "");
    EXPECT_EQ(Titles(kNow), "t ");
    EXPECT_EQ(Titles(kNow.AddDays(400)), "t ") << "until it is done";
}

TEST_F(Looking, WhatIsInHandIsDueAndWhatIsDoneIsNot) {
    Add(kNow, "in hand").state = items::ItemState::InHand;
    Add(kNow, "done").state = items::ItemState::Done;
    EXPECT_EQ(Titles(), "in hand ");
}

TEST_F(Looking, IsOverdueFromTheDayAfterItsDate) {
    Add(DateTime(2003, 3, 6, 23, 59, 59));
    EXPECT_EQ(LookNow(DateTime(2003, 3, 6, 23, 59, 59)).due[0].daysOverdue, 0);
    EXPECT_EQ(LookNow(DateTime(2003, 3, 7)).due[0].daysOverdue, 1);
    EXPECT_EQ(LookNow(DateTime(2003, 3, 9, 12, 0, 0)).due[0].daysOverdue, 3);
    EXPECT_TRUE(LookNow(DateTime(2003, 3, 7)).due[0].IsOverdue());
}

TEST_F(Looking, WhatHasNoDateIsNeverOverdue) {
    Add(kNow).date.reset();
    EXPECT_EQ(LookNow(kNow.AddDays(9)).due.at(0).daysOverdue, 0);
}

TEST_F(Looking, WhatWasOverdueBeforeTheFirstLookRemindsNobody) {
    Add(kFirstLook.Date().AddSeconds(-1), "before");
    Add(kFirstLook.Date(), "that day");
    EXPECT_EQ(Titles(), "that day ");
}

TEST_F(Looking, AWideAlertIsDueBeforeItsDay) {
    Subject& subject = Add(kNow.Date().AddDays(3));
    subject.from = kNow.Date().AddDays(-2);
    EXPECT_EQ(LookNow().due.at(0).daysOverdue, 0);
}

TEST_F(Looking, ShowsOwnItemsOrAll) {
    Add(kNow, "mine").people.doer = "li";
    Add(kNow, "other").people.doer = "Wang";
    Add(kNow, "everybody's");
    EXPECT_EQ(Titles(), "everybody's mine ");
    circumstances_.whose = Whose::All;
    EXPECT_EQ(Titles(), "everybody's mine other ");
}

TEST_F(Looking, ThePutOffComesAgainAtItsTime) {
    Add(kNow.AddSeconds(-60));
    answers_ = {{KeyOf(subjects_[0]), kNow.AddSeconds(300)}};
    EXPECT_EQ(Titles(), "");
    EXPECT_EQ(LookNow().next, kNow.AddSeconds(300));
    EXPECT_EQ(Titles(kNow.AddSeconds(300)), "t ");
}

TEST_F(Looking, WhatAClockThatWasAheadPutOffComesAgainWhenItIsSet) {
    Add(kNow.AddSeconds(-60));
    const DateTime ahead = kNow.AddDays(365);
    answers_ = {{KeyOf(subjects_[0]), ahead.AddSeconds(300), ahead}};
    EXPECT_EQ(Titles(), "t ");
    // Workstations in other places of the world write down other hours.
    answers_[0].given = kNow.AddDays(1);
    EXPECT_EQ(Titles(), "");
    // What it dismissed was meant for good.
    answers_ = {{KeyOf(subjects_[0]), std::nullopt, ahead}};
    EXPECT_EQ(Titles(), "");
}

TEST_F(Looking, PuttingOffBringsNothingForward) {
    Add(kNow.AddSeconds(60));
    answers_ = {{KeyOf(subjects_[0]), kNow.AddSeconds(-60)}};
    EXPECT_EQ(Titles(), "");
    EXPECT_EQ(Titles(kNow.AddSeconds(60)), "t ");
}

TEST_F(Looking, TheDismissedStaysAwayUntilItsDateOrTitleChanges) {
    Add(kNow);
    answers_ = {{KeyOf(subjects_[0]), std::nullopt}};
    EXPECT_EQ(Titles(kNow.AddDays(30)), "");
    subjects_[0].title = "u";
    EXPECT_EQ(Titles(), "u ");
    subjects_[0].title = "t";
    subjects_[0].date = subjects_[0].from = kNow.AddSeconds(-1);
    EXPECT_EQ(Titles(), "t ");
}

TEST_F(Looking, TheLastOfSeveralAnswersCounts) {
    Add(kNow);
    const Key key = KeyOf(subjects_[0]);
    answers_ = {{key, std::nullopt}, {key, kNow}};
    EXPECT_EQ(Titles(), "t ");
}

TEST_F(Looking, TheLongestOverdueComesFirst) {
    Add(kNow.AddSeconds(-7200), "noon");
    Add(kNow.AddDays(-1), "yesterday");
    Add(kNow, "two");
    Add(kNow.AddDays(-2), "before");
    EXPECT_EQ(Titles(), "before yesterday noon two ");
}

TEST_F(Looking, LooksAgainAfterTheIntervalAtTheLatest) {
    EXPECT_EQ(LookNow().next, kNow.AddSeconds(300));
    circumstances_.interval = 60;
    EXPECT_EQ(LookNow().next, kNow.AddSeconds(3600));
    for (const int none : {0, -5}) {
        circumstances_.interval = none;
        EXPECT_EQ(LookNow().next, kNow.AddSeconds(60)) << "no faster than once a minute";
    }
}

TEST_F(Looking, LooksAgainWhenTheNextOneFallsDue) {
    Add(kNow.AddSeconds(200));
    Add(kNow.AddSeconds(100));
    Add(kNow.AddSeconds(900));
    EXPECT_EQ(LookNow().next, kNow.AddSeconds(100));
}

TEST_F(Looking, LooksAgainAtMidnightWhileSomethingIsDue) {
    const DateTime late(2003, 3, 7, 23, 58, 0);
    EXPECT_EQ(LookNow(late).next, late.AddSeconds(300));
    Add(kNow);
    EXPECT_EQ(LookNow(late).next, DateTime(2003, 3, 8));
}

TEST_F(Looking, WaitsForNothingThatConcernsOthersOrIsDone) {
    Add(kNow.AddSeconds(100)).people.doer = "Wang";
    Add(kNow.AddSeconds(100)).state = items::ItemState::Done;
    EXPECT_EQ(LookNow().next, kNow.AddSeconds(300));
}

TEST_F(Looking, AClockThatIsSetBackHidesWhatIsNotYetDue) {
    Add(kNow);
    EXPECT_EQ(Titles(), "t ");
    EXPECT_EQ(Titles(kNow.AddDays(-365)), "");
    EXPECT_EQ(LookNow(kNow.AddDays(-365)).next, kNow.AddDays(-365).AddSeconds(300));
}

}  // namespace
}  // namespace zv::reminders
