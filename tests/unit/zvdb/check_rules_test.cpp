// The bounds of the rules that rows keep, on rows that no engine holds.
#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "base/number.h"
#include "base/text.h"
#include "zvdb/check.h"

namespace zv::zvdb {
namespace {

using Row = std::vector<std::optional<std::string>>;

class GivenRows final : public InspectedRows {
 public:
    explicit GivenRows(std::vector<Row> rows) : rows_(std::move(rows)) {}
    bool Next() override { return ++at_ <= rows_.size(); }
    bool IsNull(int column) const override { return !Cell(column); }
    std::int64_t Number(int column) const override {
        return static_cast<std::int64_t>(number::Val(Text(column)));
    }
    std::string Text(int column) const override { return Cell(column).value_or(""); }

 private:
    const std::optional<std::string>& Cell(int column) const {
        return rows_.at(at_ - 1).at(static_cast<std::size_t>(column));
    }
    std::vector<Row> rows_;
    std::size_t at_ = 0;
};

/// Answers the first question whose part is known.
class GivenDatabase final : public Inspected {
 public:
    std::unique_ptr<InspectedRows> Select(const std::string& sql) override {
        asked.push_back(sql);
        for (const auto& [part, rows] : answers) {
            if (text::Contains(sql, part)) return std::make_unique<GivenRows>(rows);
        }
        return std::make_unique<GivenRows>(std::vector<Row>());
    }
    std::set<std::string> Columns(const std::string&) override { return {}; }
    std::string IndexMaking(const std::string&) override { return {}; }
    std::string_view SideTables() const override { return {}; }
    std::string NotADate(const std::string& column) const override { return column + " is odd"; }

