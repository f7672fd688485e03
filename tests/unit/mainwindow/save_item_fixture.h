// An item with every field filled, and the ways to change and to look at it.
#pragma once

#include <string>

#include "main_window_fixture.h"

namespace zv::windows {

class SaveItem : public MainWindow {
 protected:
    SaveItem() {
        stage.Sql(
            "insert into tTaskList(fType,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,"
            "tDoneMan,fUser,fOther0) values(0,7,'甲','内容','2003-03-07 08:15:42',"
            "'2003-03-01 00:00:00','2003-03-31 00:00:00','王五','李四','o0')");
    }
    /// The item shown, with the editor open for a change.
    frmTaskMain& Change() {
        frmTaskMain& window = Open();
        ClickNode("Z1");
        stage.user.Choose(window.commands.menus.mnuTaskChg);
        stage.statements.Take();
        return window;
    }
    std::string Row(const std::string& columns, const std::string& from = "tTaskList where fID=1") {
        return stage.Query("select " + columns + " from " + from);
    }
    void Save() { stage.user.Click(stage.Window()->commands.cmdSave); }
};

}  // namespace zv::windows
