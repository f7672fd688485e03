#include "plans/plan_store.h"

#include <gtest/gtest.h>

#include "plan_database.h"
#include "plans/plan_saving.h"

namespace zv::plans {
namespace {

class PlanStore : public testing::Test, protected PlanDatabase {
 protected:
    static Plan Monthly() {
        Plan plan;
        plan.taskId = 7;
        plan.title = "报表";
        plan.begin = DateTime(2003, 1, 1);
        plan.end = DateTime(2003, 4, 30);
        plan.day = 31;
        plan.setMan = "李四";
        plan.content = "月底报表";
        return plan;
    }
    PlanSave Save(const Plan& plan, const EditedPlan& edited = {}) {
        return PlanSaving(database, edited, questions_).Save(plan);
    }
    /// The plan as an editor has it that was just opened.
    EditedPlan Opened(std::int32_t number) {
        const auto row = Load(database, number);
        return {number, row, ValuesOf(PlanOf(*row))};
    }
    /// The plan is stored and opened, somebody else runs the statement, and another title is saved.
    PlanSave ChangeTitle(Plan plan, const std::string& othersChange) {
        Save(plan);
        const EditedPlan edited = Opened(plan.taskId);
        Sql(othersChange);
        plan.title = "月报";
        return Save(plan, edited);
    }

    int conflicts = 0;
    std::optional<store::RowMerge::Version> decision = store::RowMerge::Version::Own;
    int settersAsked = 0;
    bool savesWithoutSetter = true;

 private:
    PlanQuestions questions_{[this](const auto&, const auto&, const auto&) {
                                 conflicts++;
                                 return decision;
                             },
                             [this] {
                                 settersAsked++;
                                 // Who is asked once more ends it.
                                 return savesWithoutSetter && settersAsked == 1;
                             }};
};

TEST_F(PlanStore, ProposesTheNumberBehindTheGreatest) {
    EXPECT_EQ(ProposeNumber(database), "1");
    Sql("insert into tTaskSet(TaskID) values(3),(41)");
    EXPECT_EQ(ProposeNumber(database), "42");
}

TEST_F(PlanStore, GivesBackWhatIsSaved) {
    EXPECT_EQ(Save(Monthly()).outcome, PlanSave::Outcome::Saved);
    EXPECT_EQ(*Load(database, 7), ValuesOf(Monthly()));
    EXPECT_FALSE(Load(database, 8));
}

TEST_F(PlanStore, NamesAPlanByNumberAndTitle) {
    Save(Monthly());
    const auto name = LoadName(database, 7);
    ASSERT_TRUE(name);
    EXPECT_EQ(name->number + " " + name->title, "7 报表");
    EXPECT_FALSE(LoadName(database, 8));
}

TEST_F(PlanStore, DeletesAPlanWithItsItemsAndLeavesAVisit) {
    Save(Monthly());
    Sql("insert into tTaskList(TaskID,taskTitle,fType) values(7,'任务',0),(7,'拜访',1),(8,'别',0)");
    Delete(database, 7);
    EXPECT_EQ(Rows("select count(*) from tTaskSet"), "0");
    EXPECT_EQ(Rows("select taskTitle from tTaskList order by fID"), "拜访\n别");
}

TEST_F(PlanStore, RefusesANumberThatIsTaken) {
    Save(Monthly());
    const PlanSave save = Save(Monthly());
    EXPECT_EQ(save.outcome, PlanSave::Outcome::Refused);
    ASSERT_TRUE(save.refusal);
    EXPECT_EQ(save.refusal->field, PlanField::TaskID);
    EXPECT_EQ(Rows("select count(*) from tTaskSet"), "1");
}

TEST_F(PlanStore, JoinsAChangeWithWhatAnotherStoredMeanwhile) {
    const PlanSave save = ChangeTitle(Monthly(), "update tTaskSet set Content='他的'");
    EXPECT_EQ(save.outcome, PlanSave::Outcome::Saved);
    EXPECT_TRUE(save.joined);
    EXPECT_EQ(conflicts, 0);
    EXPECT_EQ(Rows("select taskTitle,Content from tTaskSet"), "月报|他的");
}

TEST_F(PlanStore, ASetterThatAnotherTookAwayIsAskedAboutOnce) {
    const PlanSave save = ChangeTitle(Monthly(), "update tTaskSet set setMan=''");
    EXPECT_EQ(settersAsked, 1);
    EXPECT_EQ(save.outcome, PlanSave::Outcome::Saved);
    EXPECT_TRUE(save.joined);
    EXPECT_EQ(Rows("select taskTitle,setMan from tTaskSet"), "月报|");
}

TEST_F(PlanStore, WithoutTheSetterThatAnotherTookAwayThePlanIsSavedOnlyIfTheUserSaysSo) {
    savesWithoutSetter = false;
    const PlanSave save = ChangeTitle(Monthly(), "update tTaskSet set setMan=''");
    EXPECT_EQ(settersAsked, 1);
    EXPECT_EQ(save.outcome, PlanSave::Outcome::CalledOff);
    EXPECT_TRUE(save.joined);
    EXPECT_EQ(Rows("select taskTitle,setMan from tTaskSet"), "报表|");
}

TEST_F(PlanStore, WhoEnteredNoSetterWasAskedBefore) {
    Plan plan = Monthly();
    plan.setMan.clear();
    EXPECT_EQ(ChangeTitle(plan, "update tTaskSet set Content='他的'").outcome,
              PlanSave::Outcome::Saved);
    EXPECT_EQ(settersAsked, 0);
    EXPECT_EQ(Rows("select taskTitle,Content from tTaskSet"), "月报|他的");
}

TEST_F(PlanStore, WritesTheVersionThatIsDecidedFor) {
    Save(Monthly());
    const EditedPlan edited = Opened(7);
    Sql("update tTaskSet set Content='他的'");
    Plan plan = Monthly();
    plan.content = "我的";
    decision = std::nullopt;
    EXPECT_EQ(Save(plan, edited).outcome, PlanSave::Outcome::CalledOff);
    EXPECT_EQ(Rows("select Content from tTaskSet"), "他的");
    decision = store::RowMerge::Version::Own;
    EXPECT_EQ(Save(plan, edited).outcome, PlanSave::Outcome::Saved);
    EXPECT_EQ(Rows("select Content from tTaskSet"), "我的");
    EXPECT_EQ(conflicts, 2);
}

}  // namespace
}  // namespace zv::plans
