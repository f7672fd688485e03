// The completion dialog: the user types or confirms a number; an item is marked as done, or a
// plan's item is added for a date.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "forms/buttons.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "session/session.h"
#include "session/store_client.h"

namespace zv::windows {

/// The number at the head of the dialog's text: of a text that holds a blank the part before the
/// first one, otherwise the whole; tabs are skipped and the first other character that is no digit
/// ends the number. 0 when there is none. The digits of a title that begins with digits join the
/// number. Throws error 6 for a number above 2,147,483,647.
std::int32_t ReadTaskNumber(std::string_view text);

class frmTaskDone : public forms::Form, public StoreClient {
 public:
    static constexpr std::string_view kName = "frmTaskDone";
    static constexpr std::int16_t kCompleteItem = 0;
    static constexpr std::int16_t kAddItem = 1;

    /// The session must outlive the window.
    frmTaskDone(forms::WindowSystem& windows, Session& session);

    bool HoldsInput() const override { return IsShown(); }
    bool HoldsUnsavedInput() const override {
        return txtTitle.Text() != shownTitle_ || DTPicker1.Value() != shownDate_;
    }

    /// kCompleteItem, or any other value to add a plan's item. Sets the caption as well.
    void TaskType(std::int16_t type);
    bool Completes() const { return type_ == kCompleteItem; }

    // Order of creation is tab order.
    forms::Label lblTitle;
    forms::TextBox txtTitle;
    forms::Label lblDate;
    forms::DatePicker DTPicker1;
    forms::CommandButton cmdTaskDone;
    forms::CommandButton cmdTaskQuit;

    void cmdTaskDone_Click();
    void cmdTaskQuit_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceControls(); }

 private:
    void WireKeys();
    void SetCaptions();
    void ShowPlan(std::int16_t number);
    void PlaceControls();
    bool Complete(std::int32_t item);
    bool AddInstance(std::int32_t plan);

    Session& session_;
    std::int16_t type_ = kCompleteItem;
    /// What the boxes held before the user touched them.
    std::string shownTitle_;
    std::optional<DateTime> shownDate_;
};

/// Shows the dialog: the one that is open for the same purpose with what it holds, or a new one,
/// which replaces one that is open for the other purpose. Modal: returns after it is gone.
void ShowTaskDone(Session& session, std::int16_t taskType, bool modal);

}  // namespace zv::windows
