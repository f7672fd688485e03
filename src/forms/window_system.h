// The windows that exist, and the one boundary at which an error of an event handler stops.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "forms/backend.h"
#include "forms/box_text.h"

namespace zv::forms {

class Form;
class MenuItem;

/// What a call of the host fails with where a box of the same kind stands already: the error that
/// the box would have shown, else error 401.
class BoxStands : public RuntimeError {
 public:
    explicit BoxStands(const RuntimeError& error) : RuntimeError(error) {}
};

class WindowSystem {
 public:
    explicit WindowSystem(Backend& backend);
    ~WindowSystem();
    WindowSystem(const WindowSystem&) = delete;
    WindowSystem& operator=(const WindowSystem&) = delete;

    /// Makes a window that lives until it is unloaded.
    template <typename Window, typename... Args>
    Window& Create(Args&&... args) {
        auto window = std::make_unique<Window>(*this, std::forward<Args>(args)...);
        Window& result = *window;
        Adopt(std::move(window));
        return result;
    }
    /// Shows the window `Window::kName`, made from `args` when there is none; `prepare` sets what
    /// the caller wants of it before it is loaded or comes to the front. When the window may not be
    /// shown, or anything throws, the error leaves and a window made here is gone as though it had
    /// never been. Returns when the window is shown, or gone when it is modal.
    template <typename Window, typename... Args>
    void Open(bool modal, const std::function<void(Window&)>& prepare, Args&&... args) {
        const Scope scope(*this);
        auto* window = Find<Window>(Window::kName);
        const bool made = window == nullptr;
        RefuseBeside(modal, window);
        if (made) window = &Create<Window>(std::forward<Args>(args)...);
        Present(*window, made, modal, [&] { prepare(*window); });
    }
    /// As Open, beside any window of that name.
    template <typename Window, typename... Args>
    void OpenNew(bool modal, const std::function<void(Window&)>& prepare, Args&&... args) {
        const Scope scope(*this);
        RefuseBeside(modal, nullptr);
        auto& window = Create<Window>(std::forward<Args>(args)...);
        Present(window, true, modal, [&] { prepare(window); });
    }
    /// As OpenNew, but the window is shown only when `wanted` says so once it is loaded. Otherwise
    /// it is gone again, and nothing with it.
    template <typename Window, typename... Args>
    void OpenIf(bool modal, const std::function<void(Window&)>& prepare,
                const std::function<bool(Window&)>& wanted, Args&&... args) {
        const Scope scope(*this);
        auto& window = Create<Window>(std::forward<Args>(args)...);
        Present(
            window, true, modal, [&] { prepare(window); }, [&] { return wanted(window); });
    }
    /// Throws error 401 when a modal window other than `window` is open and one that is not modal
    /// is asked for; error 400 when `window` is shown and shall be modal.
    void RefuseBeside(bool modal, const Form* window) const;
    /// The window of that name, or null.
    Form* Find(std::string_view name) const;
    template <typename Window>
    Window* Find(std::string_view name) const {
        return static_cast<Window*>(Find(name));
    }
    /// In order of creation.
    std::vector<Form*> Windows() const;
    /// No window exists.
    bool IsEmpty() const noexcept { return forms_.empty(); }
    /// A window exists that somebody opened, and not only such as come by themselves.
    bool HasOpened() const;
    Form* ModalForm() const { return modal_.empty() ? nullptr : modal_.back(); }
    /// A box of any sort or a menu stands.
    bool SomethingStands() const { return !standing_.empty(); }
    /// A modal window, a box of any sort or a menu stands.
    bool HasModal() const;
    void UnloadAll();

    /// The root of the popup menu that is open, or null.
    MenuItem* StandingMenu() const { return standingMenu_; }
    /// The entry is what the open menu answers when it closes.
    void ChooseInStandingMenu(MenuItem& item) { chosenItem_ = &item; }

    /// Runs what the user caused: an error that leaves `handler` is shown in a message box. Windows
    /// unloaded meanwhile are destroyed when the outermost scope ends. Within a call of the host,
    /// and outside of boxes and modal windows, it is still the host that acts.
    void FromUser(const std::function<void()>& handler);
    /// As FromUser for a timer of this system: what stands in a box already is not shown again.
    void FromTimer(const std::function<void()>& handler);
    /// Runs what the host caused: an error leaves as it is. A box of a kind that stands already is
    /// not shown once more; the call fails with BoxStands instead, at once where the box would have
    /// asked something, else when `handler` has ended.
    void FromHost(const std::function<void()>& handler);
    /// Neither the host nor a timer is what the program reacts to.
    bool UserActs() const { return actor_ != Actor::Host && actor_ != Actor::Timer; }

    /// Runs `action` once no handler is under way any more in the present loop: that of the thread,
    /// of a modal window or of a box. In the order of the calls; each may cause whatever a host
    /// may.
    void AfterHandler(std::function<void()> action) { after_.push_back(std::move(action)); }
    /// Drops what AfterHandler was given and has not run.
    void ForgetWhatFollows() { after_.clear(); }

