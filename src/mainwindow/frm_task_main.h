// The main window: task tree, filter, item editor, customer card and options. The class owns the
// controls and hands each event to the part of the window that it concerns.
#pragma once

#include <string>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "mainwindow/advanced_search.h"
#include "mainwindow/alert_settings.h"
#include "mainwindow/birthdays.h"
#include "mainwindow/captions.h"
#include "mainwindow/card_panel.h"
#include "mainwindow/card_search.h"
#include "mainwindow/completion.h"
#include "mainwindow/contact_actions.h"
#include "mainwindow/field_labels.h"
#include "mainwindow/filter_panel.h"
#include "mainwindow/item_actions.h"
#include "mainwindow/item_editor.h"
#include "mainwindow/item_list.h"
#include "mainwindow/item_saving.h"
#include "mainwindow/lifecycle.h"
#include "mainwindow/main_state.h"
#include "mainwindow/menus.h"
#include "mainwindow/options_page.h"
#include "mainwindow/other_fields.h"
#include "mainwindow/picture_menu.h"
#include "mainwindow/plan_actions.h"
#include "mainwindow/printing.h"
#include "mainwindow/staff_lists.h"
#include "mainwindow/task_tree.h"
#include "session/session.h"

namespace zv::mainwindow {

class frmTaskMain : public forms::Form {
 public:
    static constexpr std::string_view kName = "frmTaskMain";

    /// The session must outlive the window.
    frmTaskMain(forms::WindowSystem& windows, Session& session);

    /// The start mode: 0 alert, 1 manager, 9 cards. A loaded window without an edit under way is
    /// set up for it when it is in another mode, and moves to the present day otherwise.
    void TaskAlert(std::int16_t mode);

    /// Asks for a file; empty when the user cancels or the dialog fails. Kind 1: the file must
    /// exist; any other: it may be created.
    std::string getFilePath(std::int16_t kind, const std::string& filter,
                            const std::string& fileName, const std::string& dialogTitle,
                            const std::string& folder);

    void cmdExit_Click();
    /// Fills everything anew that came from the store, which is another one. Nothing is current
    /// afterwards.
    void FillFromNewStore();

    Session& session;
    MainState state;

    // Order of creation is tab order.
    forms::Timer Timer1;
    forms::Panel fraTop;
    forms::TreeView tvwTask;
    forms::ComboBox cboOrder;
    forms::CheckBox chkEvent;
    forms::Picture picImage;

    forms::Panel fraItem;
    forms::ControlArray<forms::Label> lblList2;  ///< of the editor's fields, 0 to 13
    forms::TextBox txtTitle2;
    forms::ComboBox cboType2;
    forms::DatePicker DTPicker2;
    forms::ComboBox cboDone2;
    forms::ComboBox cboJbr2;
    forms::TextBox txtUser2;
    forms::Label lblCardMemo;

    forms::TabPanel SSTab1;
    // Tab 0: item
    forms::TextBox txtTaskCon;
    forms::Panel picOther;
    forms::Panel picOtherIn;
    forms::ControlArray<forms::Label> lblOther;
    forms::ControlArray<forms::TextBox> txtOther;
    // Tab 1: filter
    forms::Label lblNoFilter;
    forms::Frame fraB3;
    forms::ControlArray<forms::CheckBox> chkType;
    forms::ControlArray<forms::Label> lblFilter;  ///< 0 to 8, in the order of the fields below
    forms::DatePicker DTPicker0;
    forms::DatePicker DTPicker1;
    forms::TextBox txtTitle0;
    forms::TextBox txtContent0;
    forms::TextBox txtJBR0;
    forms::CheckBox chkJbr;
    forms::TextBox txtUser0;
    forms::CheckBox chkUser;
    forms::TextBox txtName0;
    forms::TextBox txtComp;
    forms::ComboBox cboState;
    // Tab 2: customer card
    forms::TextBox txtCompSeek;
    forms::ComboBox cboComp2;
    forms::TextBox txtName2;
    forms::TextBox txtAdd2;
    forms::ComboBox cboWay;
    forms::ControlArray<forms::Label> lblTel;
    forms::ControlArray<forms::TextBox> txtTel;
    forms::CommandButton cmdTel;
    forms::ControlArray<forms::Label> lblEmail;
    forms::ControlArray<forms::TextBox> txtEmail;
    forms::CommandButton cmdEmail;
    forms::ControlArray<forms::Label> lblHttp;
    forms::ControlArray<forms::TextBox> txtHttp;
    forms::CommandButton cmdHttp;
    forms::CheckBox chkBirthDay0;
    forms::TextBox txtBirthDay0;
    forms::Label lblDays;
    forms::Label lblBirthDay;
    forms::Grid Grid1;
    // Tab 3: options
    forms::Frame fraData;
    forms::OptionButton optAccess;
    forms::TextBox txtAccess;
    forms::CommandButton cmdAccess;
    forms::OptionButton optSQL;
    forms::Frame fraAlert;
    forms::CheckBox chkStartup;
    forms::CheckBox chkBirthDay;
    forms::CheckBox chkTimeSet;
    forms::TextBox txtTimeSet;
    forms::Label lblTimeSet;
    forms::Frame fraStaff;
    forms::ControlArray<forms::OptionButton> optJBR;

    // The buttons of the top bar
    forms::ControlArray<forms::CommandButton> cmdAction;  ///< 1 add, 2 change, 3 delete, 0 cancel
    forms::CommandButton cmdSave;
    forms::CommandButton cmdTaskOK;
    forms::CommandButton cmdSeek;
    forms::CommandButton cmdPrint;
    forms::CommandButton cmdItemSet;
    forms::CommandButton cmdExit;

    MainMenus menus;

    Captions captions;
    FieldLabels labels;
    StaffLists staff;
    OtherFields otherFields;
    CardPanel cards;
    Birthdays birthdays;
    CardSearch cardSearch;
    ContactActions contacts;
    PictureMenu pictureMenu;
    ItemEditor editor;
    ItemSaving saving;
    ItemActions actions;
    PlanActions plans;
    FilterPanel filter;
    ItemList list;
    TaskTree tree;
    Completion completion;
    AdvancedSearch search;
    Printing printing;
    OptionsPage options;
    AlertSettings alerts;
    Lifecycle lifecycle;

 protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_Unload(bool& cancel) override;

 private:
    void Wire();
    /// Changes the window altogether, or when that fails not at all.
    void AllOrNothing(const std::function<void()>& change);
};

}  // namespace zv::mainwindow
