#include "worker.h"

#include <algorithm>
#include <set>
#include <thread>

#include "base/text.h"
#include "scheduling/task_generation.h"

namespace zv::torture {
namespace {

using forms::Answer;
using mainwindow::frmTaskMain;
using Clock = std::chrono::steady_clock;

// A user's number of items, so that lists stay short and the marks stay within their 16 bits.
constexpr std::size_t kMostItems = 12;
constexpr auto kPause = std::chrono::milliseconds(5);
constexpr std::int32_t kGreatestMarked = 32767;

constexpr const char* kErrorStyle = "16|";

/// "Z12" of a node's line "Z12|A1|image|text" whose text ends with the title.
std::string KeyOf(const std::string& nodes, const std::string& title) {
    for (const std::string& line : text::Split(nodes, "\n")) {
        if (line.starts_with("Z") && line.ends_with("\t" + title)) {
            return line.substr(0, line.find('|'));
        }
    }
    return {};
}

}  // namespace

Worker::Worker(const Target& target, std::string name, const std::string& journal, unsigned seed)
    : name_(std::move(name)), journal_(journal), random_(seed) {
    std::set<std::string> present;
    for (const Step& step : Journal::Read(journal)) {
        if (step.act == Act::Add) present.insert(step.title);
        if (step.act == Act::Remove) present.erase(step.title);
        serial_++;
    }
    own_.assign(present.begin(), present.end());
    stage_.opener.open = [target](const store::ConnectionSettings&) { return target.Open(); };
    stage_.session.state.UserName = name_;
    stage_.session.state.SQLData = target.IsServer() ? 1 : 0;
    stage_.Refresh(mainwindow::kManagerMode);
}

int Worker::Work(std::chrono::seconds time) {
    int acknowledged = 0;
    const auto end = Clock::now() + time;
    while (Clock::now() < end) {
        std::discrete_distribution<int> weights{30, 25, 15, 20, 25, 1};
        Act act = static_cast<Act>(weights(random_));
        const bool needsItem = act == Act::Change || act == Act::Complete || act == Act::Remove;
        if (needsItem && own_.empty()) act = Act::Add;
        if (act == Act::Add && own_.size() >= kMostItems) act = Act::Remove;

        Step step{act, {}, {}, false};
        if (act == Act::Add) step.title = name_ + '-' + std::to_string(++serial_);
        if (act == Act::ChangeShared)
            step.title = SharedTitle(static_cast<int>(random_() % kSharedItems));
        if (act == Act::Generate) step.title = kPlan;
        if (step.title.empty()) step.title = RandomOf(own_);
        if (act == Act::Add || act == Act::Change || act == Act::ChangeShared) {
            step.content = NewContent();
        }
        journal_.Begin(step);
        if (act == Act::Add) own_.push_back(step.title);
        if (Do(step)) {
            journal_.Acknowledge();
            acknowledged++;
            if (act == Act::Remove) std::erase(own_, step.title);
        }
        std::this_thread::sleep_for(kPause);
    }
    return acknowledged;
}

bool Worker::Do(const Step& step) {
    stage_.dialogs.messages.clear();
    stage_.statements.Take();
    stage_.dialogs.answers.clear();
    try {
        switch (step.act) {
            case Act::Add:
                return AddItem(step);
            case Act::Change:
            case Act::ChangeShared:
                return ChangeItem(step);
            case Act::Complete:
                return CompleteItem(step);
            case Act::Remove:
                return RemoveItem(step);
            case Act::Generate:
                return Generate();
        }
    } catch (const RuntimeError&) {
        // As for the user of a window: the step has not been acknowledged.
    }
    return false;
}

bool Worker::Failed() const {
    return std::any_of(stage_.dialogs.messages.begin(), stage_.dialogs.messages.end(),
                       [](const std::string& line) { return line.starts_with(kErrorStyle); });
}

bool Worker::Said(const std::string& text) const {
    return std::any_of(stage_.dialogs.messages.begin(), stage_.dialogs.messages.end(),
                       [&](const std::string& line) { return text::Contains(line, text); });
}

std::string Worker::NewContent() {
    return name_ + "-content-" + std::to_string(++serial_);
}

std::string Worker::RandomOf(const std::vector<std::string>& titles) {
    return titles[random_() % titles.size()];
}

void Worker::Filter(const std::string& beginning) {
    frmTaskMain& window = *stage_.Window();
    if (window.state.Editing()) stage_.user.Click(window.cmdAction[0]);
    stage_.user.SelectTab(window.SSTab1, mainwindow::kFilterTab);
    stage_.user.Type(window.txtTitle0, beginning + '%');
    stage_.user.Click(window.cmdSeek);
}

bool Worker::Select(const std::string& title) {
    const std::string key = KeyOf(stage_.Nodes(), title);
    if (key.empty()) return false;
    stage_.user.ClickNode(stage_.Window()->tvwTask, key);
    return true;
}

bool Worker::AddItem(const Step& step) {
    Filter(name_ + '-');
    frmTaskMain& window = *stage_.Window();
    stage_.user.Choose(window.menus.mnuTaskAdd);
    stage_.user.Type(window.txtTitle2, step.title);
    stage_.user.Type(window.txtTaskCon, step.content);
    stage_.user.SetDate(window.DTPicker2, DateTime(2003, 3, 7));
    stage_.user.Click(window.cmdSave);
    return Said("[" + step.title + "]");
}

bool Worker::ChangeItem(const Step& step) {
    Filter(step.title);
    if (!Select(step.title)) return false;
    frmTaskMain& window = *stage_.Window();
    stage_.user.Choose(window.menus.mnuTaskChg);
    stage_.user.Type(window.txtTaskCon, step.content);
    // Somebody else may have stored the same item by now: the user decides.
    std::this_thread::sleep_for(std::chrono::milliseconds(random_() % 4));
    stage_.dialogs.answers = {random_() % 2 == 0 ? Answer::Yes : Answer::No, Answer::Ok};
    stage_.user.Click(window.cmdSave);
    return Said("[" + step.title + "]");
}

bool Worker::CompleteItem(const Step& step) {
    Filter(name_ + '-');
    if (!Select(step.title)) return false;
    frmTaskMain& window = *stage_.Window();
    if (window.cboDone2.ListIndex() == mainwindow::kDone) return false;
    stage_.dialogs.answers = {Answer::Ok};
    stage_.windows.FromUser([&] { window.completion.SetItemState(0); });
    return !Failed();
}

bool Worker::RemoveItem(const Step& step) {
    Filter(name_ + '-');
    if (!Select(step.title)) return false;
    stage_.dialogs.answers = {Answer::Ok};
    stage_.user.Choose(stage_.Window()->menus.mnuTaskDel);
    return !Failed() && KeyOf(stage_.Nodes(), step.title).empty();
}

bool Worker::Generate() {
    stage_.dialogs.answers = {random_() % 2 == 0 ? Answer::Yes : Answer::No, Answer::Ok};
    scheduling::GenerateTaskList(stage_.session, kPlan);
    return true;
}

}  // namespace zv::torture
