// The customer card: the picker of cards and the search for them, the fields of the chosen one and
// the ways to reach it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cards/card_store.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "session/session.h"
#include "windows/main/panels/field_box.h"

namespace zv::windows {

class CardPanel {
 public:
    /// Characters that an entry of the picker has for the company.
    static constexpr std::size_t kCompanyWidth = 80;

    /// All must outlive the panel.
    CardPanel(forms::Form& form, forms::TabPage page, Session& session);

    /// The user left the picker with a company chosen.
    std::function<void(const std::string& company)> onLeftWithCompany;
    /// The user looked for cards: what was typed, how many there are, and whether there may be more
    /// than the list takes.
    std::function<void(const std::string& typed, std::size_t found, bool more)> onSearched;
    /// The user took the company and goes on.
    std::function<void()> onEntered;

    void LoadLists();
    std::vector<FieldBox> Boxes();
    void SetCaptions();
    void Place(const forms::Rect& page);
    /// Locks the field of the item that stands here against typing, or opens it.
    void SetLocked(bool locked) { txtName2.SetLocked(locked); }

    /// Fills the picker with the cards that pass the condition (all when it is empty), at most
    /// 101, and shows the first. Answers whether there is any.
    bool LoadCardList(const std::string& condition);
    /// The same for a search of the user's own, whose first hit is a card that the user picked.
    bool Search(const std::string& condition);
    /// The lists of a window that opens in card mode: the cards of the company that the host named.
    void LoadStartList();
    /// Fills the detail fields from a card; without such a card, and when it cannot be read,
    /// empties them. Card 0 reads nothing. Database errors reach the caller.
    void ShowCard(std::int32_t cardId);
    void ClearCardDetail();
    /// Takes every card out of the picker and shows none.
    void Empty();

    /// Shows the way to reach the customer that an item names, which may be one of its own.
    void ShowWay(const std::string& way);
    /// Shows the first way, as a new item begins.
    void ResetWay() { cboWay.SetListIndex(0); }

    /// An entry of the picker: the company in 80 characters, the card's id behind them.
    static std::string Entry(const std::string& company, std::int32_t cardId);
    static std::int32_t EntryId(const std::string& entry);
    /// The card selected in the list, 0 when none is.
    std::int32_t SelectedCard() const;
    /// The position of the selected entry, -1 when none is.
    int Selection() const { return cboComp2.ListIndex(); }
    /// Selects an entry as the program does, which is no pick of the user's.
    void Select(int position);
    /// The card that the user picked since the last ForgetPick.
    std::optional<std::int32_t> Pick() const { return pick_; }
    /// The user searched in vain, or took the selection away, and has not picked since.
    bool LeftEmpty() const { return leftEmpty_; }
    void ForgetPick() { SetPick(std::nullopt, false); }
    /// As forms::Control::Remember, for the boxes and the pick.
    std::function<void()> Remember();
    /// The condition for the cards of the control's card box: empty when it has none.
    std::string BoxCondition() const;

    /// The focus goes to where a visit's input begins.
    void FocusFirst(bool hasCard);
    void FocusSearch() { txtCompSeek.SetFocus(); }
    bool ShowsPicker() const { return cboComp2.Visible(); }
    void FocusPicker() { cboComp2.SetFocus(); }

    void cboComp2_Click();
    void cboComp2_LostFocus();
    void cboComp2_KeyDown(forms::KeyEvent& event);
    void cboWay_Click();
    void txtCompSeek_KeyDown(forms::KeyEvent& event);
    void cmdTel_Click();
    void cmdEmail_Click();
    void cmdHttp_Click();

 private:
    forms::Form& form_;
    forms::TabPage page_;
    Session& session_;

 public:
    // Order of creation is tab order.
    forms::Label lblWay;
    forms::Label lblGuest;
    forms::Label lblCompany;
    forms::Label lblAddress;
    forms::Label lblSearch;
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

 private:
    using TextBoxes = forms::ControlArray<forms::TextBox>;
    void Wire();
    /// Remembers which of several boxes the user was in last; Enter leads to their button.
    void Watch(TextBoxes& boxes, forms::CommandButton& button);
    /// Whether the boxes of telephones and addresses have a card to show.
    void ShowVacancy(bool vacant);
    /// Of several numbers or addresses the one that the user was in last, else the first.
    std::string Chosen(const TextBoxes& boxes) const;
    void Open(const std::string& target);
    void SetPick(std::optional<std::int32_t> card, bool leftEmpty) {
        pick_ = card;
        leftEmpty_ = leftEmpty;
    }
    void FillDetail(const cards::Card& card);

    std::optional<std::int32_t> pick_;
    bool leftEmpty_ = false;
    bool byProgram_ = false;
    const forms::TextBox* usedBox_ = nullptr;
};

}  // namespace zv::windows
