#include "windows/main/panels/menus.h"

#include <string_view>
#include <utility>

#include "resources/text_ids.h"

namespace zv::windows {

using resources::DesignText;

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
    SetAccessKeys();
}

// Of the entries whose captions mark none, because others read the captions.
void MainMenus::SetAccessKeys() {
    for (forms::MenuItem* done :
         {mnuTaskDone.data(), mnuGuestDone.data(), mnuDailyDone.data(), &mnuTaskDoneOk}) {
        done->SetAccessKey('O');
    }
    for (forms::MenuItem* inHand :
         {&mnuTaskDone[1], &mnuGuestDone[1], &mnuDailyDone[1], &mnuTaskDoing}) {
        inHand->SetAccessKey('I');
    }
    mnuEventAdd.SetAccessKey('N');
    mnuEventChg.SetAccessKey('M');
    mnuEventDel.SetAccessKey('D');
    mnuPrintList.SetAccessKey('L');
}

forms::MenuItem& MainMenus::ContextMenu(NodeKind kind) {
    switch (kind) {
        case NodeKind::Guest:
            return mnuGuest;
        case NodeKind::Diary:
            return mnuDaily;
        case NodeKind::Plan:
            return mnuEvent;
        default:
            return mnuTask;
    }
}

void MainMenus::SetCaptions(const Session& session) {
    const std::array<std::pair<forms::MenuItem*, DesignText>, 29> captions = {{
        {&mnuTask, DesignText::MenuTask},
        {&mnuTaskAdd, DesignText::MenuAdd},
        {&mnuTaskChg, DesignText::MenuChange},
        {&mnuTaskDel, DesignText::MenuDelete},
        {mnuTaskDone.data(), DesignText::MenuDoneEntry},
        {&mnuTaskDone[1], DesignText::MenuInHandEntry},
        {&mnuGuest, DesignText::MenuGuest},
        {&mnuGuestAdd, DesignText::MenuAdd},
        {&mnuGuestChg, DesignText::MenuChange},
        {&mnuGuestDel, DesignText::MenuDelete},
        {mnuGuestDone.data(), DesignText::MenuDoneEntry},
        {&mnuGuestDone[1], DesignText::MenuInHandEntry},
        {&mnuGuestConnect, DesignText::MenuContact},
        {&mnuDaily, DesignText::MenuDiary},
        {&mnuDailyAdd, DesignText::MenuAdd},
        {&mnuDailyChg, DesignText::MenuChange},
        {&mnuDailyDel, DesignText::MenuDelete},
        {mnuDailyDone.data(), DesignText::MenuDoneEntry},
        {&mnuDailyDone[1], DesignText::MenuInHandEntry},
        {&mnuEvent, DesignText::MenuEvent},
        {&mnuEventDone, DesignText::MenuGenerate},
        {&mnuSeek, DesignText::MenuSearch},
        {&mnuSeek1, DesignText::MenuSearchFilter},
        {&mnuSeek2, DesignText::MenuSearchMore},
        {&mnuPrint, DesignText::MenuPrint},
        {&mnuPrintItem, DesignText::MenuPrintItem},
        {&mnuTaskDoneOk, DesignText::MenuDoneEntry},
        {&mnuTaskDoing, DesignText::MenuInHandEntry},
        {&mnuDone, DesignText::MenuDone},
    }};
    for (const auto& [item, text] : captions) item->SetCaption(session.LoadText(text));
    mnuImg.SetCaption(session.LoadText(DesignText::MenuPicture));
    mnuImgRestore.SetCaption(session.LoadText(DesignText::MenuRestore));
    mnuImgClose.SetCaption(session.LoadText(DesignText::MenuClose));
}

void MainMenus::SetStartCaptions(const Session& session) {
    constexpr std::string_view kQueryAccessKey = "(&T)";
    const std::string event = session.LoadText(text_id::kEvent);
    mnuEventAdd.SetCaption(session.LoadText(text_id::kAdd) + event);
    mnuEventChg.SetCaption(session.LoadText(text_id::kChange) + event);
    mnuEventDel.SetCaption(session.LoadText(text_id::kDelete) + event);
    mnuPrintList.SetCaption(session.LoadText(text_id::kPrint) + session.LoadText(text_id::kList));
    mnuAsk.SetCaption(session.LoadText(text_id::kQuery) + session.LoadText(text_id::kTask) +
                      std::string(kQueryAccessKey));
}

}  // namespace zv::windows
