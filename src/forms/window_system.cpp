#include "forms/window_system.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "forms/form.h"

namespace zv::forms {

WindowSystem::Scope::~Scope() {
    windows_.actor_ = before_;
    if (--windows_.depth_ < windows_.interrupted_) windows_.interrupted_ = 0;
    if (windows_.depth_ == 0) windows_.retired_.clear();
}

// Whatever happens while a box stands is nobody's act until a handler says whose.
class WindowSystem::Standing {
 public:
    Standing(WindowSystem& windows, BoxText box)
        : scope_(windows, Actor::Nobody), loop_(windows), windows_(windows), box_(std::move(box)) {
        windows_.standing_.push_back(&box_);
    }
    // Boxes need not fall in the order in which they rose.
    ~Standing() { std::erase(windows_.standing_, &box_); }
    Standing(const Standing&) = delete;
    Standing& operator=(const Standing&) = delete;

 private:
    Scope scope_;
    Loop loop_;
    WindowSystem& windows_;
    BoxText box_;
};

namespace {

// Inputs, files and menus have no text in common with message boxes.
constexpr const char* kInput = "\x02";
constexpr const char* kFile = "\x03";
constexpr const char* kMenu = "\x04";

bool IsQuestion(int style) {
    constexpr int kButtons = 0xF;
    return (style & kButtons) != box::kOkOnly;
}

// What a box stands for that ended without the user.
Answer AnswerOfNobody(int style) {
    constexpr int kButtons = 0xF;
    if ((style & kButtons) == box::kOkOnly) return Answer::Ok;
    if ((style & kButtons) == box::kYesNo) throw RuntimeError(ErrorNumber::UserInterrupt);
    return Answer::Cancel;
}

}  // namespace

WindowSystem::WindowSystem(Backend& backend) : backend_(backend) {}
WindowSystem::~WindowSystem() = default;

void WindowSystem::Adopt(std::unique_ptr<Form> form) {
    // A window that goes is put aside where nothing may fail any more.
    retired_.reserve(retired_.size() + forms_.size() + 1);
    forms_.push_back(std::move(form));
}

void WindowSystem::Retire(Form& form) {
    const auto at = std::find_if(forms_.begin(), forms_.end(),
                                 [&](const auto& candidate) { return candidate.get() == &form; });
    if (at == forms_.end()) return;
    std::unique_ptr<Form> owned = std::move(*at);
    forms_.erase(at);
    if (depth_ > 0) retired_.push_back(std::move(owned));
}

bool WindowSystem::Holds(const Form& form) const {
    return std::any_of(forms_.begin(), forms_.end(),
                       [&](const auto& candidate) { return candidate.get() == &form; });
}

void WindowSystem::RefuseBeside(bool modal, const Form* window) const {
    if (modal && window && window->IsShown()) {
        throw RuntimeError(ErrorNumber::FormAlreadyShown);
    }
    if (Interrupted()) throw RuntimeError(ErrorNumber::UserInterrupt);
    // A window is met while it loads only when a box stands that its loading has shown.
    const bool blocked = ModalForm() && ModalForm() != window;
    if ((!modal && blocked) || (window && window->IsLoading())) {
        throw RuntimeError(ErrorNumber::ModalFormShown);
    }
}

void WindowSystem::Present(Form& form, bool made, bool modal, const std::function<void()>& prepare,
                           const std::function<bool()>& wanted) {
    try {
        prepare();
        if (wanted) {
            form.Load();
            if (!wanted()) return form.Discard();
        }
        form.Show(modal);
    } catch (...) {
        if (made) form.Discard();
        throw;
    }
}

void WindowSystem::LeaveModal(Form& form) {
    std::erase(modal_, &form);
}

Form* WindowSystem::Find(std::string_view name) const {
    for (const auto& form : forms_) {
        if (form->Name() == name) return form.get();
    }
    return nullptr;
}

bool WindowSystem::HasOpened() const {
    return std::any_of(forms_.begin(), forms_.end(),
                       [](const auto& form) { return !form->ComesByItself(); });
}

std::vector<Form*> WindowSystem::Windows() const {
    std::vector<Form*> result;
    for (const auto& form : forms_) result.push_back(form.get());
    return result;
}

bool WindowSystem::HasModal() const {
    if (!modal_.empty() || !standing_.empty()) return true;
    return std::any_of(forms_.begin(), forms_.end(),
                       [](const auto& form) { return form->Peer() && form->Peer()->InMenu(); });
}

void WindowSystem::UnloadAll() {
    {
        const Scope scope(*this);
        for (Form* form : Windows()) {
            const std::vector<Form*> present = Windows();
            if (std::find(present.begin(), present.end(), form) != present.end()) form->Unload();
        }
    }
    RunWhatFollows();
}

void WindowSystem::Guard(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const BoxStands& error) {
        Refuse(error);
    } catch (const RuntimeError& error) {
        Report(error);
    } catch (const std::exception& error) {
        Report(RuntimeError(ErrorNumber::InternalError, error.what()).Of(ErrorKind::Other));
    }
}

