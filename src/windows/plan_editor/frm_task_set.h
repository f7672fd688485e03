// The plan editor: enters and changes one plan and, on request, generates its items.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/up_down.h"
#include "plans/plan_rules.h"
#include "plans/plan_saving.h"
#include "session/session.h"
#include "session/store_client.h"

namespace zv::windows {

class frmTaskSet : public forms::Form, public StoreClient {
 public:
    static constexpr std::string_view kName = "frmTaskSet";

    /// The session must outlive the window.
    frmTaskSet(forms::WindowSystem& windows, Session& session);

    bool HoldsInput() const override { return IsShown(); }
    bool HoldsUnsavedInput() const override { return !generating_ && Entry() != shown_; }

    /// The plan to change, 0 for a new one. Set before the window is loaded; later it does nothing,
    /// because the input of a window that is open must not end up in another plan.
    void TaskID(std::int16_t number);

    // Order of creation is tab order.
    forms::Label lblTaskID;
    forms::TextBox txtTaskID;
    forms::Label lblTaskTitle;
    forms::TextBox txtTaskTitle;
    forms::Label lblBegin;
    forms::DatePicker dateBegin;
    forms::Label lblEnd;
    forms::DatePicker dateEnd;
    forms::Frame fraSchedule;
    forms::Label lblEvery;
    forms::TextBox txtCircleValue;
    forms::ComboBox cobCircleType;
    forms::Label lblDE;
    forms::TextBox txtMonth;
    forms::Label lblMonth;
    forms::TextBox txtDay;
    forms::Label lblDay;
    forms::ComboBox cobWeek;
    forms::Frame fraAlert;
    forms::OptionButton optEarlyCall;
    forms::OptionButton optLastCall;
    forms::OptionButton optBothCall;
    forms::TextBox txtUpDown;
    forms::UpDown UpDown1;
    forms::Label lblDays;
    forms::Label lblSetMan;
    forms::TextBox txtSetMan;
    forms::CommandButton cmdSetMan;
    forms::Label lblDoneMan;
    forms::TextBox txtDoneMan;
    forms::CommandButton cmdDoneMan;
    forms::Label lblTaskCon;
    forms::TextBox txtTaskCon;
    forms::CheckBox chkTaskSet;
    forms::Label lblProgress;
    forms::CommandButton cmdOnlySeeMan;
    forms::CommandButton cmdOK;
    forms::CommandButton cmdExit;

    void cobCircleType_Click();
    void UpDown1_UpClick();
    void UpDown1_DownClick();
    void cmdSetMan_Click();
    void cmdDoneMan_Click();
    void cmdOnlySeeMan_Click();
    void cmdOK_Click();
    void cmdExit_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override;
    void Form_Activate() override;
    void Form_QueryUnload(bool& cancel, bool byUser) override;

 private:
    void Wire();
    void WireKeys();
    void WireShortcuts();
    void WireChecks();
    void SetCaptions();
    void SetModeCaption();
    void ProposePlan();
    void ShowPlan();
    void FillFrom(const plans::Plan& plan);
    /// Shows a row as it is read; what is entered from then on is a change of it.
    void ShowRow(const store::RowValues& row);
    /// Shows a joined plan as a change of the row that it goes into.
    void ShowJoined(const plans::PlanSave::Joined& joined);

    plans::PlanEntry Entry() const;
    forms::Control& ControlOf(plans::PlanField field);
    void CheckBoxText(plans::PlanField field, forms::TextBox& box, bool& cancel);
    void CheckDate(plans::PlanField field, bool& cancel);
    void Refuse(const plans::Refusal& refusal);
    bool AskForSetter();
    /// Saves the plan. Of one that is refused a box says why; otherwise the user called it off.
    plans::PlanSave Save(const plans::Plan& plan);
    std::optional<store::RowMerge::Version> AskAboutConflict(const std::vector<std::size_t>& fields,
                                                             const store::RowValues& stored,
                                                             const store::RowValues& own) const;
    std::string ConflictCaption(std::string_view field) const;
    std::string ShownInConflict(std::string_view field, const store::RowValues& row) const;
    bool Ask(std::int16_t question, int buttons, forms::Answer agreement);
    void Generate(const std::string& number);
    void StepWidth(int step);
    void PickInto(plans::PlanField field, forms::TextBox& box, std::int16_t action);
    /// Puts in a text that nobody typed; while it stands it is not judged.
    void Give(plans::PlanField field, forms::TextBox& box, const std::string& text);

    Session& session_;
    plans::EditedPlan edited_;
    plans::PlanEntry shown_;  ///< what the boxes held before the user touched them
    std::map<plans::PlanField, std::string> given_;
    bool moveOnWhenShown_ = false;
    bool generating_ = false;
};

/// Shows the editor for a plan (0: a new one): the one that is open with what it holds, or a new
/// one. Modal: returns after it is gone.
void ShowPlanEditor(Session& session, std::int16_t taskId, bool modal);

}  // namespace zv::windows
