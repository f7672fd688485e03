// Reminders kept in the database, on every engine.
#include "reminders/table_memory.h"

#include "kept_answers.h"

namespace zv::reminders {
namespace {

const DateTime kMorning(2003, 3, 7, 8, 0, 0);

class TableMemoryTest : public KeptAnswersTest {
 protected:
    std::vector<Answer> Answers(std::string_view user) { return Sorted(memory_.Answers(user)); }

    TableMemory memory_{database_};
};

ZV_ON_EVERY_ENGINE(TableMemoryTest);

TEST_P(TableMemoryTest, SaysThatThereIsNoTable) {
    const Answer answer = PutOffItem(1);
    EXPECT_EQ(KindOf([&] { memory_.Answers("Li"); }), ErrorKind::NoTable);
    EXPECT_EQ(KindOf([&] { memory_.Keep("Li", {answer}); }), ErrorKind::NoTable);
    EXPECT_EQ(KindOf([&] { memory_.Forget("Li", {answer.key}); }), ErrorKind::NoTable);
    EXPECT_EQ(KindOf([&] { memory_.FirstLook("Li", kMorning); }), ErrorKind::NoTable);
}

TEST_P(TableMemoryTest, KeepsWhatWasAnswered) {
    MakeSideTables();
    const Answer putOff{{3, 0, DateTime(2003, 3, 7, 14), "核对 O'Brien"}, kMorning};
    const Answer dismissed{{0, 9, std::nullopt, ""}, std::nullopt};
    memory_.Keep("Li", {putOff});
    memory_.Keep("Li", {dismissed});
    EXPECT_EQ(Answers("Li"), (std::vector{dismissed, putOff}));
}

TEST_P(TableMemoryTest, KeepsEachUsersOwn) {
    MakeSideTables();
    const Answer one = PutOffItem(1);
    const Answer other = PutOffItem(1, kMorning.AddDays(1));
    memory_.Keep("O'Brien", {one});
    memory_.Keep("O_Brien", {other});
    EXPECT_EQ(Answers("O'Brien"), std::vector{one});
    EXPECT_EQ(Answers("O_Brien"), std::vector{other});
    EXPECT_EQ(Answers("o'brien"), std::vector{one}) << "names have no letter case";
    EXPECT_EQ(Answers("Li"), std::vector<Answer>());
    memory_.Forget("O'Brien", {one.key});
    EXPECT_EQ(Answers("O'Brien"), std::vector<Answer>());
    EXPECT_EQ(Answers("O_Brien"), std::vector{other});
}

TEST_P(TableMemoryTest, ALaterAnswerTakesThePlaceOfAnEarlierOne) {
    MakeSideTables();
    memory_.Keep("Li", {PutOffItem(1)});
    memory_.Keep("Li", {PutOffItem(2)});
    Answer again = PutOffItem(1, kMorning.AddDays(1));
    again.key.title = "u";
    memory_.Keep("Li", {again});
    EXPECT_EQ(Answers("Li"), (std::vector{again, PutOffItem(2)}));
    again.until.reset();
    memory_.Keep("Li", {again});
    EXPECT_EQ(Answers("Li"), (std::vector{again, PutOffItem(2)}));
}

TEST_P(TableMemoryTest, AnotherDateIsAnotherReminder) {
    MakeSideTables();
    const Answer one = PutOffItem(1);
    Answer other = one;
    other.key.date = DateTime(2003, 3, 8);
    Answer dateless = one;
    dateless.key.date.reset();
    for (const Answer& answer : {one, other, dateless}) memory_.Keep("Li", {answer});
    EXPECT_EQ(Answers("Li"), (std::vector{dateless, one, other}));
    memory_.Forget("Li", {dateless.key});
    EXPECT_EQ(Answers("Li"), (std::vector{one, other}));
}

TEST_P(TableMemoryTest, WhatWasNotKeptIsForgottenWithoutAWord) {
    MakeSideTables();
    memory_.Keep("Li", {PutOffItem(1)});
    memory_.Forget("Li", {PutOffItem(2).key});
    memory_.Forget("Wang", {PutOffItem(1).key});
    EXPECT_EQ(Answers("Li"), std::vector{PutOffItem(1)});
}

TEST_P(TableMemoryTest, TheFirstLookIsTheFirstEver) {
    MakeSideTables();
    EXPECT_EQ(memory_.FirstLook("O'Brien", kMorning), kMorning);
    EXPECT_EQ(memory_.FirstLook("O'Brien", kMorning.AddDays(9)), kMorning);
    EXPECT_EQ(memory_.FirstLook("O_Brien", kMorning.AddDays(9)), kMorning.AddDays(9));
    EXPECT_EQ(Answers("O'Brien"), std::vector<Answer>()) << "it is no answer";
}

TEST_P(TableMemoryTest, AFirstLookThatIsStillToComeWasNotedByAWrongClock) {
    MakeSideTables();
    EXPECT_EQ(memory_.FirstLook("Li", kMorning.AddDays(365)), kMorning.AddDays(365));
    EXPECT_EQ(memory_.FirstLook("Li", kMorning), kMorning);
    EXPECT_EQ(memory_.FirstLook("Li", kMorning.AddDays(9)), kMorning);
}

}  // namespace
}  // namespace zv::reminders
