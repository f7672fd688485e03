#include "forms/date_picker.h"
#include "forms/timer.h"
#include "forms/up_down.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct DatesForm : TestForm {
    explicit DatesForm(WindowSystem& windows) : TestForm(windows) {
        dtpFrom.SetMayBeEmpty(true);
        dtpWhen.SetFormat(DateFormat::DateTime);
    }
    DatePicker dtpFrom{*this, "dtpFrom"};
    DatePicker dtpWhen{*this, "dtpWhen"};
    UpDown updDays{*this, "updDays"};
    Timer tmrPoll{*this, "tmrPoll", 60000};
};

class Dates : public Contract {
 protected:
    Dates() : form(windows_.Create<DatesForm>()) {
        Arrange(form);
        form.dtpFrom.onChange = [this] { events_.push_back("from"); };
        form.dtpWhen.onChange = [this] { events_.push_back("when"); };
    }
    DatesForm& form;
};

TEST_F(Dates, APickerThatMayBeEmptyStartsEmpty) {
    form.Show(false);
    EXPECT_EQ(Read(form.dtpFrom, "date"), "");
    EXPECT_FALSE(form.dtpFrom.Value());
}

TEST_F(Dates, SettingADateRaisesChangeOnlyWhenItChanges) {
    form.Show(false);
    form.dtpFrom.SetValue(DateTime(2003, 3, 7));
    form.dtpFrom.SetValue(DateTime(2003, 3, 7));
    EXPECT_EQ(events_, std::vector<std::string>{"from"});
    EXPECT_EQ(Read(form.dtpFrom, "date"), "2003-03-07");
}

TEST_F(Dates, TheUserSetsAndEmptiesADate) {
    form.Show(false);
    driver().SetDate(form.dtpFrom, DateTime(2024, 2, 29));
    EXPECT_EQ(form.dtpFrom.Value(), DateTime(2024, 2, 29));
    driver().SetDate(form.dtpFrom, std::nullopt);
    EXPECT_FALSE(form.dtpFrom.Value());
    EXPECT_EQ(Read(form.dtpFrom, "date"), "");
    EXPECT_EQ(events_.size(), 2u);
}

TEST_F(Dates, APickerThatMayNotBeEmptyRefusesIt) {
    form.Show(false);
    EXPECT_THROW(form.dtpWhen.SetValue(std::nullopt), RuntimeError);
    EXPECT_THROW(driver().SetDate(form.dtpWhen, std::nullopt), driver::DriverError);
}

TEST_F(Dates, ADateWithATimeKeepsIt) {
    form.Show(false);
    form.dtpWhen.SetValue(DateTime(2003, 3, 7, 10, 30, 15));
    EXPECT_EQ(Read(form.dtpWhen, "date"), "2003-03-07T10:30:15");
    driver().SetDate(form.dtpWhen, DateTime(2003, 3, 8, 23, 59, 59));
    EXPECT_EQ(form.dtpWhen.Value(), DateTime(2003, 3, 8, 23, 59, 59));
}

TEST_F(Dates, PickingADayInTheCalendarKeepsTheTimeOfDay) {
    form.dtpWhen.SetValue(DateTime(2003, 3, 7, 10, 30));
    form.dtpWhen.UserPickDay(DateTime(2003, 4, 1));
    EXPECT_EQ(form.dtpWhen.Value(), DateTime(2003, 4, 1, 10, 30));
}

TEST_F(Dates, TheLimitsOfAPickerAreItsYears) {
    form.Show(false);
    form.dtpFrom.SetValue(DateTime(1601, 1, 1));
    EXPECT_EQ(Read(form.dtpFrom, "date"), "1601-01-01");
    form.dtpFrom.SetValue(DateTime(9999, 12, 31));
    EXPECT_EQ(Read(form.dtpFrom, "date"), "9999-12-31");
    EXPECT_THROW(form.dtpFrom.SetValue(DateTime(1600, 12, 31)), RuntimeError);
}

TEST_F(Dates, AnUpDownControlReportsItsDirection) {
    form.updDays.onUpClick = [this] { events_.push_back("up"); };
    form.updDays.onDownClick = [this] { events_.push_back("down"); };
    form.Show(false);
    driver().Spin(form.updDays, +1);
    driver().Spin(form.updDays, -1);
    driver().Spin(form.updDays, -1);
    EXPECT_EQ(events_, (std::vector<std::string>{"up", "down", "down"}));
}

TEST_F(Dates, ATimerTicksOnlyWhileItRuns) {
    form.tmrPoll.onTimer = [this] {
        events_.push_back("tick");
        form.tmrPoll.SetRunning(false);
    };
    form.Show(false);
    driver().Tick(form.tmrPoll);
    EXPECT_TRUE(events_.empty());
    form.tmrPoll.SetRunning(true);
    driver().Tick(form.tmrPoll);
    driver().Tick(form.tmrPoll);
    EXPECT_EQ(events_, std::vector<std::string>{"tick"});
}

}  // namespace
}  // namespace zv::contract
