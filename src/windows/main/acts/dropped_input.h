// Input that an act of the user drops before it was stored: kept, so that it can be taken back.
#pragma once

#include <functional>

#include "windows/main/acts/listing.h"
#include "windows/main/acts/take_back.h"

namespace zv::windows {

class DroppedInput {
 public:
    /// All must outlive this.
    DroppedInput(forms::Form& form, Session& session, MainModel& model, forms::TabPanel& tabs,
                 TreePanel& tree, ItemPanel& head, ContentPanel& content, CardPanel& cards,
                 ItemView& view, Selection& selection, TakeBack& takeBack);

 private:
    /// An edit as it stood: its mode, the boxes and what the view knows of the row.
    struct Edit {
        MainState state;
        std::int32_t card;
        std::function<void()> boxes;
    };
    void Keep();
    bool Restore(const Edit& edit);

    forms::Form& form_;
    Session& session_;
    MainModel& model_;
    forms::TabPanel& tabs_;
    TreePanel& tree_;
    ItemPanel& head_;
    ContentPanel& content_;
    CardPanel& cards_;
    ItemView& view_;
    Selection& selection_;
    TakeBack& takeBack_;
};

}  // namespace zv::windows
