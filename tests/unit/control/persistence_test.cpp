#include "control/persistence.h"

#include <gtest/gtest.h>

#include "application/test_application.h"
#include "doubles/text_bag.h"

namespace zv {
namespace {

using Lines = std::vector<std::string>;

TEST(InitProperties, SetsTheStartValues) {
    test::TestApplication stage;
    ControlState& state = stage.session.state;
    state = {};
    state.myTaskID = 5;
    state.UserName = state.CompName = state.myName = "x";
    state.UserID = "x";
    state.Default = "x";
    state.ZgName = "kept";
    state.showMode = state.Language = state.AlertType = state.SQLData = state.hostSQLData = 1;
    state.Copyright = true;
    stage.control.UserControl_InitProperties();
    EXPECT_EQ(state.myTaskID, 0);
    EXPECT_EQ(state.UserName + state.CompName + state.myName, "");
    EXPECT_TRUE(state.UserID.IsEmpty() && state.Default.IsEmpty());
    EXPECT_EQ(state.showMode + state.Language + state.AlertType + state.SQLData, 0);
    EXPECT_EQ(state.hostSQLData, 0);
    EXPECT_FALSE(state.Copyright);
    EXPECT_EQ(state.Password, "0");
    EXPECT_EQ(state.UserPath, "C:\\App\\taskAlert.mdb");
    EXPECT_EQ(state.ZgName, "kept");
}

TEST(InitProperties, AddsTheBackslashOnlyWhereItIsMissing) {
    test::TestApplication stage;
    stage.files.folder = "C:\\";
    stage.control.UserControl_InitProperties();
    EXPECT_EQ(stage.session.state.UserPath, "C:\\taskAlert.mdb");
}

TEST(ReadProperties, AsksForTheKeysInTheirOrderAndCase) {
    test::TestApplication stage;
    doubles::TextBag bag;
    stage.control.UserControl_ReadProperties(bag);
    EXPECT_EQ(bag.readKeys,
              (Lines{"myName", "Language", "AlertType", "ZgName", "myPower", "myModel", "Copyright",
                     "showmode", "UserPath", "Password", "SQLData", "UserID", "Default"}));
}

TEST(ReadProperties, AnEmptyBagGivesTheDefaults) {
    test::TestApplication stage;
    ControlState& state = stage.session.state;
    state.myModel = "x";
    doubles::TextBag bag;
    stage.control.UserControl_ReadProperties(bag);
    EXPECT_EQ(state.myPower, std::string(350, '0'));
    EXPECT_EQ(state.UserPath, "");
    EXPECT_EQ(state.Password, "");
    EXPECT_EQ(state.myModel, "");
    EXPECT_EQ(state.UserName, "张三");
}

TEST(WriteProperties, WritesWhatDiffersFromItsDefaultInOrder) {
    test::TestApplication stage;
    ControlState& state = stage.session.state;
    state.myName = "n";
    state.Language = 1;
    state.AlertType = 2;
    state.UserPath = "p";
    state.UserName = "u";
    state.ZgName = "z";
    state.myPower = "1";
    state.myModel = "m";
    state.Copyright = true;
    state.showMode = 1;
    state.Password = "0";
    state.SQLData = 3;
    state.UserID = "i";
    state.Default = "d";
    state.myTaskID = 9;
    state.CompName = state.PowerPath = state.Zorvan = "never";
    doubles::TextBag bag;
    stage.control.UserControl_WriteProperties(bag);
    EXPECT_EQ(bag.Lines(),
              (Lines{"myName=n", "Language=1", "AlertType=2", "UserPath=p", "UserName=u",
                     "ZgName=z", "myPower=1", "myModel=m", "Copyright=true", "Showmode=1",
                     "Password=0", "SQLData=3", "UserID=i", "Default=d"}));
}

TEST(WriteProperties, LeavesDefaultsOut) {
    test::TestApplication stage;
    stage.session.state = {};
    stage.session.state.myPower.assign(350, '0');
    doubles::TextBag bag;
    stage.control.UserControl_WriteProperties(bag);
    EXPECT_TRUE(bag.Lines().empty());
}

TEST(Persistence, ReadingAWrittenBagRestoresAllButTheUserName) {
    test::TestApplication stage;
    ControlState& state = stage.session.state;
    state.Language = 1;
    state.showMode = 1;
    state.Password = "pw";
    state.SQLData = 2;
    state.myPower = "101";
    state.Copyright = true;
    state.ZgName = "主管";
    doubles::TextBag bag;
    stage.control.UserControl_WriteProperties(bag);
    const ControlState before = state;
    state = {};
    state.UserName = "other";
    stage.control.UserControl_ReadProperties(bag);
    EXPECT_EQ(state.Language, before.Language);
    EXPECT_EQ(state.showMode, before.showMode);
    EXPECT_EQ(state.Password, before.Password);
    EXPECT_EQ(state.SQLData, before.SQLData);
    EXPECT_EQ(state.hostSQLData, before.SQLData);
    EXPECT_EQ(state.myPower, before.myPower);
    EXPECT_EQ(state.Copyright, before.Copyright);
    EXPECT_EQ(state.ZgName, before.ZgName);
    EXPECT_EQ(state.UserPath, before.UserPath);
    EXPECT_EQ(state.UserName, "other");
}

TEST(ReadProperties, AWrongTypeIsAnErrorAndChangesNothing) {
    test::TestApplication stage;
    stage.session.state.myName = "before";
    doubles::TextBag bag;
    bag.Put("myName", "after");
    bag.Put("SQLDATA", "many");
    try {
        stage.control.UserControl_ReadProperties(bag);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
    }
    EXPECT_EQ(stage.session.state.myName, "before");
}

TEST(SetSQLData, KeepsACopyForTheOptionsPage) {
    test::TestApplication stage;
    stage.control.SetSQLData(2);
    EXPECT_EQ(stage.session.state.SQLData, 2);
    EXPECT_EQ(stage.session.state.hostSQLData, 2);
}

TEST(Zorvan, IsNeverHandedOut) {
    test::TestApplication stage;
    stage.session.state.Zorvan = "text";
    EXPECT_EQ(stage.control.Zorvan(), "");
}

}  // namespace
}  // namespace zv