    std::map<std::string, std::vector<Row>> answers;
    std::vector<std::string> asked;
};

/// A plan that keeps all rules: monthly, with a window of a day ahead.
Row GoodPlan() {
    return {"7",
            "报表",
            "2003-01-01 00:00:00",
            "2003-12-31 00:00:00",
            "1",
            "1",
            "1",
            "31",
            "1",
            "1",
            "1",
            "李四",
            "王五"};
}

enum Column {
    kNumber,
    kTitle,
    kBegin,
    kEnd,
    kKind,
    kStep,
    kMonth,
    kDay,
    kWeek,
    kSide,
    kWidth,
    kSetter,
    kExecutor
};

/// What is said of the plan with these cells changed, without its name.
std::string Said(const std::vector<std::pair<Column, std::optional<std::string>>>& cells) {
    Row row = GoodPlan();
    for (const auto& [column, value] : cells) row.at(column) = value;
    GivenDatabase database;
    database.answers["order by TaskID"] = {row};
    std::vector<std::string> problems;
    rules::CheckPlans(database, problems);
    const std::string head = "plan " + row.at(kNumber).value_or("") + " ";
    for (std::string& problem : problems) {
        EXPECT_TRUE(problem.starts_with(head)) << problem;
        problem = problem.substr(head.size());
    }
    return text::Join(problems, "; ");
}
std::string Said(Column column, const std::optional<std::string>& value) {
    return Said({{column, value}});
}

TEST(CheckPlans, APlanThatKeepsAllRulesIsNotNamed) {
    EXPECT_EQ(Said({}), "");
}
TEST(CheckPlans, NumberAndTitleAreThere) {
    EXPECT_EQ(Said(kNumber, "0"), "has no number");
    EXPECT_EQ(Said(kNumber, std::nullopt), "has no number");
    EXPECT_EQ(Said(kTitle, "  "), "has no title");
    EXPECT_EQ(Said(kTitle, std::nullopt), "has no title");
}
TEST(CheckPlans, TextsHaveFiftyBytesInADoubleByteCodePage) {
    const std::string wide = "标标标标标标标标标标标标标标标标标标标标标标标标标";
    const std::string narrow(50, 'x');
    for (const std::string& most : {wide, narrow}) {
        EXPECT_EQ(Said({{kTitle, most}, {kSetter, most}, {kExecutor, most}}), "");
        EXPECT_EQ(Said(kTitle, most + "x"), "has a title of more than 50 bytes");
        for (const Column name : {kSetter, kExecutor}) {
            EXPECT_EQ(Said(name, most + "x"), "has a person's name of more than 50 bytes");
        }
    }
    // A character beyond the plain ones has two bytes, whatever it is.
    EXPECT_EQ(Said(kTitle, std::string(48, 'x') + "\x7F"
                                                  "a"),
              "");
    EXPECT_EQ(Said(kTitle, std::string(49, 'x') + "\u0080"), "has a title of more than 50 bytes");
}
TEST(CheckPlans, TheDaysAreInOrderAndOfFiveYears) {
    EXPECT_EQ(Said(kBegin, std::nullopt), "has no valid first or last day");
    EXPECT_EQ(Said(kBegin, "soon"), "has no valid first or last day");
    EXPECT_EQ(Said(kEnd, "2003-02-30"), "has no valid first or last day");
    EXPECT_EQ(Said(kEnd, "2003-01-01 00:00:00"), "");
    EXPECT_EQ(Said(kEnd, "2002-12-31 00:00:00"), "ends before it begins");
    EXPECT_EQ(Said(kEnd, "2008-12-31 00:00:00"), "");
    EXPECT_EQ(Said(kEnd, "2009-01-01 00:00:00"), "runs over more than five years");
}
TEST(CheckPlans, NumbersOfTheRecurrenceAreWithinTheirBounds) {
    const std::string kind = "has no valid kind of recurrence (CircleType 0 to 3)";
    for (const char* good : {"0", "1", "2", "3"}) EXPECT_EQ(Said(kKind, good), "") << good;
    for (const char* bad : {"-1", "4"}) EXPECT_EQ(Said(kKind, bad), kind) << bad;
    EXPECT_EQ(Said(kKind, std::nullopt), kind);
    const std::string step = "has a step that is not 1 to 999 (CircleValue)";
    for (const char* good : {"1", "999"}) EXPECT_EQ(Said(kStep, good), "") << good;
    for (const char* bad : {"0", "1000"}) EXPECT_EQ(Said(kStep, bad), step) << bad;
    EXPECT_EQ(Said(kStep, std::nullopt), step);
    const std::string side = "has no valid alert side (Type 1 to 3)";
    for (const char* good : {"1", "2", "3"}) EXPECT_EQ(Said(kSide, good), "") << good;
    for (const char* bad : {"0", "4"}) EXPECT_EQ(Said(kSide, bad), side) << bad;
    EXPECT_EQ(Said(kSide, std::nullopt), side);
    const std::string width = "has an alert width that is not 0 to 99 days (TypeValue)";
    for (const char* good : {"0", "28"}) EXPECT_EQ(Said(kWidth, good), "") << good;
    EXPECT_EQ(Said({{kWidth, "99"}, {kKind, "0"}}), "");
    for (const char* bad : {"-1", "100"}) EXPECT_EQ(Said(kWidth, bad), width) << bad;
    EXPECT_EQ(Said(kWidth, std::nullopt), width);
}
TEST(CheckPlans, TheDayIsOneThatTheKindNeeds) {
    const auto of = [](const char* kind, Column column, const char* value) {
        return Said({{kKind, kind}, {column, value}});
    };
    for (const char* good : {"1", "12"}) EXPECT_EQ(of("0", kMonth, good), "") << good;
    for (const char* bad : {"0", "13"}) EXPECT_EQ(of("0", kMonth, bad), "has no valid month");
    for (const char* kind : {"1", "2", "3"}) EXPECT_EQ(of(kind, kMonth, "13"), "") << kind;
    for (const char* kind : {"0", "1"}) {
        for (const char* good : {"1", "31"}) EXPECT_EQ(of(kind, kDay, good), "") << good;
        for (const char* bad : {"0", "32"}) {
            EXPECT_EQ(of(kind, kDay, bad), "has no valid day of the month") << kind << bad;
        }
    }
    for (const char* kind : {"2", "3"}) EXPECT_EQ(of(kind, kDay, "32"), "") << kind;
    for (const char* good : {"0", "6"}) EXPECT_EQ(of("3", kWeek, good), "") << good;
    for (const char* bad : {"-1", "7"}) EXPECT_EQ(of("3", kWeek, bad), "has no valid weekday");
    for (const char* kind : {"0", "1", "2"}) EXPECT_EQ(of(kind, kWeek, "7"), "") << kind;
}
TEST(CheckPlans, AlertWindowsOverlapWhereAllTheirNumbersAreValid) {
    const std::string overlap = "has alert windows that overlap";
    EXPECT_EQ(Said(kWidth, "29"), overlap);
    EXPECT_EQ(Said({{kSide, "3"}, {kWidth, "14"}}), "");
    EXPECT_EQ(Said({{kSide, "3"}, {kWidth, "15"}}), overlap);
    EXPECT_EQ(Said({{kWidth, "29"}, {kStep, "2"}}), "");
    // Of what is wrong by itself nothing follows.
    EXPECT_EQ(Said({{kWidth, "29"}, {kStep, "0"}}),
              "has a step that is not 1 to 999 (CircleValue)");
    EXPECT_EQ(Said({{kWidth, "29"}, {kSide, "0"}}), "has no valid alert side (Type 1 to 3)");
    EXPECT_EQ(Said({{kWidth, "100"}}), "has an alert width that is not 0 to 99 days (TypeValue)");
    EXPECT_EQ(Said({{kWidth, "29"}, {kKind, "4"}}),
              "has no valid kind of recurrence (CircleType 0 to 3)");
}

TEST(Find, NamesTheFirstFiveKeysAndHowManyThereAre) {
    const auto said = [](int found, int columns = 1) {
        GivenDatabase database;
        for (int i = 1; i <= found; i++) {
            database.answers["select x"].push_back({std::to_string(i), "b" + std::to_string(i)});
        }
        std::vector<std::string> problems;
        rules::Find(database, problems, "odd ones", "select x", columns);
        EXPECT_EQ(database.asked, std::vector<std::string>{"select x order by 1"});
        return text::Join(problems, "; ");
    };
    EXPECT_EQ(said(0), "");
    EXPECT_EQ(said(1), "odd ones: 1");
    EXPECT_EQ(said(5), "odd ones: 1, 2, 3, 4, 5");
    EXPECT_EQ(said(6), "odd ones: 1, 2, 3, 4, 5, ... (6 in all)");
    EXPECT_EQ(said(2, 2), "odd ones: 1.b1, 2.b2");
}

TEST(CheckItems, AsksEverythingInTheseWords) {
    GivenDatabase database;
    std::vector<std::string> problems;
    for (const auto check : {rules::CheckItems, rules::CheckRegistry}) check(database, problems);
    EXPECT_TRUE(problems.empty());
    // All is found where every question has an answer.
    database.answers["select"] = {{"1", "2"}};
    rules::CheckItems(database, problems);
    rules::CheckRegistry(database, problems);
    EXPECT_EQ(
        problems,
        (std::vector<std::string>{
            "guest items without a card: 1", "task items whose plan is gone: 1",
            "items of an unknown kind (fType 0 to 2): 1",
            "items in an unknown state (tDone 0 to 2): 1", "items without a valid date: 1",
            "items whose alert window is not made of dates: 1",
            "items whose alert window ends before it begins: 1", "items without a title: 1",
            "cards whose birthday is not a date: 1", "card numbers used more than once: 1",
            "staff codes used more than once: 1", "staff without a name: 1",
            "modules without a position in the rights (SerialNo 1 to 350): 1",
            "modules registered more than once: 1", "fields with more than one caption: 1.2"}));
    const auto asks = [&](const std::string& part) {
        return std::any_of(database.asked.begin(), database.asked.end(),
                           [&](const std::string& sql) { return text::Contains(sql, part); });
    };
    EXPECT_TRUE(asks("where a.fType=1 and c.fID is null"));
    EXPECT_TRUE(asks("where a.fType=0 and a.TaskID<>0 and p.TaskID is null and "));
    EXPECT_TRUE(asks("fType is null or fType not in (0,1,2)"));
    EXPECT_TRUE(asks("tDone is null or tDone not in (0,1,2)"));
    EXPECT_TRUE(asks("taskTime is null or taskTime is odd"));
    EXPECT_TRUE(
        asks("(tDuring1 is odd) or (tDuring2 is odd) or (tDuring1 is null and tDuring2 is "
             "not null) or (tDuring1 is not null and tDuring2 is null)"));
    EXPECT_TRUE(asks("from cards where Birthday is odd"));
}

}  // namespace
}  // namespace zv::zvdb