void WindowSystem::FromUser(const std::function<void()>& handler) {
    {
        const Scope scope(*this, actor_ == Actor::Nobody ? Actor::User : actor_);
        Guard(handler);
    }
    RunWhatFollows();
}

void WindowSystem::FromTimer(const std::function<void()>& handler) {
    {
        const Scope scope(*this, Actor::Timer);
        Guard(handler);
    }
    RunWhatFollows();
}

void WindowSystem::FromHost(const std::function<void()>& handler) {
    backend_.RunForHost([&] { RunHost(handler); });
}

void WindowSystem::RunHost(const std::function<void()>& handler) {
    std::exception_ptr failure;
    std::optional<RuntimeError> refused;
    const auto outer = std::exchange(refused_, std::nullopt);
    {
        const Scope scope(*this, Actor::Host);
        try {
            handler();
        } catch (...) {
            failure = std::current_exception();
        }
        refused = std::exchange(refused_, outer);
    }
    RunWhatFollows();
    if (failure) std::rethrow_exception(failure);
    if (refused) throw BoxStands(*refused);
}

// An action may open windows and run loops, in which the rest of the queue goes on.
void WindowSystem::RunWhatFollows() {
    while (depth_ == loopDepth_ && !after_.empty()) {
        const std::function<void()> action = std::move(after_.front());
        after_.pop_front();
        Guard(action);
    }
}

void WindowSystem::InterruptFrom(int depth) {
    interrupted_ = interrupted_ == 0 ? depth : std::min(interrupted_, depth);
}

// What asked goes on as far as it can without the user, back to the loop that it was called from.
void WindowSystem::InterruptWhenBoxDied() {
    // The loop has a scope of its own, in which the handlers' begin.
    constexpr int kFirstOfLoop = 2;
    if (!backend_.GetDialogs().LastDied()) return;
    InterruptFrom(modal_.empty() ? 1 : modal_.back()->loopDepth_ + kFirstOfLoop);
}

void WindowSystem::Report(const RuntimeError& error) {
    if (error.Number() == ErrorNumber::UserInterrupt) return;
    const std::string text = describeError ? describeError(error) : error.Text();
    ShowMessage(text, box::kCritical, {}, &error);
}

bool WindowSystem::MayStand(const BoxText& box) const {
    if (actor_ != Actor::Host && actor_ != Actor::Timer) return true;
    return std::none_of(standing_.begin(), standing_.end(), [&](const BoxText* other) {
        return other->Kind() == box.Kind() || other->Text() == box.Text();
    });
}

void WindowSystem::Refuse(const RuntimeError& error) {
    if (actor_ == Actor::Host && !refused_) refused_ = error;
}

void WindowSystem::WhileStanding(const BoxText& box, const std::function<void()>& loop) {
    const Standing standing(*this, box);
    loop();
}

