// Add, change, delete, save and cancel, from the buttons and from the menus.
#pragma once

#include <cstdint>
#include <string>

#include "forms/control.h"
#include "mainwindow/named_item.h"

namespace zv::mainwindow {

class frmTaskMain;

class ItemActions {
 public:
    explicit ItemActions(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// 0 cancel, 1 add, 2 change, 3 delete: asks the module gate first.
    void cmdAction_Click(std::int16_t index);
    void cmdSave_Click();
    void cmdCancel_Click();
    void StartAddItem(std::uint8_t kind);
    void StartChangeItem(std::uint8_t kind);
    /// Kinds 0 to 2 delete the item shown, any other the plan shown with all its items.
    void DeleteItem(std::uint8_t kind);

    /// The save button's caption while an item of that kind is added or changed.
    std::string SaveCaption(std::uint8_t kind, std::uint8_t mode) const;

 private:
    void Dispatch(std::int16_t index, std::uint8_t kind);
    void OpenEditor(std::uint8_t kind, std::uint8_t mode);
    void LockEditor();
    void TellWhenNotListed();
    /// Where the input of a new item begins.
    forms::Control& FirstEntry(std::uint8_t kind, bool hasCard) const;
    std::string DeleteQuestion(bool plan) const;
    void ShowAsDeleted(const NamedItem& item);

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
