// The filter page: what the item list is narrowed to.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "items/filter.h"
#include "items/item_store.h"
#include "session/session.h"
#include "windows/main/main_model.h"

namespace zv::windows {

class FilterPanel {
 public:
    /// All must outlive the panel.
    FilterPanel(forms::Form& form, forms::TabPage page, Session& session, const MainState& state);

    /// The user narrowed the list by a switch: it is to be filled anew.
    std::function<void()> onChanged;

    void LoadLists();
    void SetCaptions();
    void Place(const forms::Rect& page);

    /// What the filter stands on when the window opens in the present start mode.
    void SetStartValues();
    /// Sets the own-items boxes: as stored on this workstation, or in card mode as the user's
    /// rights limit him. Database errors reach the caller.
    void LoadOwnItems();
    /// Keeps on this workstation what the user changed in the own-items boxes.
    void SaveOwnItems();
    /// One of the own-items boxes is ticked.
    bool OwnItemsOnly() const { return chkJbr.Checked() || chkUser.Checked(); }
    /// Moves the dates that nobody has touched since to the present day; true when one moved.
    bool FollowTheDay();
    /// As forms::Control::Remember.
    std::function<void()> Remember();

    items::Filter Choice() const;
    std::string BuildItemFilter() const;
    /// The same without the dates.
    std::string BuildUndatedFilter() const;
    /// The names of the fields that narrow the list, in their order; empty when none does.
    std::string Narrowing() const;
    /// Gives way in kinds, dates and state where it hides an item.
    void Admit(const items::SavedItem& item);
    /// Empties the boxes that the user may type in; false when none held anything.
    bool ClearTexts();
    /// Puts a company of the host's into its box; it may hold what the user may not type.
    void GiveCompany(const std::string& company);
    /// False when a text that the user typed cannot go into a statement; the user has seen a
    /// message then and the box has the focus.
    bool TextsAreFit();
    /// The first box with such a text, null when there is none.
    forms::TextBox* UnfitText();
    /// The focus goes to the first text.
    void FocusFirst();
    /// Marks the kinds that the list has any item of.
    void ShowKinds(const std::array<bool, items::kItemKinds.size()>& any);
    /// Plans are not narrowed: the filter makes way for a line that says so.
    void ShowFor(bool plans);

    void chkType_Click(int index);
    void chkJbr_Click();
    void chkUser_Click();

 private:
    forms::Form& form_;
    forms::TabPage page_;
    Session& session_;
    const MainState& state_;

 public:
    // Order of creation is tab order.
    forms::Label lblNoFilter;
    forms::Frame fraB3;
    forms::ControlArray<forms::CheckBox> chkType;
    forms::ControlArray<forms::Label> lblFilter;  ///< in the order of the fields below
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

 private:
    std::array<forms::TextBox*, 6> TextBoxes() {
        return {&txtTitle0, &txtContent0, &txtJBR0, &txtUser0, &txtName0, &txtComp};
    }
    void Wire();
    static bool Follow(forms::DatePicker& picker, bool& touched, std::optional<DateTime> day);
    void FollowUser(const forms::CheckBox& box, forms::TextBox& text);
    bool IsGiven(const forms::TextBox& text) const;
    void ValidateText(const forms::TextBox& text, bool& cancel);
    void Changed() const;
    void NoteStored();

    /// Changed since the start values, whatever they hold.
    bool fromTouched_ = false;
    bool admitting_ = false;
    bool untilTouched_ = false;
    std::string givenCompany_;
    /// The own-items boxes as they are stored on this workstation, or as a right set them.
    int storedJbr_ = 0;
    int storedUser_ = 0;
};

}  // namespace zv::windows
