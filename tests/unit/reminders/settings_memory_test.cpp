// Reminders kept on the workstation.
#include "reminders/settings_memory.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "doubles/memory_settings.h"

namespace zv::reminders {
namespace {

const DateTime kMorning(2003, 3, 7, 9, 30);

Answer AnswerFor(std::int32_t item, std::optional<DateTime> until = std::nullopt) {
    return {{0, item, DateTime(2003, 3, 7), "t"}, until};
}

class SettingsMemoryTest : public testing::Test {
 protected:
    doubles::MemorySettings settings_;
    SettingsMemory memory_{settings_};
};

TEST_F(SettingsMemoryTest, KeepsWhatWasAnsweredForTheNextProgram) {
    const Answer putOff{{3, 0, DateTime(2003, 3, 7, 14), "核对 'O''Brien'\n\t%"}, kMorning};
    const Answer dismissed{{0, 9, std::nullopt, ""}, std::nullopt};
    memory_.Keep("Li", {putOff});
    memory_.Keep("Li", {dismissed});
    EXPECT_EQ(SettingsMemory(settings_).Answers("Li"), (std::vector{putOff, dismissed}));
}

TEST_F(SettingsMemoryTest, KeepsEachUsersOwn) {
    memory_.Keep("Li", {AnswerFor(1)});
    EXPECT_TRUE(memory_.Answers("Wang").empty());
    EXPECT_EQ(memory_.Answers("LI").size(), 1u) << "names have no letter case";
}

TEST_F(SettingsMemoryTest, ALaterAnswerTakesThePlaceOfAnEarlierOne) {
    memory_.Keep("Li", {AnswerFor(1)});
    memory_.Keep("Li", {AnswerFor(2)});
    Answer again = AnswerFor(1, kMorning);
    again.key.title = "u";
    memory_.Keep("Li", {again});
    EXPECT_EQ(memory_.Answers("Li"), (std::vector{AnswerFor(2), again}));
}

TEST_F(SettingsMemoryTest, ForgetsOneAndKeepsTheOthers) {
    memory_.Keep("Li", {AnswerFor(1)});
    memory_.Keep("Li", {AnswerFor(2)});
    memory_.Forget("Li", {AnswerFor(1).key});
    memory_.Forget("Li", {AnswerFor(7).key});
    EXPECT_EQ(memory_.Answers("Li"), std::vector{AnswerFor(2)});
}

TEST_F(SettingsMemoryTest, TheLatestStayWhereMoreDoNotFit) {
    const auto most = static_cast<std::int32_t>(SettingsMemory::kMostAnswers);
    std::vector<Answer> many;
    for (std::int32_t i = 0; i < most + 5; i++) many.push_back(AnswerFor(i));
    settings_.Save(resources::kApplication, resources::kTaskSection, "Reminders of li",
                   ToText(many));
    memory_.Keep("Li", {AnswerFor(most + 5)});
    const auto kept = memory_.Answers("Li");
    EXPECT_EQ(kept.size(), SettingsMemory::kMostAnswers);
    EXPECT_EQ(kept.front(), AnswerFor(6));
    EXPECT_EQ(kept.back(), AnswerFor(most + 5));
}

TEST_F(SettingsMemoryTest, ManyAtOnceAreAsManyOneAfterAnother) {
    memory_.Keep("Li", {AnswerFor(1), AnswerFor(2), AnswerFor(3)});
    Answer again = AnswerFor(2);
    again.until = std::nullopt;
    memory_.Keep("Li", {again, AnswerFor(4)});
    EXPECT_EQ(memory_.Answers("Li"),
              (std::vector{AnswerFor(1), AnswerFor(3), again, AnswerFor(4)}));
    memory_.Forget("Li", {AnswerFor(1).key, AnswerFor(4).key, AnswerFor(9).key});
    EXPECT_EQ(memory_.Answers("Li"), (std::vector{AnswerFor(3), again}));
}

TEST_F(SettingsMemoryTest, LeavesOutWhatIsNoAnswer) {
    memory_.Keep("Li", {AnswerFor(1)});
    const std::string sound = settings_.values.at("zvTask.Reminders of li");
    for (const char* parts :
         {"x", "1|", "1|x||||t", "x|1||||t", "1|1|no day|||t", "1|1||no day||t", "1|1|||no day|t",
          "|||||", "1|1 ||||t", "1|9999999999||||t", "1|1||||t|u", "1|1|||t"}) {
        const std::string damage = text::Replace(parts, "|", "\x1F");
        EXPECT_EQ(AnswersIn(damage), std::vector<Answer>()) << parts;
        EXPECT_EQ(AnswersIn(damage + "\x1E" + sound), std::vector{AnswerFor(1)}) << parts;
    }
    EXPECT_EQ(AnswersIn(""), std::vector<Answer>());
}

TEST_F(SettingsMemoryTest, TheFirstLookIsTheFirstEver) {
    EXPECT_EQ(memory_.FirstLook("Li", kMorning), kMorning);
    EXPECT_EQ(memory_.FirstLook("li", kMorning.AddDays(9)), kMorning);
    EXPECT_EQ(memory_.FirstLook("Wang", kMorning.AddDays(9)), kMorning.AddDays(9));
}

TEST_F(SettingsMemoryTest, AFirstLookThatIsStillToComeWasNotedByAWrongClock) {
    EXPECT_EQ(memory_.FirstLook("Li", kMorning.AddDays(365)), kMorning.AddDays(365));
    EXPECT_EQ(memory_.FirstLook("Li", kMorning), kMorning);
    EXPECT_EQ(memory_.FirstLook("Li", kMorning.AddDays(9)), kMorning);
}

}  // namespace
}  // namespace zv::reminders
