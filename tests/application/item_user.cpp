#include "application/item_user.h"

#include <algorithm>

#include "base/text.h"

namespace zv::test {
namespace {

constexpr const char* kErrorStyle = "16|";

}  // namespace

ItemUser::ItemUser(TestApplication& application) : application_(application) {
    if (application_.Refresh(windows::kManagerMode) != 0) {
        throw RuntimeError(ErrorNumber::DatabaseFailure, application_.errorText);
    }
}

void ItemUser::Seek(const std::string& beginning) {
    if (Window().model.Editing()) application_.user.Click(Window().commands.cmdAction[0]);
    application_.user.SelectTab(Window().SSTab1, windows::kFilterTab);
    application_.user.Type(Window().filter.txtTitle0, beginning + '%');
    application_.user.Click(Window().commands.cmdSeek);
}

// A node's line reads "Z12|A1|image|(date)<tab>title".
std::string ItemUser::KeyOf(const std::string& title) const {
    for (const std::string& line : text::Split(application_.Nodes(), "\n")) {
        if (line.starts_with("Z") && line.ends_with("\t" + title)) {
            return line.substr(0, line.find('|'));
        }
    }
    return {};
}

bool ItemUser::Select(const std::string& title) {
    const std::string key = KeyOf(title);
    if (!key.empty()) application_.user.ClickNode(Window().tree.tvwTask, key);
    return !key.empty();
}

void ItemUser::Add(const std::string& title, const std::string& content) {
    application_.user.Choose(Window().commands.menus.mnuTaskAdd);
    application_.user.Type(Window().item.txtTitle2, title);
    application_.user.Type(Window().content.txtTaskCon, content);
    application_.user.SetDate(Window().item.DTPicker2, application_.clock.Today());
    Save();
}

void ItemUser::Change(const std::string& content) {
    application_.user.Choose(Window().commands.menus.mnuTaskChg);
    application_.user.Type(Window().content.txtTaskCon, content);
}

void ItemUser::Save() {
    application_.user.Click(Window().commands.cmdSave);
}

void ItemUser::Complete() {
    application_.windows.FromUser([this] { Window().completion.SetItemState(0); });
}

void ItemUser::Delete() {
    application_.user.Choose(Window().commands.menus.mnuTaskDel);
}

bool ItemUser::Said(const std::string& text) const {
    return std::any_of(application_.dialogs.messages.begin(), application_.dialogs.messages.end(),
                       [&](const std::string& line) { return text::Contains(line, text); });
}

bool ItemUser::SaidError() const {
    return std::any_of(application_.dialogs.messages.begin(), application_.dialogs.messages.end(),
                       [](const std::string& line) { return line.starts_with(kErrorStyle); });
}

}  // namespace zv::test
