// The search by conditions that the user puts together, and the query window.
#pragma once

#include <vector>

#include "items/conditions.h"
#include "windows/main/acts/field_labels.h"
#include "windows/main/acts/listing.h"

namespace zv::windows {

class AdvancedSearch {
 public:
    /// All must outlive this.
    AdvancedSearch(forms::Form& form, Session& session, const MainModel& model,
                   CommandPanel& commands, const FieldLabels& labels, Listing& listing);

    /// Asks for conditions and fills the tree with the items that meet them; a cancel leaves it.
    void mnuSeek2_Click();
    void mnuAsk_Click();
    /// Gives an open query window the captions that the database gives.
    void ShowCaptions() const;

 private:
    forms::Form& form_;
    Session& session_;
    const MainModel& model_;
    CommandPanel& commands_;
    const FieldLabels& labels_;
    Listing& listing_;
    std::vector<items::Condition> conditions_;  ///< of the last search, to begin the next with
};

}  // namespace zv::windows
