// Sharp windows in a program of any awareness of resolutions, which keeps its own.
//
// A window has for life the awareness that its thread had when it was made, and its messages are
// handled in it. What remains is to have the right one while windows are made and changed by a call
// from outside, and the program's own while its code runs.
#pragma once

#include <span>

namespace zv::forms {

/// How a thread deals with resolutions, as the system names it; null is none.
using DpiContext = const void*;

/// What the system keeps for a thread.
class ThreadDpi {
 public:
    virtual ~ThreadDpi() = default;
    /// Makes `context` the thread's and answers the former one. Null where the system does not know
    /// it, or keeps nothing of the kind; nothing has changed then.
    virtual DpiContext Set(DpiContext context) noexcept = 0;
    /// What windows want, the best first.
    virtual std::span<const DpiContext> Wanted() const noexcept = 0;
};

/// As long as it lives the thread has another context; the former one comes back in any case.
class DpiScope {
 public:
    /// For null, and where the system refuses, nothing changes.
    DpiScope(ThreadDpi& thread, DpiContext context) noexcept
        : thread_(thread), former_(context ? thread.Set(context) : nullptr) {}
    ~DpiScope() {
        if (former_) thread_.Set(former_);
    }
    DpiScope(const DpiScope&) = delete;
    DpiScope& operator=(const DpiScope&) = delete;

    /// Null where nothing was changed.
    DpiContext Former() const { return former_; }

 private:
    ThreadDpi& thread_;
    DpiContext former_;
};

/// The contexts of one thread: that of the windows, and that of the program which holds them. They
/// nest in any order.
class DpiAwareness {
 public:
    explicit DpiAwareness(ThreadDpi& thread) : thread_(thread) {}
    DpiAwareness(const DpiAwareness&) = delete;
    DpiAwareness& operator=(const DpiAwareness&) = delete;

    /// Around what makes, places or measures windows.
    [[nodiscard]] DpiScope ForWindows() { return {thread_, OfWindows()}; }
    /// As ForWindows, around a call of the program, whose context is what the thread has now.
    [[nodiscard]] DpiScope FromHost();
    /// Around what calls the program or lets it run; it gets the context of its last call.
    [[nodiscard]] DpiScope ForHost() { return {thread_, host_}; }

 private:
    /// Null where the system knows none that windows want.
    DpiContext OfWindows();

    ThreadDpi& thread_;
    DpiContext windows_ = nullptr;
    DpiContext host_ = nullptr;
    bool asked_ = false;
};

}  // namespace zv::forms
