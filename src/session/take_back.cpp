#include "session/take_back.h"

#include <utility>

namespace zv {
namespace {

constexpr std::size_t kMostKept = 20;

}  // namespace

int TakeBack::Listen(Listener listener) {
    listener(back_.empty() ? std::string() : back_.back().notice);
    listeners_.emplace(++lastListener_, std::move(listener));
    return lastListener_;
}

void TakeBack::Add(const void* owner, std::string notice, Act back) {
    if (!running_) again_.clear();
    back_.push_back({owner, std::move(notice), std::move(back)});
    if (back_.size() > kMostKept) back_.pop_front();
    Report();
}

void TakeBack::AddAgain(const void* owner, std::string notice, Act again) {
    again_.push_back({owner, std::move(notice), std::move(again)});
}

void TakeBack::Run(Entries& entries) {
    // A box of the act lets other keys through.
    if (entries.empty() || running_) return;
    Entry entry = std::move(entries.back());
    entries.pop_back();
    struct Running {
        explicit Running(TakeBack& list) : list_(list) { list_.running_ = true; }
        ~Running() { list_.running_ = false; }
        TakeBack& list_;
    };
    bool over = false;
    try {
        const Running running(*this);
        over = entry.act();
    } catch (...) {
        entries.push_back(std::move(entry));
        Report();
        throw;
    }
    if (!over) entries.push_back(std::move(entry));
    Report();
}

void TakeBack::Forget(const void* owner) {
    const auto isOf = [owner](const Entry& entry) { return entry.owner == owner; };
    std::erase_if(again_, isOf);
    // Windows call this while they go.
    if (std::erase_if(back_, isOf) > 0) Report();
}

void TakeBack::Report() const {
    const std::string notice = back_.empty() ? std::string() : back_.back().notice;
    for (const auto& [number, listener] : listeners_) listener(notice);
}

}  // namespace zv
