#include "session/hand_over.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv {
namespace {

constexpr std::string_view kKept = "HandedOver";

HandedOver Filled() {
    HandedOver state;
    state.path = "C:\\数据\\task's 4:x.db";
    state.kind = 1;
    state.password = std::string("pass\0word", 9);
    state.login = "sa";
    state.database = "zv2000";
    state.language = 1;
    state.user = "O'Brien\n2:x";
    state.chief = "张三";
    state.company = "";
    state.power = std::string(350, '1');
    state.model = "m";
    return state;
}

class HandOver : public testing::Test {
 protected:
    void Give(const HandedOver& state) {
        ControlState& to = stage.session.state;
        to.UserPath = state.path;
        to.SQLData = state.kind;
        to.Password = state.password;
        to.UserID = state.login;
        to.Default = state.database;
        to.Language = state.language;
        to.UserName = state.user;
        to.ZgName = state.chief;
        to.CompName = state.company;
        to.myPower = state.power;
        to.myModel = state.model;
    }
    std::string Setting() { return stage.session.GetSetting("zvTask", kKept, "?"); }
    void SetSetting(std::string_view text) { stage.session.SaveSetting("zvTask", kKept, text); }

    test::TestApplication stage;
};

TEST_F(HandOver, EveryFieldComesBackWhateverItHolds) {
    EXPECT_EQ(HandedOverIn(ToText(Filled())), Filled());
    EXPECT_EQ(HandedOverIn(ToText({})), HandedOver{});
    HandedOver least = Filled();
    least.kind = -32768;
    least.language = 32767;
    EXPECT_EQ(HandedOverIn(ToText(least)), least);
}

TEST_F(HandOver, ATextThatIsNotWholeIsNothing) {
    const std::string text = ToText(Filled());
    for (std::size_t length = 0; length < text.size(); length++) {
        EXPECT_EQ(HandedOverIn(std::string_view(text).substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(HandedOverIn(text + "1:x"), std::nullopt);
    EXPECT_EQ(HandedOverIn("99999999999999999999:x"), std::nullopt);
    EXPECT_EQ(HandedOverIn("-1:x"), std::nullopt);
}

TEST_F(HandOver, AnotherVersionIsNotGuessedAt) {
    std::string text = ToText(Filled());
    ASSERT_EQ(text.substr(0, 3), "1:1");
    text[2] = '2';
    EXPECT_EQ(HandedOverIn(text), std::nullopt);
}

TEST_F(HandOver, ASessionGetsWhatAnotherHad) {
    Give(Filled());
    EXPECT_TRUE(zv::HandOver(stage.session));
    stage.session.state = {};
    const auto kept = ReadHandedOver(stage.session);
    ASSERT_TRUE(kept);
    TakeHandedOver(stage.session, *kept);
    const ControlState& state = stage.session.state;
    EXPECT_EQ(state.UserPath, Filled().path);
    EXPECT_EQ(state.SQLData, 1);
    EXPECT_EQ(state.hostSQLData, 1);
    EXPECT_EQ(state.Password, Filled().password);
    EXPECT_EQ(state.UserID, Filled().login);
    EXPECT_EQ(state.Default, Filled().database);
    EXPECT_EQ(state.Language, 1);
    EXPECT_EQ(state.UserName, Filled().user);
    EXPECT_EQ(state.ZgName, "张三");
    EXPECT_EQ(state.CompName, "");
    EXPECT_EQ(state.myPower, std::string(350, '1'));
    EXPECT_EQ(state.myModel, "m");
    EXPECT_EQ(stage.windows.title, state.applicationTitle);
}

TEST_F(HandOver, NothingOfASecretCanBeReadWhereItIsKept) {
    HandedOver state = Filled();
    state.password = "geheim";
    state.login = "benutzer";
    Give(state);
    zv::HandOver(stage.session);
    // In the bytes of the text and in what they stand for.
    for (const char* secret : {"geheim", "benutzer", "67656865696D", "62656E75747A6572"}) {
        EXPECT_EQ(Setting().find(secret), std::string::npos) << secret;
    }
}

TEST_F(HandOver, AnotherUserOfTheMachineGetsNothing) {
    Give(Filled());
    zv::HandOver(stage.session);
    stage.vault.user = "somebody else";
    EXPECT_EQ(ReadHandedOver(stage.session), std::nullopt);
}

TEST_F(HandOver, WhereNothingCanBeSealedNothingIsKept) {
    Give(Filled());
    zv::HandOver(stage.session);
    stage.vault.missing = true;
    EXPECT_FALSE(zv::HandOver(stage.session));
    EXPECT_EQ(Setting(), "");
    stage.vault.missing = false;
    EXPECT_EQ(ReadHandedOver(stage.session), std::nullopt);
}

TEST_F(HandOver, ADamagedSettingIsNothing) {
    EXPECT_EQ(ReadHandedOver(stage.session), std::nullopt);
    Give(Filled());
    zv::HandOver(stage.session);
    const std::string good = Setting();
    for (const std::string& bad :
         {std::string("x"), std::string("zz"), std::string("0 "), good.substr(1),
          good.substr(0, good.size() - 2), good + "00", "00" + good}) {
        SetSetting(bad);
        EXPECT_EQ(ReadHandedOver(stage.session), std::nullopt) << bad;
    }
    SetSetting(good);
    EXPECT_TRUE(ReadHandedOver(stage.session));
}

}  // namespace
}  // namespace zv
