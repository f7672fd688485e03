// The windows that exist, and the one boundary at which an error of an event handler stops.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "forms/backend.h"

namespace zv::forms {

class Form;

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
    /// The window of that name, or null.
    Form* Find(std::string_view name) const;
    template <typename Window>
    Window* Find(std::string_view name) const {
        return static_cast<Window*>(Find(name));
    }
    /// In order of creation.
    std::vector<Form*> Windows() const;
    Form* ModalForm() const { return modal_.empty() ? nullptr : modal_.back(); }
    void UnloadAll();

    /// Runs what the user caused: an error that leaves `handler` is shown in a message box. Windows
    /// unloaded meanwhile are destroyed when the outermost scope ends.
    void FromUser(const std::function<void()>& handler);
    /// Runs what the host caused: an error leaves as it is.
    void FromHost(const std::function<void()>& handler);

    Answer ShowMessage(const std::string& text, int style, const std::string& title = {});
    std::optional<std::string> AskText(const std::string& prompt, bool secret = false);
    std::optional<std::string> ChooseFile(const FileRequest& request);

    Backend& GetBackend() const { return backend_; }
    /// Title of boxes without one of their own.
    std::string title;
    /// Text that a user reads of an error.
    std::function<std::string(const RuntimeError&)> describeError;

 private:
    friend class Form;
    class Scope;
    void Adopt(std::unique_ptr<Form> form);
    void Retire(Form& form);
    void EnterModal(Form& form) { modal_.push_back(&form); }
    void LeaveModal(Form& form);
    void Report(const RuntimeError& error);
    Form* DialogOwner() const;

    Backend& backend_;
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> retired_;
    std::vector<Form*> modal_;
    int depth_ = 0;
};

}  // namespace zv::forms
