// What the user sees without selecting anything: the status line, and the day's summary where an
// item would be shown.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "items/due_count.h"
#include "session/session.h"
#include "windows/main/acts/listing.h"
#include "windows/main/main_model.h"
#include "windows/main/panels/card_panel.h"
#include "windows/main/panels/content_panel.h"
#include "windows/main/panels/status_panel.h"
#include "windows/main/panels/tree_panel.h"

namespace zv::windows {

class Overview {
 public:
    /// All must outlive this.
    Overview(forms::Form& form, Session& session, MainModel& model, TreePanel& tree,
             ContentPanel& content, CardPanel& cards, StatusPanel& status, ItemView& view,
             Listing& listing);

    /// Shows again what is known, in the language at hand.
    void ShowAgain();
    /// As forms::Control::Remember.
    std::function<void()> Remember();

    void tmrRest_Timer();

 private:
    std::int16_t Language() const;
    std::string Text(resources::StatusText id, std::string_view first = {},
                     std::string_view second = {}) const;
    void ListShown();
    void ListEmptied();
    void ItemsChanged();
    void ShowLine();
    void ShowSummary();
    bool NothingSelected() const;
    std::string Line() const;
    std::string Summary() const;
    std::string Counted(const items::DueCount& count) const;

    forms::Form& form_;
    Session& session_;
    MainModel& model_;
    TreePanel& tree_;
    ContentPanel& content_;
    StatusPanel& status_;
    Listing& listing_;
    std::optional<items::DueCounts> counts_;
    std::optional<items::DueCount> inList_;  ///< of the list, taken when the counts were
};

}  // namespace zv::windows
