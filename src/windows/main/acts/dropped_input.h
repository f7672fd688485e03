// Input that an act of the user drops before it was stored: kept, so that it can be taken back.
#pragma once

#include <functional>

#include "windows/main/acts/listing.h"

namespace zv::windows {

class DroppedInput {
 public:
    /// Where input stands, and what shows it again.
    struct Panels {
        forms::TabPanel& tabs;
        TreePanel& tree;
        ItemPanel& head;
        ContentPanel& content;
        CardPanel& cards;
    };
    /// What drops input, and marks the item that it belongs to.
    struct Acts {
        ItemView& view;
        Selection& selection;
    };
    /// All that is named must outlive this.
    DroppedInput(forms::Form& form, Session& session, MainModel& model, const Panels& panels,
                 const Acts& acts);
    ~DroppedInput() { session_.takeBack.Forget(&form_); }
    DroppedInput(const DroppedInput&) = delete;
    DroppedInput& operator=(const DroppedInput&) = delete;

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
    const Panels panels_;
    const Acts acts_;
};

}  // namespace zv::windows
