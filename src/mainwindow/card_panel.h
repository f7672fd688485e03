// The customer card: the picker of cards, the fields of the chosen one and the ways to reach it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "forms/control.h"
#include "store/connection.h"

namespace zv::mainwindow {

class frmTaskMain;

class CardPanel {
 public:
    /// Characters that an entry of the picker has for the company.
    static constexpr std::size_t kCompanyWidth = 80;

    explicit CardPanel(frmTaskMain& window) : window_(window) {}

    /// Fills the picker with the cards that pass the filter (all when it is empty), at most 101,
    /// and shows the first. Answers whether there is any.
    bool LoadCardList(const std::string& filter);
    /// The same for a search of the user's own, whose first hit is a card that the user picked.
    bool Search(const std::string& filter);
    /// The lists of a window that opens in card mode: the cards of the company that the host named.
    void LoadStartList();
    /// Fills the detail fields from a card; without such a card, and when it cannot be read,
    /// empties them. Card 0 reads nothing. Database errors reach the caller.
    void ShowCard(std::int32_t cardId);
    void ClearCardDetail();

    void cboComp2_Click();
    void cboComp2_LostFocus();
    void cboComp2_KeyDown(forms::KeyEvent& event);
    void cboWay_Click();

    /// An entry of the picker: the company in 80 characters, the card's id behind them.
    static std::string Entry(const std::string& company, std::int32_t cardId);
    static std::int32_t EntryId(const std::string& entry);
    /// The card selected in the list, 0 when none is.
    std::int32_t SelectedCard() const;
    /// Selects an entry as the program does, which is no pick of the user's.
    void Select(int position);
    /// The card that the user picked since the last ForgetPick.
    std::optional<std::int32_t> Pick() const { return pick_; }
    /// The user searched in vain, or took the selection away, and has not picked since.
    bool LeftEmpty() const { return leftEmpty_; }
    void ForgetPick() { SetPick(std::nullopt, false); }
    /// What narrows a filter to the control's card box: empty when it has none.
    std::string BoxClause() const;
    /// The same as a filter by itself.
    std::string BoxFilter() const;

 private:
    void SetPick(std::optional<std::int32_t> card, bool leftEmpty) {
        pick_ = card;
        leftEmpty_ = leftEmpty;
    }
    void FillDetail(const store::Recordset& row);

    frmTaskMain& window_;
    std::optional<std::int32_t> pick_;
    bool leftEmpty_ = false;
    bool byProgram_ = false;
};

}  // namespace zv::mainwindow