Form* WindowSystem::DialogOwner() const {
    if (!modal_.empty()) return modal_.back();
    const auto shown = std::find_if(forms_.rbegin(), forms_.rend(),
                                    [](const auto& form) { return form->IsShown(); });
    return shown == forms_.rend() ? nullptr : shown->get();
}

Answer WindowSystem::ShowMessage(const BoxText& text, int style, const std::string& boxTitle,
                                 const RuntimeError* error) {
    return ShowBox(text, {text.Text(), style, boxTitle.empty() ? title : boxTitle}, error);
}

Answer WindowSystem::ShowWithReason(const BoxText& text, int style, const std::string& reason) {
    return ShowBox(text, {text.Text(), style, title, DefaultButton::First, reason}, nullptr);
}

Answer WindowSystem::AskCarefully(const BoxText& text, int style) {
    return ShowBox(text, {text.Text(), style, title, DefaultButton::Last}, nullptr);
}

Answer WindowSystem::ShowBox(const BoxText& text, const MessageRequest& request,
                             const RuntimeError* error) {
    if (!MayStand(text)) {
        const RuntimeError refusal = error ? *error : RuntimeError(ErrorNumber::ModalFormShown);
        if (IsQuestion(request.style)) throw BoxStands(refusal);
        Refuse(refusal);
        return Answer::Ok;
    }
    Answer answer = Answer::None;
    if (!Interrupted()) {
        WhileStanding(text,
                      [&] { answer = backend_.GetDialogs().ShowMessage(DialogOwner(), request); });
        InterruptWhenBoxDied();
    }
    return answer == Answer::None ? AnswerOfNobody(request.style) : answer;
}

bool WindowSystem::MayDropInput() {
    if (!askToDropInput) return true;
    if (askingToDrop_) return false;
    struct Asking {
        explicit Asking(bool& flag) : asking(flag) { asking = true; }
        ~Asking() { asking = false; }
        bool& asking;
    } const standing{askingToDrop_};
    return askToDropInput();
}

void WindowSystem::EndSession() {
    const std::vector<Form*> present = Windows();
    for (auto form = present.rbegin(); form != present.rend(); ++form) {
        if (!Holds(**form)) continue;
        Interrupt();
        (*form)->UserDestroyed();
    }
}

std::optional<std::string> WindowSystem::AskText(const std::string& prompt, bool secret) {
    const BoxText text(kInput + prompt);
    if (!MayStand(text)) throw BoxStands(RuntimeError(ErrorNumber::ModalFormShown));
    std::optional<std::string> typed;
    if (Interrupted()) return typed;
    WhileStanding(
        text, [&] { typed = backend_.GetDialogs().AskText(DialogOwner(), prompt, title, secret); });
    InterruptWhenBoxDied();
    return typed;
}

std::optional<std::string> WindowSystem::ChooseFile(const FileRequest& request) {
    std::optional<std::string> chosen;
    if (Interrupted()) return chosen;
    WhileStanding(kFile,
                  [&] { chosen = backend_.GetDialogs().ChooseFile(DialogOwner(), request); });
    InterruptWhenBoxDied();
    return chosen;
}

MenuItem* WindowSystem::ShowMenu(MenuItem& menu, const std::function<MenuItem*()>& loop) {
    struct Closed {
        WindowSystem& windows;
        ~Closed() { windows.standingMenu_ = nullptr; }
    } const closed{*this};
    standingMenu_ = &menu;
    chosenItem_ = nullptr;
    MenuItem* chosen = nullptr;
    WhileStanding(kMenu, [&] { chosen = loop(); });
    return chosen ? chosen : chosenItem_;
}

void WindowSystem::RunModalLoop(Form& form) {
    const Scope scope(*this, Actor::Nobody);
    const Loop loop(*this);
    // What led to the window; it may close it.
    RunWhatFollows();
    if (form.IsShown()) backend_.RunModal(form);
}

}  // namespace zv::forms
