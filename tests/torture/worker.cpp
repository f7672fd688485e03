#include "worker.h"

#include <algorithm>
#include <set>
#include <thread>

#include "windows/generation/boxes.h"

namespace zv::torture {
namespace {

using forms::Answer;
using Clock = std::chrono::steady_clock;

// A user's number of items, so that lists stay short and the marks stay within their 16 bits.
constexpr std::size_t kMostItems = 12;
constexpr auto kPause = std::chrono::milliseconds(5);

}  // namespace

Worker::Worker(const Target& target, std::string name, const std::string& journal, unsigned seed)
    : name_(std::move(name)), journal_(journal), random_(seed) {
    std::set<std::string> present;
    for (const Step& step : Journal::Read(journal)) {
        if (step.act == Act::Add) present.insert(step.title);
        if (step.act == Act::Remove) present.erase(step.title);
        serial_ += 2;  // the most that a step takes
    }
    own_.assign(present.begin(), present.end());
    stage_.opener.open = [target](const store::ConnectionSettings&) { return target.Open(); };
    stage_.session.state.UserName = name_;
    stage_.session.state.SQLData = target.IsServer() ? 1 : 0;
    user_.emplace(stage_);
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

std::string Worker::NewContent() {
    return name_ + "-content-" + std::to_string(++serial_);
}

std::string Worker::RandomOf(const std::vector<std::string>& titles) {
    return titles[random_() % titles.size()];
}

bool Worker::AddItem(const Step& step) {
    user_->Seek(name_ + '-');
    user_->Add(step.title, step.content);
    return user_->Said("[" + step.title + "]");
}

bool Worker::ChangeItem(const Step& step) {
    user_->Seek(step.title);
    if (!user_->Select(step.title)) return false;
    user_->Change(step.content);
    // Somebody else may have stored the same item by now: the user decides.
    std::this_thread::sleep_for(std::chrono::milliseconds(random_() % 4));
    stage_.dialogs.answers = {random_() % 2 == 0 ? Answer::Yes : Answer::No, Answer::Ok};
    user_->Save();
    return user_->Said("[" + step.title + "]");
}

bool Worker::CompleteItem(const Step& step) {
    user_->Seek(name_ + '-');
    if (!user_->Select(step.title)) return false;
    if (stage_.Window()->item.cboDone2.ListIndex() == Number(items::ItemState::Done)) {
        return false;
    }
    user_->Complete();
    return !user_->SaidError();
}

bool Worker::RemoveItem(const Step& step) {
    user_->Seek(name_ + '-');
    if (!user_->Select(step.title)) return false;
    user_->Delete();
    return !user_->SaidError() && !user_->Shows(step.title);
}

bool Worker::Generate() {
    stage_.dialogs.answers = {random_() % 2 == 0 ? Answer::Yes : Answer::No, Answer::Ok};
    windows::GenerateTaskList(stage_.session, kPlan);
    return true;
}

}  // namespace zv::torture
