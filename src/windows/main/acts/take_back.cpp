#include "windows/main/acts/take_back.h"

#include <utility>

namespace zv::windows {
namespace {

constexpr std::size_t kMostKept = 20;

}  // namespace

void TakeBack::Add(std::string notice, std::function<bool()> back) {
    entries_.push_back({std::move(notice), std::move(back)});
    if (entries_.size() > kMostKept) entries_.pop_front();
    Report();
}

void TakeBack::TakeNewest() {
    if (entries_.empty()) return;
    Entry entry = std::move(entries_.back());
    entries_.pop_back();
    bool done = false;
    try {
        done = entry.back();
    } catch (...) {
        entries_.push_back(std::move(entry));
        Report();
        throw;
    }
    if (!done) entries_.push_back(std::move(entry));
    Report();
}

void TakeBack::Clear() {
    entries_.clear();
    Report();
}

void TakeBack::Report() const {
    if (onNotice) onNotice(entries_.empty() ? std::string() : entries_.back().notice);
}

}  // namespace zv::windows
