// The buttons of the top bar and the menus.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/layout/metrics.h"
#include "items/item.h"
#include "session/session.h"
#include "windows/main/main_model.h"
#include "windows/main/panels/menus.h"

namespace zv::windows {

class CommandPanel {
 public:
    /// All must outlive the panel.
    CommandPanel(forms::Form& form, Session& session, MainModel& model);

    void SetCaptions();
    /// The captions that are set last, when the window starts in a mode.
    void SetStartCaptions();
    void Place(const forms::Rect& area);
    int Height() const;

    /// While the reminder takes the page there is nothing to search, edit or complete.
    void ShowFor(bool reminder);
    /// Enables what fits the state of the selected item; a plan counts as done, a group has none.
    void EnableFor(std::optional<items::ItemState> state);
    /// Nothing at all is listed: there is nothing to delete, and nothing to go back to but an edit.
    void EnableActs(bool anyNode);
    void EnablePrint(bool enabled) { cmdPrint.SetEnabled(enabled); }
    /// Where a menu under a button opens, as a position of the window.
    forms::Position Below(const forms::CommandButton& button) const;

    /// The save button's caption while an item of that kind is added or changed.
    std::string SaveCaption(items::ItemKind kind, EditMode mode) const;

 private:
    forms::Form& form_;
    Session& session_;
    MainModel& model_;

 public:
    // Order of creation is tab order.
    forms::Panel fraTop;
    forms::ControlArray<forms::CommandButton> cmdAction;  ///< 1 add, 2 change, 3 delete, 0 cancel
    forms::CommandButton cmdSave;
    forms::CommandButton cmdTaskOK;
    forms::CommandButton cmdSeek;
    forms::CommandButton cmdPrint;
    forms::CommandButton cmdItemSet;
    forms::CommandButton cmdExit;
    MainMenus menus;

 private:
    bool anyNode_ = true;

    void ShowEdit();
    void EnableCancel();
    bool PlaceButtons(const forms::layout::Metrics& m, int groupGap, int room);
    int SaveWidth(const forms::layout::Metrics& m) const;
};

}  // namespace zv::windows
