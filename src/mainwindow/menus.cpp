#include "mainwindow/menus.h"

#include "mainwindow/frm_task_main.h"
#include "reports/ask_window.h"

namespace zv::mainwindow {

MainMenus::MainMenus(forms::Form& form)
    : mnuTask(form, "mnuTask", nullptr),
      mnuTaskAdd(form, "mnuTaskAdd", &mnuTask),
      mnuTaskChg(form, "mnuTaskChg", &mnuTask),
      mnuTaskDel(form, "mnuTaskDel", &mnuTask),
      mnuTaskLine(form, "mnuTaskLine", &mnuTask, "-"),
      mnuTaskDone{forms::MenuItem(form, "mnuTaskDone", &mnuTask, {}, 0),
                  forms::MenuItem(form, "mnuTaskDone", &mnuTask, {}, 1)},
      mnuGuest(form, "mnuGuest", nullptr),
      mnuGuestAdd(form, "mnuGuestAdd", &mnuGuest),
      mnuGuestChg(form, "mnuGuestChg", &mnuGuest),
      mnuGuestDel(form, "mnuGuestDel", &mnuGuest),
      mnuGuestLine(form, "mnuGuestLine", &mnuGuest, "-"),
      mnuGuestDone{forms::MenuItem(form, "mnuGuestDone", &mnuGuest, {}, 0),
                   forms::MenuItem(form, "mnuGuestDone", &mnuGuest, {}, 1)},
      mnuGuestConnect(form, "mnuGuestConnect", &mnuGuest),
      mnuDaily(form, "mnuDaily", nullptr),
      mnuDailyAdd(form, "mnuDailyAdd", &mnuDaily),
      mnuDailyChg(form, "mnuDailyChg", &mnuDaily),
      mnuDailyDel(form, "mnuDailyDel", &mnuDaily),
      mnuDailyLine(form, "mnuDailyLine", &mnuDaily, "-"),
      mnuDailyDone{forms::MenuItem(form, "mnuDailyDone", &mnuDaily, {}, 0),
                   forms::MenuItem(form, "mnuDailyDone", &mnuDaily, {}, 1)},
      mnuEvent(form, "mnuEvent", nullptr),
      mnuEventAdd(form, "mnuEventAdd", &mnuEvent),
      mnuEventChg(form, "mnuEventChg", &mnuEvent),
      mnuEventDel(form, "mnuEventDel", &mnuEvent),
      mnuEventLine(form, "mnuEventLine", &mnuEvent, "-"),
      mnuEventDone(form, "mnuEventDone", &mnuEvent),
      mnuSeek(form, "mnuSeek", nullptr),
      mnuSeek1(form, "mnuSeek1", &mnuSeek),
      mnuSeek2(form, "mnuSeek2", &mnuSeek),
      mnuAsk(form, "mnuAsk", &mnuSeek),
      mnuPrint(form, "mnuPrint", nullptr),
      mnuPrintItem(form, "mnuPrintItem", &mnuPrint),
      mnuPrintList(form, "mnuPrintList", &mnuPrint),
      mnuDone(form, "mnuDone", nullptr),
      mnuTaskDoneOk(form, "mnuTaskDoneOk", &mnuDone),
      mnuTaskDoing(form, "mnuTaskDoing", &mnuDone),
      mnuImg(form, "mnuImg", nullptr),
      mnuImgRestore(form, "mnuImgRestore", &mnuImg),
      mnuImgClose(form, "mnuImgClose", &mnuImg) {
    mnuDone.SetVisible(false);
    mnuImg.SetVisible(false);
}

void WireMenus(frmTaskMain& window) {
    MainMenus& m = window.menus;
    m.mnuSeek1.onClick = [&window] { window.tree.cmdSeek_Click(); };
    m.mnuAsk.onClick = [&window] {
        reports::ShowAsk(window.session, window.session.windows.ModalForm() != nullptr,
                         window.labels.Captions());
    };
}

}  // namespace zv::mainwindow
