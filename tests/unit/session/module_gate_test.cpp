#include "session/module_gate.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv {
namespace {

class ModuleGate : public testing::Test {
 protected:
    ModuleGate() {
        stage.Sql(
            "insert into tSysFunc(SerialNo,model_Name,Model_Name_0,Model_Name_1,\"password\","
            "NoUse_) values(10,'mnuCardPlan','客户计划','客戶計劃','',0),"
            "(20,'mnuSecret','机密','機密',' Secret ',0),(30,'mnuOld','旧模块','舊模塊','',1),"
            "(0,'mnuNone','无号','無號','',0),(32767,'mnuLast','末','末','',0)");
        GrantAll();
    }
    void GrantAll() { stage.session.state.myPower.assign(350, '1'); }
    void Deny(std::size_t position) { stage.session.state.myPower[position - 1] = '0'; }
    std::int16_t Check(const std::string& name, std::int16_t mode = 0, std::int16_t launch = 0) {
        return CheckModule(stage.session, name, mode, launch);
    }
    test::TestApplication stage;
};

TEST_F(ModuleGate, AnEmptyNameIsGrantedWithoutALook) {
    EXPECT_EQ(Check(""), 1);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(ModuleGate, AnUnknownModuleAnswersMinusAThousand) {
    EXPECT_EQ(Check("mnuNobody"), -1000);
    EXPECT_EQ(Check("mnuNone"), -1000);
}

TEST_F(ModuleGate, SendsExactlyTheLookUp) {
    Check("mnuCardPlan");
    EXPECT_EQ(stage.statements.Take(),
              std::vector<std::string>{
                  "select SerialNo,model_Name,Model_Name_0,SecondPass,password from tSysFunc Where "
                  "NoUse_=0 And Model_Name = 'mnuCardPlan' or Model_Name_0 = 'mnuCardPlan'"});
}

TEST_F(ModuleGate, AnswersTheRightsPosition) {
    EXPECT_EQ(Check("mnuCardPlan"), 10);
    EXPECT_EQ(Check("mnuCardPlan", 4), 14);
}

TEST_F(ModuleGate, AMissingRightDeniesWithoutAPrompt) {
    Deny(20);
    EXPECT_EQ(Check("mnuSecret"), -20);
    EXPECT_TRUE(stage.dialogs.prompts.empty());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(ModuleGate, RightsBeyondTheStringAreMissing) {
    stage.session.state.myPower = "1";
    EXPECT_EQ(Check("mnuCardPlan"), -10);
    stage.session.state.myPower.clear();
    EXPECT_EQ(Check("mnuCardPlan"), -10);
}

TEST_F(ModuleGate, AnyNonZeroDigitIsARight) {
    stage.session.state.myPower[9] = '7';
    EXPECT_EQ(Check("mnuCardPlan"), 10);
    stage.session.state.myPower[9] = 'x';
    EXPECT_EQ(Check("mnuCardPlan"), -10);
}

TEST_F(ModuleGate, AModuleWithoutPasswordOpensWithoutAPrompt) {
    EXPECT_EQ(Check("mnuCardPlan"), 10);
    EXPECT_TRUE(stage.dialogs.prompts.empty());
}

TEST_F(ModuleGate, BlanksAroundTheRightPasswordAreAccepted) {
    stage.dialogs.inputs.push_back("  Secret ");
    EXPECT_EQ(Check("mnuSecret"), 20);
    EXPECT_EQ(stage.dialogs.prompts, std::vector<std::string>{"Please input the Model password !"});
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(ModuleGate, AWrongPasswordIsReportedAndDenies) {
    stage.dialogs.inputs.push_back("secret");
    EXPECT_EQ(Check("mnuSecret"), -20);
    EXPECT_EQ(stage.dialogs.messages,
              std::vector<std::string>{"48|Deny Access: The Model password is not valid!"});
    stage.dialogs.inputs.push_back(std::nullopt);
    EXPECT_EQ(Check("mnuSecret"), -20);
    EXPECT_EQ(stage.dialogs.prompts.size(), 2u);
}

TEST_F(ModuleGate, AModuleOutOfUseIsFoundByItsLanguageNameOnly) {
    EXPECT_EQ(Check("mnuOld"), -1000);
    EXPECT_EQ(Check("旧模块"), 30);
    stage.session.state.Language = 1;
    EXPECT_EQ(Check("旧模块"), -1000);
    EXPECT_EQ(Check("舊模塊"), 30);
}

TEST_F(ModuleGate, APositionBeyondSixteenBitsOverflows) {
    try {
        Check("mnuLast", 1);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
}

TEST_F(ModuleGate, APositionBeforeTheFirstRightIsAnErrorAndNoGrant) {
    EXPECT_THROW(Check("mnuCardPlan", -20), RuntimeError);
}

TEST_F(ModuleGate, LaunchHandsTheModuleToTheRunner) {
    stage.session.state.SQLData = 0;
    stage.session.state.UserID = "sa";
    stage.session.state.Default = "db";
    stage.session.state.Password = "p";
    EXPECT_EQ(Check("mnuCardPlan", 2, 1), 12);
    EXPECT_EQ(Check("mnuCardPlan", 3, 1), 13);
    EXPECT_EQ(Check("mnuCardPlan", 0, 1), 10);
    ASSERT_EQ(stage.modules.started.size(), 3u);
    const platform::ModuleStart& start = stage.modules.started[0];
    EXPECT_EQ(start.moduleName, "mnuCardPlan");
    EXPECT_EQ(start.heading, "修改: 客户计划");
    EXPECT_EQ(start.startMode, 9);
    EXPECT_EQ(start.userName, "张三");
    EXPECT_EQ(start.connection.dataPath, stage.Path("t.db"));
    EXPECT_EQ(start.connection.login, "sa");
    EXPECT_EQ(start.connection.database, "db");
    EXPECT_EQ(start.connection.password, "p");
    EXPECT_EQ(stage.modules.started[1].heading, "删除: 客户计划");
    EXPECT_EQ(stage.modules.started[2].heading, "客户计划");
}

TEST_F(ModuleGate, EveryModeAboveZeroHasAHeading) {
    for (std::int16_t mode = 1; mode <= 5; mode++) Check("mnuCardPlan", mode, 1);
    std::vector<std::string> headings;
    for (const auto& start : stage.modules.started) headings.push_back(start.heading);
    EXPECT_EQ(headings,
              (std::vector<std::string>{"修改: 客户计划", "修改: 客户计划", "删除: 客户计划",
                                        "修改: 客户计划", "修改: 客户计划"}));
}

TEST_F(ModuleGate, AModeBelowOneHasNoHeading) {
    Check("mnuCardPlan", -1, 1);
    Check("mnuCardPlan", 0, 1);
    ASSERT_EQ(stage.modules.started.size(), 2u);
    EXPECT_EQ(stage.modules.started[0].heading, "客户计划");
    EXPECT_EQ(stage.modules.started[1].heading, "客户计划");
}

TEST_F(ModuleGate, TheSecondPassIsANumber) {
    stage.Sql("update tSysFunc set SecondPass='2.5' where model_Name='mnuCardPlan'");
    EXPECT_EQ(Check("mnuCardPlan"), 10);
    stage.Sql("update tSysFunc set SecondPass='' where model_Name='mnuCardPlan'");
    EXPECT_EQ(Check("mnuCardPlan"), 10);
    stage.Sql("update tSysFunc set SecondPass='two' where model_Name='mnuCardPlan'");
    try {
        Check("mnuCardPlan");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
    }
}

TEST_F(ModuleGate, ADeniedModuleIsNotLaunched) {
    Deny(10);
    Check("mnuCardPlan", 0, 1);
    Check("mnuSecret", 0, 1);
    EXPECT_TRUE(stage.modules.started.empty());
}

TEST_F(ModuleGate, DatabaseErrorsReachTheCaller) {
    stage.Sql("drop table tSysFunc");
    EXPECT_THROW(Check("mnuCardPlan"), RuntimeError);
}

}  // namespace
}  // namespace zv
