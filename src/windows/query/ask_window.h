// The query window: criteria on the items of all kinds, and the items that meet them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/buttons.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "items/criteria.h"
#include "session/session.h"
#include "session/store_client.h"
#include "suite/field_captions.h"
#include "windows/query/ask_rows.h"

namespace zv::windows {

class frmAsk : public forms::Form, public StoreClient {
 public:
    static constexpr std::string_view kName = "frmAsk";
    /// Elements of Check1.
    static constexpr int kTitleCheck = 1;
    static constexpr int kDateCheck = 2;
    static constexpr int kStateCheck = 3;

    /// The session must outlive the window.
    frmAsk(forms::WindowSystem& windows, Session& session);

    /// Set before the window is shown: what the database calls the fields. A column that is not
    /// among them keeps its own heading.
    std::vector<suite::FieldCaption> fieldCaptions;

    // Order of creation is tab order: each criterion behind its switch.
    forms::CheckBox chkUser{*this, "chkUser"};
    forms::TextBox txtUser{*this, "txtUser"};
    forms::CheckBox chkType{*this, "chkType"};
    forms::ComboBox cboType2{*this, "cboType2", nullptr, forms::ComboStyle::ListOnly};
    forms::ControlArray<forms::CheckBox> Check1{*this, "Check1", nullptr, 1, kTitleCheck};
    forms::ControlArray<forms::TextBox> Text1{*this, "Text1", nullptr, 1, kTitleCheck};
    forms::CheckBox& dateCheck{Check1.Append(*this, "Check1", nullptr)};
    forms::DatePicker DTPicker1{*this, "DTPicker1"};
    forms::Label lblUntil{*this, "lblUntil"};
    forms::DatePicker DTPicker2{*this, "DTPicker2"};
    forms::CheckBox& stateCheck{Check1.Append(*this, "Check1", nullptr)};
    forms::ComboBox Combo1{*this, "Combo1", nullptr, forms::ComboStyle::ListOnly};
    forms::CheckBox chkDoneMan{*this, "chkDoneMan"};
    forms::TextBox txtDoneMan{*this, "txtDoneMan"};
    forms::CommandButton cmdAsk{*this, "cmdAsk"};
    forms::Grid Grid1{*this, "Grid1"};
    forms::Label lblCount{*this, "lblCount"};
    forms::CommandButton cmdPrint{*this, "cmdPrint"};
    forms::CommandButton cmdExport{*this, "cmdExport"};
    forms::CommandButton cmdQuit{*this, "cmdQuit"};

    /// Takes away what was found.
    void Clear();
    void ForgetStore() override { Clear(); }
    /// Gives the columns other captions, and takes away what was found.
    void ShowFieldCaptions(const std::vector<suite::FieldCaption>& captions);

    void chkUser_Click();
    void chkType_Click();
    void chkDoneMan_Click();
    void Check1_Click(int index);
    void Text1_LostFocus();
    void cmdAsk_Click();
    void cmdPrint_Click();
    void cmdExport_Click();
    void cmdQuit_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override;
    void Form_Resize() override;

 private:
    void Wire();
    void WireShortcuts();
    void SetCaptions();
    void SetColumns();
    std::string HeadingOf(const items::Field& field) const;
    items::AskCriteria Criteria() const;
    AskTexts Texts() const;
    /// How pressing the item of a row is.
    std::optional<forms::Sign> SignOf(int row) const;
    std::string FoundText(bool cancelled) const;
    std::string AskedText(const items::AskCriteria& criteria) const;

    Session& session_;
    std::string asked_;  ///< what the rows shown were asked for
};

/// Where the controls of the query window stand in its present client area.
void PlaceControls(frmAsk& window);
/// Sizes that the query window starts with and does not go below.
void SetWindowSize(frmAsk& window);
void SetSmallestSize(frmAsk& window);

/// Shows the query window: the one that is open, or a new one with columns under the captions
/// given. Modal: returns after it is gone.
void ShowAsk(Session& session, bool modal,
             const std::vector<suite::FieldCaption>& fieldCaptions = {});

}  // namespace zv::windows