    /// `error` is what the box reports, where it reports an error: a call of the host fails with it
    /// when a box of this kind stands. A box that ends without the user counts as acknowledged or
    /// cancelled; where it has neither button, error 18 ends what the answer was meant for, which
    /// is not shown to the user.
    Answer ShowMessage(const BoxText& text, int style, const std::string& title = {},
                       const RuntimeError* error = nullptr);
    /// As ShowMessage, with a reason below a text that gives none.
    Answer ShowWithReason(const BoxText& text, int style, const std::string& reason);
    /// As ShowMessage, for a question to which Enter must not agree by mistake.
    Answer AskCarefully(const BoxText& text, int style);
    std::optional<std::string> AskText(const std::string& prompt, bool secret = false);
    std::optional<std::string> ChooseFile(const FileRequest& request);

    /// Asks the user whether what he entered and did not store may be lost. While he is asked he
    /// has not agreed.
    bool MayDropInput();
    /// The session ends: every window goes, the last one first, and nobody is asked.
    void EndSession();

    /// The thread's message loop or the session ends: no box is shown any more until everything
    /// that is under way has returned.
    void Interrupt() { interrupted_ = 1; }

    Backend& GetBackend() const { return backend_; }
    /// Title of boxes without one of their own.
    std::string title;
    /// Text that a user reads of an error.
    std::function<std::string(const RuntimeError&)> describeError;
    /// Asks whether input may be lost. Without it nobody is asked.
    std::function<bool()> askToDropInput;
    /// Takes the name of a window that was shown and is gone. May be empty.
    std::function<void(const std::string& name)> onClosed;

 private:
    friend class Form;
    enum class Actor { Nobody, User, Timer, Host };
    // Counts how deep handlers are nested; a window that was unloaded by one of them may still have
    // functions on the stack, so it is destroyed only when none is left. Remembers who acts in it.
    class Scope {
     public:
        Scope(WindowSystem& windows, Actor actor)
            : windows_(windows), before_(std::exchange(windows.actor_, actor)) {
            windows_.depth_++;
        }
        /// The one who acts already.
        explicit Scope(WindowSystem& windows) : Scope(windows, windows.actor_) {}
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

     private:
        WindowSystem& windows_;
        Actor before_;
    };
    class Standing;
    /// A message loop: handlers that it starts are the outermost ones in it.
    class Loop {
     public:
        explicit Loop(WindowSystem& windows)
            : windows_(windows), before_(std::exchange(windows.loopDepth_, windows.depth_)) {}
        ~Loop() { windows_.loopDepth_ = before_; }
        Loop(const Loop&) = delete;
        Loop& operator=(const Loop&) = delete;

     private:
        WindowSystem& windows_;
        int before_;
    };
    void RunHost(const std::function<void()>& handler);
    void RunWhatFollows();
    bool Interrupted() const { return interrupted_ > 0 && depth_ >= interrupted_; }
    void InterruptFrom(int depth);
    void InterruptWhenBoxDied();
    static void Present(Form& form, bool made, bool modal, const std::function<void()>& prepare,
                        const std::function<bool()>& wanted = {});
    bool Holds(const Form& form) const;
    void Adopt(std::unique_ptr<Form> form);
    void Retire(Form& form);
    void EnterModal(Form& form) { modal_.push_back(&form); }
    void LeaveModal(Form& form);
    void RunModalLoop(Form& form);
    /// Runs the loop of a popup menu and answers the entry chosen, or null.
    MenuItem* ShowMenu(MenuItem& menu, const std::function<MenuItem*()>& loop);
    void Guard(const std::function<void()>& handler);
    void Report(const RuntimeError& error);
    Answer ShowBox(const BoxText& text, const MessageRequest& request, const RuntimeError* error);
    bool MayStand(const BoxText& box) const;
    void Refuse(const RuntimeError& error);
    /// Runs a loop of its own in which others may act.
    void WhileStanding(const BoxText& box, const std::function<void()>& loop);
    Form* DialogOwner() const;

    Backend& backend_;
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> retired_;
    std::vector<Form*> modal_;
    std::vector<const BoxText*> standing_;  ///< boxes and menus
    Actor actor_ = Actor::Nobody;
    std::optional<RuntimeError> refused_;  ///< a box that the present call of the host may not show
    MenuItem* standingMenu_ = nullptr;
    MenuItem* chosenItem_ = nullptr;
    bool askingToDrop_ = false;
    int depth_ = 0;
    int loopDepth_ = 0;  ///< the depth at which the present message loop runs
    std::deque<std::function<void()>> after_;
    /// Not 0: what is nested as deep or deeper is on its way out, because its window died.
    int interrupted_ = 0;
};

}  // namespace zv::forms
