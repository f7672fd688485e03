// What the user can take back, the newest first.
#pragma once

#include <deque>
#include <functional>
#include <string>

namespace zv::windows {

class TakeBack {
 public:
    /// Takes what is said of the newest; empty when there is nothing to take back. May be empty.
    std::function<void(const std::string& text)> onNotice;

    /// `back` answers whether it could be done; otherwise it stays the newest. While it runs it may
    /// add what it replaces. Of many the oldest go.
    void Add(std::string notice, std::function<bool()> back);
    bool Any() const { return !entries_.empty(); }
    void TakeNewest();
    /// Nothing of it means anything any more.
    void Clear();

 private:
    struct Entry {
        std::string notice;
        std::function<bool()> back;
    };
    void Report() const;

    std::deque<Entry> entries_;  ///< the newest is the last
};

}  // namespace zv::windows
