// Six days at work in a moment: the clock goes from one look to the next, and a user answers what
// comes up as he likes. A second reckoning says what must stand in the window, and how often it may
// come up.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>
#include <set>

#include "application/test_application.h"
#include "reminders/put_off.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {
namespace {

/// Counts what hosts hear of reminders.
class Counting final : public PartialHostEvents {
 public:
    void ReminderShown(std::int32_t count) override { shown += count; }
    void ReminderActed(std::int32_t, std::int16_t) override { acted++; }

    int shown = 0;
    int acted = 0;
};

class SixDays : public testing::TestWithParam<unsigned> {
 protected:
    static constexpr int kItems = 60;
    static constexpr int kMinutes = 5 * 24 * 60;

    SixDays() : random_(GetParam()) {
        stage.session.listener = &heard;
        stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
        stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(20,'mnuZjComp')");
        stage.session.state.myPower = std::string(350, '1');
        stage.session.state.UserName = "张三";
        stage.Sql("delete from tTaskList");
        stage.clock.Set(kStart);
    }
    ~SixDays() override { stage.session.listener = nullptr; }

    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    DateTime Now() const { return stage.clock.Now(); }

    void AddItem(int id) {
        const DateTime from = kStart.AddSeconds(60 * Below(kMinutes));
        const DateTime date = from.Date().AddDays(Below(3));
        stage.Sql(
            "insert into tTaskList(fID,fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
            "values(" +
            std::to_string(id) + ",0,'item " + std::to_string(id) + "','" + date.IsoDateTime() +
            "','" + from.IsoDateTime() + "','" + date.AddDays(1).IsoDateTime() + "',0)");
        next_[id] = from;
    }
    std::set<int> Expected() {
        std::set<int> due;
        for (const auto& [id, moment] : next_) {
            if (moment && *moment <= Now()) due.insert(id);
        }
        return due;
    }
    std::set<int> Listed() const {
        std::set<int> items;
        for (int row = 1; row <= window_->grdDue.DataRowCount(); row++) {
            items.insert(std::stoi(std::string(window_->grdDue.Cell(row, 6))));
        }
        return items;
    }
    void Compare() {
        const std::set<int> due = Expected();
        ASSERT_EQ(Listed(), due) << Now().IsoDateTime();
        ASSERT_EQ(window_->IsShown(), !due.empty()) << Now().IsoDateTime();
        for (const int id : due) {
            if (told_.insert(id).second) expectedShown_++;
        }
        ASSERT_EQ(heard.shown, expectedShown_) << Now().IsoDateTime();
    }
    void Answer() {
        const int row = 1 + Below(window_->grdDue.DataRowCount());
        const int id = std::stoi(std::string(window_->grdDue.Cell(row, 6)));
        stage.user.SelectRow(window_->grdDue, row);
        const DateTime now = Now();
        std::optional<DateTime> next;
        switch (Below(4)) {
            case 0:
                stage.user.Click(window_->cmdDone);
                break;
            case 1:
                stage.user.Click(window_->cmdDismiss);
                break;
            case 2:
                stage.user.Click(window_->cmdInHand);
                next = reminders::MomentOf(reminders::PutOff::TomorrowMorning, now);
                break;
            default: {
                const int choice = Below(static_cast<int>(reminders::kPutOffs.size()));
                stage.user.Pick(window_->cboLater, choice);
                stage.user.Click(window_->cmdLater);
                next =
                    reminders::MomentOf(reminders::kPutOffs[static_cast<std::size_t>(choice)], now);
            }
        }
        next_[id] = next;
        told_.erase(id);
        answers_++;
    }

    static inline const DateTime kStart{2003, 3, 7, 8, 0, 0};
    std::mt19937 random_;
    test::TestApplication stage;
    Counting heard;
    frmRemind* window_ = nullptr;
    std::map<int, std::optional<DateTime>> next_;  ///< when each comes (again); nothing: never
    std::set<int> told_;
    int expectedShown_ = 0;
    int answers_ = 0;
};

TEST_P(SixDays, EachReminderComesOnceAtItsTimeAndNoneAfterItsEnd) {
    for (int id = 1; id <= kItems; id++) AddItem(id);
    stage.control.StartReminders();
    window_ = stage.windows.Find<frmRemind>(frmRemind::kName);
    ASSERT_NE(window_, nullptr);
    int looks = 0;
    ASSERT_NO_FATAL_FAILURE(Compare());
    while (Now() < kStart.AddDays(6)) {
        while (!Expected().empty() && Below(3) > 0) {
            ASSERT_NO_FATAL_FAILURE(Answer());
            ASSERT_NO_FATAL_FAILURE(Compare());
        }
        stage.clock.Advance(window_->tmrLook.IntervalMs() / 1000);
        stage.user.Tick(window_->tmrLook);
        looks++;
        ASSERT_NO_FATAL_FAILURE(Compare());
    }
    EXPECT_EQ(heard.acted, answers_);
    EXPECT_GT(answers_, kItems / 2);
    // No look that the interval or a reminder did not ask for.
    EXPECT_LE(looks, 6 * 24 * 12 + heard.shown + 6);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, SixDays, testing::Range(1u, 6u));

}  // namespace
}  // namespace zv::windows
