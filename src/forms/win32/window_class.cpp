#include "forms/win32/window_class.h"

#include <map>
#include <string>

#include "base/errors.h"
#include "forms/win32/handles.h"

namespace zv::forms::win32 {
namespace {

// By name. All windows of the module belong to one thread.
std::map<std::wstring, std::weak_ptr<WindowClass>> shared;

}  // namespace

WindowClass::WindowClass(HINSTANCE module, const wchar_t* name, WNDPROC procedure)
    : module_(module) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = module;
    description.hIcon = LoadIconW(module, MAKEINTRESOURCEW(1));
    if (!description.hIcon) description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = name;
    id_ = RegisterClassExW(&description);
    // Left over from a window that died by another hand after all else of it, perhaps with an
    // earlier load of this file, whose procedure is gone.
    if (!id_ && UnregisterClassW(name, module)) id_ = RegisterClassExW(&description);
    if (!id_) throw RuntimeError(ErrorNumber::InternalError, "No window class");
    liveHandles++;
}

WindowClass::~WindowClass() {
    liveHandles--;
    UnregisterClassW(MAKEINTATOM(id_), module_);
}

std::shared_ptr<WindowClass> WindowClass::Get(HINSTANCE module, const wchar_t* name,
                                              WNDPROC procedure) {
    std::shared_ptr<WindowClass> present = Find(name);
    if (!present) {
        present = std::make_shared<WindowClass>(module, name, procedure);
        shared[name] = present;
    }
    return present;
}

void WindowClass::Forget(const wchar_t* name) {
    const std::shared_ptr<WindowClass> present = Find(name);
    if (present) UnregisterClassW(MAKEINTATOM(present->id_), present->module_);
    shared.erase(name);
}

std::shared_ptr<WindowClass> WindowClass::Find(const wchar_t* name) {
    const auto found = shared.find(name);
    return found == shared.end() ? nullptr : found->second.lock();
}

}  // namespace zv::forms::win32
