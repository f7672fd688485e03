// What a host does while many reminders are acted on, which takes long and lets it in.
#include <gtest/gtest.h>

#include <functional>

#include "application/test_application.h"
#include "progress/long_work.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {
namespace {

class Meanwhile : public testing::Test {
 protected:
    static constexpr int kMany = 1300;

    Meanwhile() {
        for (test::TestApplication* one : {&stage, &other}) {
            one->session.state.myPower = std::string(350, '1');
            one->Sql(
                "insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask');"
                "delete from tTaskList;"
                "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
                "with recursive n(i) as (select 1 union all select i+1 from n where i<" +
                std::to_string(kMany) +
                ") select 0,'item '||i,'2003-03-07 00:00:00','2003-03-07 00:00:00',"
                "'2003-03-07 00:00:00',0 from n");
        }
        stage.session.state.UserName = "Li";
        stage.backend.modalLoop = [this](forms::Form& form) {
            auto& shown = static_cast<progress::frmProgress&>(form);
            if (meanwhile) meanwhile();
            while (shown.IsShown()) stage.user.Tick(shown.Timer1);
        };
        stage.control.StartReminders();
    }
    /// Marks all as done; `act` is what happens when the first thousand are.
    void MarkAllWhile(std::function<void()> act) {
        meanwhile = std::move(act);
        auto* window = stage.windows.Find<frmRemind>(frmRemind::kName);
        window->grdDue.SelectAll();
        stage.dialogs.answers = {forms::Answer::Ok};
        stage.user.Click(window->cmdDone);
    }
    static std::string Done(test::TestApplication& of) {
        return of.Query("select count(*) from tTaskList where tDone=1");
    }

    test::TestApplication stage;
    test::TestApplication other;  ///< for its database
    std::function<void()> meanwhile;
};

TEST_F(Meanwhile, WhatComesWithAnotherUserIsNotDoneInHisName) {
    MarkAllWhile([&] { stage.session.state.UserName = "Wang"; });
    EXPECT_EQ(Done(stage), "1000");
    EXPECT_EQ(stage.Query("select count(*) from tTaskList where tDoneMan='Wang'"), "0");
    EXPECT_FALSE(stage.session.acts.CanTakeBack()) << "it is Li's";
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(Done(stage), "1000");
}

TEST_F(Meanwhile, WhatOneUserAgreedToIsNotDoneByAnother) {
    stage.dialogs.whileStanding = [&](const std::string&) {
        stage.session.state.UserName = "Wang";
    };
    MarkAllWhile({});
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(Done(stage), "0");
}

TEST_F(Meanwhile, NothingIsDoneToAnotherStore) {
    MarkAllWhile([&] {
        store::ConnectionSettings settings = stage.session.Settings();
        settings.dataPath = store::ConnectionText(other.Path("t.db"));
        stage.session.database.OpenConnection(settings);
    });
    EXPECT_EQ(Done(stage), "1000");
    EXPECT_EQ(Done(other), "0");
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(Done(stage), "1000") << "what was done there is not taken back here";
}

TEST_F(Meanwhile, RemindersThatAreStoppedActNoMore) {
    MarkAllWhile([&] { stage.control.StopReminders(); });
    EXPECT_EQ(Done(stage), "1000");
    EXPECT_EQ(stage.windows.Find<frmRemind>(frmRemind::kName), nullptr);
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(Done(stage), "0") << "what was done is taken back at once";
}

TEST_F(Meanwhile, ASessionThatEndsEndsIt) {
    MarkAllWhile([&] { stage.windows.EndSession(); });
    EXPECT_EQ(Done(stage), "1000");
}

TEST_F(Meanwhile, AnotherActIsAStepOfItsOwn) {
    int takenBack = 0;
    MarkAllWhile([&] {
        DoneAct act;
        act.back = [&] { takenBack++; };
        stage.session.acts.Done(std::move(act));
    });
    EXPECT_EQ(Done(stage), std::to_string(kMany));
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(Done(stage), "0");
    EXPECT_EQ(takenBack, 0);
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(takenBack, 1);
}

}  // namespace
}  // namespace zv::windows
