// The head of the editor: title, kind, date, state and who is concerned.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "session/session.h"
#include "windows/main/panels/field_box.h"

namespace zv::windows {

class ItemPanel {
 public:
    /// All must outlive the panel.
    ItemPanel(forms::Form& form, Session& session);

    /// Another kind was chosen, by the user or by the program.
    std::function<void()> onKind;

    void LoadLists();
    void Place(const forms::Rect& area);
    int Height() const;
    std::vector<FieldBox> Boxes();

    /// Shows what only items have, and plans have not.
    void ShowFor(bool plans);
    void SetLocked(bool locked);
    /// The names offered as doers. What is entered stays.
    void SetStaff(std::vector<std::string> names);
    /// The line about the cards that the window was opened for.
    void SetMemo(const std::string& text) { lblCardMemo.SetCaption(text); }

    /// The focus goes to the title, where it can be seen and used.
    void FocusTitle() { txtTitle2.SetFocus(); }
    /// The title is about to be typed anew.
    void BeginTitle();
    /// As forms::Control::Remember, for the boxes.
    std::function<void()> Remember();

    void cboType2_Click() const;

 private:
    forms::Form& form_;
    Session& session_;

 public:
    // Order of creation is tab order.
    forms::Panel fraItem;
    forms::Label lblTitle;
    forms::Label lblDoer;
    forms::Label lblDate;
    forms::Label lblKind;
    forms::Label lblWriter;
    forms::Label lblState;
    forms::TextBox txtTitle2;
    forms::ComboBox cboType2;
    forms::DatePicker DTPicker2;
    forms::ComboBox cboDone2;
    forms::ComboBox cboJbr2;
    forms::TextBox txtUser2;
    forms::Label lblCardMemo;
};

}  // namespace zv::windows
