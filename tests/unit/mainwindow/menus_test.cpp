#include "windows/main/panels/menus.h"

#include <functional>

#include "main_window_fixture.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

class Menus : public MainWindow {
 protected:
    Menus() {
        AddItem(kTask, "甲");
        stage.Sql(
            "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,"
            "taskday,TaskWeek,\"Type\",TypeValue) values"
            "(7,'计划','2003-01-01 00:00:00','2003-12-31 00:00:00',1,1,1,1,1,1,0)");
        stage.backend.modalLoop = [this](forms::Form& form) {
            opened.push_back(form.Name());
            form.Unload();
        };
    }
    static Lines Names(const forms::MenuItem& menu) {
        Lines names;
        for (const forms::MenuItem* entry : menu.Children()) {
            if (entry->Caption() == "-") continue;
            const int index = entry->Index();
            names.push_back(entry->Name() + (index < 0 ? "" : std::to_string(index)));
        }
        return names;
    }
    Lines opened;
};

TEST_F(Menus, EachKindHasItsEntries) {
    const MainMenus& m = Open().commands.menus;
    EXPECT_EQ(Names(m.mnuTask),
              (Lines{"mnuTaskAdd", "mnuTaskChg", "mnuTaskDel", "mnuTaskDone0", "mnuTaskDone1"}));
    EXPECT_EQ(Names(m.mnuGuest), (Lines{"mnuGuestAdd", "mnuGuestChg", "mnuGuestDel",
                                        "mnuGuestDone0", "mnuGuestDone1", "mnuGuestConnect"}));
    EXPECT_EQ(Names(m.mnuDaily), (Lines{"mnuDailyAdd", "mnuDailyChg", "mnuDailyDel",
                                        "mnuDailyDone0", "mnuDailyDone1"}));
    EXPECT_EQ(Names(m.mnuEvent),
              (Lines{"mnuEventAdd", "mnuEventChg", "mnuEventDel", "mnuEventDone"}));
    EXPECT_EQ(Names(m.mnuDone), (Lines{"mnuTaskDoneOk", "mnuTaskDoing"}));
    EXPECT_EQ(Names(m.mnuImg), (Lines{"mnuImgRestore", "mnuImgClose"}));
}

TEST_F(Menus, EveryEntryHasACaptionInBothScripts) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        stage.session.state.Language = language;
        frmTaskMain& window = Open();
        for (const forms::MenuItem* entry : window.Menus()) {
            EXPECT_FALSE(entry->Caption().empty()) << entry->Name() << " in " << language;
        }
        window.Unload();
    }
}

TEST_F(Menus, EveryEntryOfAnItemOrAPlanActs) {
    frmTaskMain& window = Open();
    for (const bool plans : {false, true}) {
        if (plans) stage.user.Click(window.tree.chkEvent);
        for (forms::MenuItem* entry : window.Menus()) {
            const forms::MenuItem* parent = entry->Parent();
            if (!parent || entry->Caption() == "-" || entry == &window.commands.menus.mnuImgClose)
                continue;
            if (parent == &window.commands.menus.mnuPrint ||
                entry == &window.commands.menus.mnuSeek2)
                continue;
            ClickNode(plans ? "Z7" : "Z1");
            stage.dialogs.messages.clear();
            stage.dialogs.answers = {forms::Answer::Cancel};
            entry->SetEnabled(true);
            stage.user.Choose(*entry);
            for (const std::string& message : stage.dialogs.messages) {
                EXPECT_FALSE(message.starts_with("16|")) << entry->Name() << ": " << message;
            }
            stage.dialogs.answers.clear();
        }
    }
    // A new plan from either tree, the selected one from that of plans only.
    EXPECT_EQ(opened, Lines(3, std::string(windows::frmTaskSet::kName)));
    // The deletions were called off; the plan has generated its twelve months.
    EXPECT_EQ(stage.Query("select count(*) from tTaskList where TaskID=7"), "12");
    EXPECT_EQ(stage.Query("select count(*) from tTaskList where taskTitle='甲'"), "1");
    EXPECT_EQ(stage.Query("select count(*) from tTaskSet"), "1");
}

}  // namespace
}  // namespace zv::windows
