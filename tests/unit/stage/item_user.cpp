#include "stage/item_user.h"

#include <algorithm>

#include "base/text.h"

namespace zv::stage {
namespace {

constexpr const char* kErrorStyle = "16|";

}  // namespace

ItemUser::ItemUser(Stage& stage) : stage_(stage) {
    if (stage_.Refresh(windows::kManagerMode) != 0) {
        throw RuntimeError(ErrorNumber::DatabaseFailure, stage_.errorText);
    }
}

void ItemUser::Seek(const std::string& beginning) {
    if (Window().model.Editing()) stage_.user.Click(Window().commands.cmdAction[0]);
    stage_.user.SelectTab(Window().SSTab1, windows::kFilterTab);
    stage_.user.Type(Window().filter.txtTitle0, beginning + '%');
    stage_.user.Click(Window().commands.cmdSeek);
}

// A node's line reads "Z12|A1|image|(date)<tab>title".
std::string ItemUser::KeyOf(const std::string& title) const {
    for (const std::string& line : text::Split(stage_.Nodes(), "\n")) {
        if (line.starts_with("Z") && line.ends_with("\t" + title)) {
            return line.substr(0, line.find('|'));
        }
    }
    return {};
}

bool ItemUser::Select(const std::string& title) {
    const std::string key = KeyOf(title);
    if (!key.empty()) stage_.user.ClickNode(Window().tree.tvwTask, key);
    return !key.empty();
}

void ItemUser::Add(const std::string& title, const std::string& content) {
    stage_.user.Choose(Window().commands.menus.mnuTaskAdd);
    stage_.user.Type(Window().item.txtTitle2, title);
    stage_.user.Type(Window().content.txtTaskCon, content);
    stage_.user.SetDate(Window().item.DTPicker2, stage_.clock.now.Date());
    Save();
}

void ItemUser::Change(const std::string& content) {
    stage_.user.Choose(Window().commands.menus.mnuTaskChg);
    stage_.user.Type(Window().content.txtTaskCon, content);
}

void ItemUser::Save() {
    stage_.user.Click(Window().commands.cmdSave);
}

void ItemUser::Complete() {
    stage_.windows.FromUser([this] { Window().completion.SetItemState(0); });
}

void ItemUser::Delete() {
    stage_.user.Choose(Window().commands.menus.mnuTaskDel);
}

bool ItemUser::Said(const std::string& text) const {
    return std::any_of(stage_.dialogs.messages.begin(), stage_.dialogs.messages.end(),
                       [&](const std::string& line) { return text::Contains(line, text); });
}

bool ItemUser::SaidError() const {
    return std::any_of(stage_.dialogs.messages.begin(), stage_.dialogs.messages.end(),
                       [](const std::string& line) { return line.starts_with(kErrorStyle); });
}

}  // namespace zv::stage
