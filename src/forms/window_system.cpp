#include "forms/window_system.h"

#include <algorithm>

#include "forms/form.h"

namespace zv::forms {

WindowSystem::Scope::~Scope() {
    if (--windows_.depth_ == 0) windows_.retired_.clear();
}

WindowSystem::WindowSystem(Backend& backend) : backend_(backend) {}
WindowSystem::~WindowSystem() = default;

void WindowSystem::Adopt(std::unique_ptr<Form> form) {
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

std::vector<Form*> WindowSystem::Windows() const {
    std::vector<Form*> result;
    for (const auto& form : forms_) result.push_back(form.get());
    return result;
}

void WindowSystem::UnloadAll() {
    const Scope scope(*this);
    for (Form* form : Windows()) {
        const std::vector<Form*> present = Windows();
        if (std::find(present.begin(), present.end(), form) != present.end()) form->Unload();
    }
}

void WindowSystem::FromUser(const std::function<void()>& handler) {
    const Scope scope(*this);
    try {
        handler();
    } catch (const RuntimeError& error) {
        Report(error);
    } catch (const std::exception& error) {
        Report(RuntimeError(ErrorNumber::InternalError, error.what()));
    }
}

void WindowSystem::FromHost(const std::function<void()>& handler) {
    const Scope scope(*this);
    handler();
}

void WindowSystem::Report(const RuntimeError& error) {
    const std::string text = describeError ? describeError(error) : error.Text();
    ShowMessage(text, box::kCritical);
}

Form* WindowSystem::DialogOwner() const {
    if (!modal_.empty()) return modal_.back();
    for (auto form = forms_.rbegin(); form != forms_.rend(); ++form) {
        if ((*form)->IsShown()) return form->get();
    }
    return nullptr;
}

Answer WindowSystem::ShowMessage(const std::string& text, int style, const std::string& boxTitle) {
    return backend_.GetDialogs().ShowMessage(DialogOwner(), text, style,
                                             boxTitle.empty() ? title : boxTitle);
}

std::optional<std::string> WindowSystem::AskText(const std::string& prompt, bool secret) {
    return backend_.GetDialogs().AskText(DialogOwner(), prompt, title, secret);
}

std::optional<std::string> WindowSystem::ChooseFile(const FileRequest& request) {
    return backend_.GetDialogs().ChooseFile(DialogOwner(), request);
}

}  // namespace zv::forms
