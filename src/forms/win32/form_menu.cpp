#include "forms/win32/form_menu.h"

#include <algorithm>

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

// Above the ids of controls and below those of the system menu.
constexpr UINT kFirstId = 0x4000;

}  // namespace

UINT FormMenu::IdOf(const MenuItem& item) const {
    const auto& items = form_.Menus();
    return kFirstId +
           static_cast<UINT>(std::find(items.begin(), items.end(), &item) - items.begin());
}

MenuItem* FormMenu::Find(UINT id) const {
    const auto& items = form_.Menus();
    return id >= kFirstId && id - kFirstId < items.size() ? items[id - kFirstId] : nullptr;
}

void FormMenu::Fill(HMENU menu, const std::vector<MenuItem*>& items) const {
    for (const MenuItem* item : items) {
        if (!item->Visible()) continue;
        if (item->Caption() == "-") {
            AppendMenuW(menu, MF_SEPARATOR, IdOf(*item), nullptr);
            continue;
        }
        UINT flags = MF_STRING;
        if (!item->Enabled()) flags |= MF_GRAYED;
        if (item->Checked()) flags |= MF_CHECKED;
        UINT_PTR id = IdOf(*item);
        if (!item->Children().empty()) {
            Menu below(CreatePopupMenu());
            Fill(below.get(), item->Children());
            flags |= MF_POPUP;
            id = reinterpret_cast<UINT_PTR>(below.release());  // dies with the menu it is in
        }
        std::string text = item->Marked();
        if (!item->Shortcut().empty()) text += '\t' + item->Shortcut();
        AppendMenuW(menu, flags, id, ToWide(text).c_str());
    }
}

Menu FormMenu::CreatePopup(const MenuItem& root) const {
    Menu menu(CreatePopupMenu());
    Fill(menu.get(), root.Children());
    return menu;
}

void FormMenu::ShowBar(HWND window) {
    std::vector<MenuItem*> roots;
    for (MenuItem* item : form_.Menus()) {
        if (!item->Parent() && item->Visible()) roots.push_back(item);
    }
    Menu bar;
    if (!roots.empty()) {
        bar.reset(CreateMenu());
        Fill(bar.get(), roots);
    }
    SetMenu(window, bar.get());
    bar_ = std::move(bar);
}

}  // namespace zv::forms::win32
