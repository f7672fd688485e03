#include "mainwindow/captions.h"

#include <array>
#include <utility>

#include "mainwindow/frm_task_main.h"
#include "resources/text_ids.h"

namespace zv::mainwindow {
namespace {

using resources::DesignText;

// Catalogue texts that several captions are made of.

constexpr std::string_view kExitPrefix = "&X ";
constexpr std::string_view kQueryAccessKey = "(&T)";

}  // namespace

std::string Captions::Text(DesignText id) const {
    return resources::GetDesignText(id, window_.session.state.Language);
}

std::string Captions::Catalogue(std::int16_t id) const {
    return window_.session.LoadText(id);
}

void Captions::Load() {
    window_.menus.mnuEventAdd.SetCaption(Catalogue(text_id::kAdd) + Catalogue(text_id::kEvent));
    window_.menus.mnuEventChg.SetCaption(Catalogue(text_id::kChange) + Catalogue(text_id::kEvent));
    window_.menus.mnuEventDel.SetCaption(Catalogue(text_id::kDelete) + Catalogue(text_id::kEvent));
    window_.cmdExit.SetCaption(std::string(kExitPrefix) + Catalogue(text_id::kLeave));
    window_.menus.mnuPrintList.SetCaption(Catalogue(text_id::kPrint) + Catalogue(text_id::kList));
    window_.chkEvent.SetCaption(Catalogue(text_id::kManage) + Catalogue(text_id::kEvent));
    window_.optAccess.SetCaption(Catalogue(text_id::kDesktopPath));
    window_.chkStartup.SetCaption(Catalogue(text_id::kStartWithSystem));
    window_.chkTimeSet.SetCaption(Catalogue(text_id::kReadInterval));
    window_.menus.mnuAsk.SetCaption(Catalogue(text_id::kQuery) + Catalogue(text_id::kTask) +
                                    std::string(kQueryAccessKey));
    LoadDesign();
}

void Captions::LoadDesign() {
    window_.chkType[kTask].SetCaption(Catalogue(text_id::kTask));
    window_.chkType[kGuest].SetCaption(Text(DesignText::KindGuest));
    window_.chkType[kDiary].SetCaption(Text(DesignText::KindDiary));
    LoadLabels();
    LoadButtons();
    LoadMenus();
}

void Captions::LoadLabels() {
    frmTaskMain& w = window_;
    const auto label = [](forms::Label& target, std::string caption, forms::Control& field) {
        field.SetAccessibleName(caption);
        target.SetCaption(std::move(caption));
    };
    w.labels.ShowCaptions();
    label(w.lblFilter[0], Catalogue(text_id::kBegin), w.DTPicker0);
    label(w.lblFilter[1], Catalogue(text_id::kEnd), w.DTPicker1);
    label(w.lblFilter[2], Catalogue(text_id::kTitle), w.txtTitle0);
    label(w.lblFilter[3], Text(DesignText::Content), w.txtContent0);
    label(w.lblFilter[4], Catalogue(text_id::kExecutor), w.txtJBR0);
    label(w.lblFilter[5], Catalogue(text_id::kSetter), w.txtUser0);
    label(w.lblFilter[6], Text(DesignText::Contact), w.txtName0);
    label(w.lblFilter[7], Text(DesignText::Company), w.txtComp);
    label(w.lblFilter[8], Catalogue(text_id::kState), w.cboState);
    w.lblNoFilter.SetCaption(Text(DesignText::FilterNotForPlans));

    label(w.lblTel[0], Text(DesignText::Telephone), w.txtTel[0]);
    label(w.lblTel[1], Text(DesignText::MobilePhone), w.txtTel[1]);
    label(w.lblTel[2], Text(DesignText::HomePhone), w.txtTel[2]);
    label(w.lblTel[3], Text(DesignText::Fax), w.txtTel[3]);
    label(w.lblEmail[0], Text(DesignText::Email), w.txtEmail[0]);
    label(w.lblEmail[1], Text(DesignText::PrivateEmail), w.txtEmail[1]);
    label(w.lblHttp[0], Text(DesignText::WebPage), w.txtHttp[0]);
    label(w.lblHttp[1], Text(DesignText::PrivateWebPage), w.txtHttp[1]);

    label(w.lblDays, Text(DesignText::DaysAhead), w.txtBirthDay0);
    label(w.lblTimeSet, Text(DesignText::Minutes), w.txtTimeSet);
    w.txtAccess.SetAccessibleName(Catalogue(text_id::kDesktopPath));
    w.tvwTask.SetAccessibleName(Catalogue(text_id::kTask) + Catalogue(text_id::kList));
    w.Grid1.SetAccessibleName(Text(DesignText::Birthday));

    w.SSTab1.SetTabCaption(kItemTab, Text(DesignText::TabItem));
    w.SSTab1.SetTabCaption(kFilterTab, Text(DesignText::TabFilter));
    w.SSTab1.SetTabCaption(kCardTab, Text(DesignText::TabCard));
    w.SSTab1.SetTabCaption(kOptionsTab, Text(DesignText::TabOptions));
    w.fraB3.SetCaption(Text(DesignText::Filter));
    w.fraData.SetCaption(Text(DesignText::DatabaseGroup));
    w.fraAlert.SetCaption(Text(DesignText::AlertGroup));
    w.fraStaff.SetCaption(Text(DesignText::StaffGroup));
}

void Captions::LoadButtons() {
    frmTaskMain& w = window_;
    w.cmdAction[0].SetCaption(Text(DesignText::ButtonCancel));
    w.cmdAction[1].SetCaption(Text(DesignText::ButtonAdd));
    w.cmdAction[2].SetCaption(Text(DesignText::ButtonChange));
    w.cmdAction[3].SetCaption(Text(DesignText::ButtonDelete));
    w.cmdSave.SetCaption(Text(DesignText::ButtonSave));
    w.cmdTaskOK.SetCaption(Text(DesignText::ButtonDone));
    w.cmdSeek.SetCaption(Text(DesignText::ButtonSearch));
    w.cmdPrint.SetCaption(Text(DesignText::ButtonPrint));
    w.cmdItemSet.SetCaption(Text(DesignText::ButtonLayout));
    w.cmdTel.SetCaption(Text(DesignText::ButtonCall));
    w.cmdEmail.SetCaption(Text(DesignText::ButtonMail));
    w.cmdHttp.SetCaption(Text(DesignText::ButtonBrowse));
    w.cmdAccess.SetCaption(Text(DesignText::Browse));
    w.chkJbr.SetCaption(Text(DesignText::OnlyMyDoing));
    w.chkUser.SetCaption(Text(DesignText::OnlyMySetting));
    w.chkBirthDay.SetCaption(Text(DesignText::StartupBirthday));
    w.chkBirthDay0.SetCaption(Text(DesignText::BirthdayList));
    w.optSQL.SetCaption(Text(DesignText::Server));
    w.optJBR[0].SetCaption(Text(DesignText::StaffFromPersonnel));
    w.optJBR[1].SetCaption(Text(DesignText::StaffFromEmployees));
}

void Captions::LoadMenus() {
    MainMenus& m = window_.menus;
    const std::array<std::pair<forms::MenuItem*, DesignText>, 29> captions = {{
        {&m.mnuTask, DesignText::MenuTask},
        {&m.mnuTaskAdd, DesignText::MenuAdd},
        {&m.mnuTaskChg, DesignText::MenuChange},
        {&m.mnuTaskDel, DesignText::MenuDelete},
        {&m.mnuTaskDone[0], DesignText::MenuDoneEntry},
        {&m.mnuTaskDone[1], DesignText::MenuInHandEntry},
        {&m.mnuGuest, DesignText::MenuGuest},
        {&m.mnuGuestAdd, DesignText::MenuAdd},
        {&m.mnuGuestChg, DesignText::MenuChange},
        {&m.mnuGuestDel, DesignText::MenuDelete},
        {&m.mnuGuestDone[0], DesignText::MenuDoneEntry},
        {&m.mnuGuestDone[1], DesignText::MenuInHandEntry},
        {&m.mnuGuestConnect, DesignText::MenuContact},
        {&m.mnuDaily, DesignText::MenuDiary},
        {&m.mnuDailyAdd, DesignText::MenuAdd},
        {&m.mnuDailyChg, DesignText::MenuChange},
        {&m.mnuDailyDel, DesignText::MenuDelete},
        {&m.mnuDailyDone[0], DesignText::MenuDoneEntry},
        {&m.mnuDailyDone[1], DesignText::MenuInHandEntry},
        {&m.mnuEvent, DesignText::MenuEvent},
        {&m.mnuEventDone, DesignText::MenuGenerate},
        {&m.mnuSeek, DesignText::MenuSearch},
        {&m.mnuSeek1, DesignText::MenuSearchFilter},
        {&m.mnuSeek2, DesignText::MenuSearchMore},
        {&m.mnuPrint, DesignText::MenuPrint},
        {&m.mnuPrintItem, DesignText::MenuPrintItem},
        {&m.mnuTaskDoneOk, DesignText::MenuDoneEntry},
        {&m.mnuTaskDoing, DesignText::MenuInHandEntry},
        {&m.mnuDone, DesignText::MenuDone},
    }};
    for (const auto& [item, text] : captions) item->SetCaption(Text(text));
    m.mnuImg.SetCaption(Text(DesignText::MenuPicture));
    m.mnuImgRestore.SetCaption(Text(DesignText::MenuRestore));
    m.mnuImgClose.SetCaption(Text(DesignText::MenuClose));
}

}  // namespace zv::mainwindow
