// What the user can take back, the newest first, and what of it he can do again.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>

namespace zv {

class TakeBack {
 public:
    /// Answers whether it is over: otherwise it stays the newest.
    using Act = std::function<bool()>;
    /// Takes what is said of the newest; empty when there is nothing to take back.
    using Listener = std::function<void(const std::string& notice)>;

    /// The listener hears at once, and until Unlisten is called with the number.
    int Listen(Listener listener);
    void Unlisten(int number) { listeners_.erase(number); }

    /// `owner` is what it belongs to, and forgotten with; null: to nobody. Of many the oldest go.
    /// What could be done again cannot any more, unless this takes something back or does it again.
    void Add(const void* owner, std::string notice, Act back);
    /// While something is taken back: how it is done again.
    void AddAgain(const void* owner, std::string notice, Act again);

    bool Any() const { return !back_.empty(); }
    bool AnyAgain() const { return !again_.empty(); }
    /// The newest belongs to this.
    bool NewestIsOf(const void* owner) const { return Any() && back_.back().owner == owner; }
    /// Nothing where there is nothing. What the act throws reaches the caller, and it stays.
    void TakeNewest() { Run(back_); }
    void DoAgain() { Run(again_); }

    /// What belongs to this means nothing any more.
    void Forget(const void* owner);

 private:
    struct Entry {
        const void* owner;
        std::string notice;
        Act act;
    };
    using Entries = std::deque<Entry>;
    void Run(Entries& entries);
    void Report() const;

    Entries back_;  ///< the newest is the last
    Entries again_;
    bool running_ = false;
    std::map<int, Listener> listeners_;
    int lastListener_ = 0;
};

}  // namespace zv
