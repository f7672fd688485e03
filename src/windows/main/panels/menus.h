// The menus of the main window.
#pragma once

#include <array>

#include "forms/menu.h"
#include "session/session.h"
#include "windows/main/main_model.h"

namespace zv::windows {

/// mnuTask, mnuGuest, mnuDaily and mnuEvent stand in the menu bar and pop up over the tree;
/// mnuDone and mnuImg only pop up.
struct MainMenus {
    explicit MainMenus(forms::Form& form);

    void SetCaptions(const Session& session);
    /// The menu of what stands below a group of the tree.
    forms::MenuItem& ContextMenu(NodeKind kind);
    /// Those that are set last, when the window starts in a mode.
    void SetStartCaptions(const Session& session);

    forms::MenuItem mnuTask, mnuTaskAdd, mnuTaskChg, mnuTaskDel, mnuTaskLine;
    std::array<forms::MenuItem, 2> mnuTaskDone;  ///< 0 done, 1 in hand
    forms::MenuItem mnuGuest, mnuGuestAdd, mnuGuestChg, mnuGuestDel, mnuGuestLine;
    std::array<forms::MenuItem, 2> mnuGuestDone;
    forms::MenuItem mnuGuestConnect;
    forms::MenuItem mnuDaily, mnuDailyAdd, mnuDailyChg, mnuDailyDel, mnuDailyLine;
    std::array<forms::MenuItem, 2> mnuDailyDone;
    forms::MenuItem mnuEvent, mnuEventAdd, mnuEventChg, mnuEventDel, mnuEventLine, mnuEventDone;
    forms::MenuItem mnuSeek, mnuSeek1, mnuSeek2, mnuAsk;
    forms::MenuItem mnuPrint, mnuPrintItem, mnuPrintList;
    forms::MenuItem mnuDone, mnuTaskDoneOk, mnuTaskDoing;
    forms::MenuItem mnuImg, mnuImgRestore, mnuImgClose;

 private:
    void SetAccessKeys();
};

}  // namespace zv::windows
