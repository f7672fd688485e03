// The query builder: conditions on the fields of an item, put together from lists.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "items/conditions.h"
#include "resources/report_texts.h"
#include "session/session.h"

namespace zv::windows {

class frmSeek : public forms::Form {
 public:
    static constexpr std::string_view kName = "frmSeek";

    /// The session must outlive the window.
    frmSeek(forms::WindowSystem& windows, Session& session);

    /// Set before the window is shown: what it begins with.
    std::vector<items::Condition> conditions;
    /// Called with the conditions when they were accepted.
    std::function<void(const std::vector<items::Condition>&)> onAccepted;

    // Order of creation is tab order. The three fields for the value stand in one place.
    forms::Label lblField;
    forms::ComboBox cboField;
    forms::Label lblCompare;
    forms::ComboBox cboCompare;
    forms::Label lblValue;
    forms::TextBox txtValue;
    forms::DatePicker DTPicker1;
    forms::ComboBox cboValue;
    forms::Panel picJoin;
    forms::OptionButton optAnd;
    forms::OptionButton optOr;
    forms::CommandButton cmdAdd;
    forms::Label lblConditions;
    forms::ListBox lstConditions;
    forms::Label lblHint;
    forms::CommandButton cmdRemove;
    forms::CommandButton cmdClear;
    forms::CommandButton cmdOK;
    forms::CommandButton cmdCancel;

    bool HoldsUnsavedInput() const override { return changed_ || !txtValue.Text().empty(); }

    void cboField_Click();
    void cboCompare_Click();
    void cmdAdd_Click();
    void lstConditions_Click();
    void cmdRemove_Click();
    void cmdClear_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceControls(); }

 private:
    void SetCaptions();
    void PlaceControls();
    const items::ListField* Field() const;
    items::Comparison ChosenComparison() const;
    void ShowValueField();
    bool ValueIsFit();
    /// False, after a message that says why, when the value is not fit.
    bool AddCondition();
    void ShowConditions(int selected);
    std::vector<std::string> ChoicesOf(items::FieldKind kind) const;
    std::string Text(resources::ReportText id) const;

    Session& session_;
    std::vector<items::ListField> fields_;
    bool changed_ = false;  ///< by the user, since the window was opened
};

/// Lets the user put conditions together, beginning with `conditions`, which keep what was
/// accepted. Answers the text of a WHERE clause over "tTaskList a", "1=1" for no condition, and
/// the empty text when the user cancels.
std::string AskForConditions(Session& session, std::vector<items::Condition>& conditions);

}  // namespace zv::windows
