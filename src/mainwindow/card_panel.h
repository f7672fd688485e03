// The customer card: the picker of cards, the fields of the chosen one and the ways to reach it.
#pragma once

#include <cstddef>
#include <cstdint>
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
    /// The card picked in the list, 0 when none is.
    std::int32_t PickedCard() const;
    /// What narrows a filter to the control's card box: empty when it has none.
    std::string BoxClause() const;
    /// The same as a filter by itself.
    std::string BoxFilter() const;

 private:
    void FillDetail(const store::Recordset& row);

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
