// Lets the user choose and order the columns of a printed list.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "items/list_fields.h"
#include "session/session.h"

namespace zv::windows {

class frmItemSet : public forms::Form {
 public:
    static constexpr std::string_view kName = "frmItemSet";

    /// The session must outlive the window.
    frmItemSet(forms::WindowSystem& windows, Session& session);

    /// Called with the layout text when it was accepted.
    std::function<void(const std::string& layout)> onAccepted;

    // Order of creation is tab order.
    forms::Label lblAll;
    forms::ListBox lstAll;
    forms::CommandButton cmdTake;
    forms::CommandButton cmdDrop;
    forms::Label lblChosen;
    forms::ListBox lstChosen;
    forms::CommandButton cmdUp;
    forms::CommandButton cmdDown;
    forms::CommandButton cmdUsual;
    forms::CommandButton cmdOK;
    forms::CommandButton cmdCancel;

    void cmdTake_Click();
    void cmdDrop_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void cmdUsual_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceControls(); }

 private:
    void SetCaptions();
    void PlaceControls();
    /// Takes the layout's fields as the chosen ones.
    void Choose(const std::string& layout);
    void MoveChosen(int by);
    void ShowLists(int selectedOfAll, int selectedOfChosen);
    void EnableButtons();

    Session& session_;
    std::vector<items::ListField> offered_;  ///< all, in the database's order
    std::vector<items::ListField> left_;     ///< those not chosen, in that order
    std::vector<items::ListField> chosen_;
};

/// Shows the chooser and keeps what was accepted. Answers the layout text ("taskTime,taskTitle"),
/// empty when the user cancels.
std::string ChooseListLayout(Session& session);

}  // namespace zv::windows
