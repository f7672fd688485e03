// A window class of this module, there as long as a window needs it.
#pragma once

#include <windows.h>

#include <memory>

namespace zv::forms::win32 {

class WindowClass {
 public:
    WindowClass(HINSTANCE module, const wchar_t* name, WNDPROC procedure);
    ~WindowClass();
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;

    ATOM Id() const { return id_; }

    /// Registers the class unless another window has done so.
    static std::shared_ptr<WindowClass> Get(HINSTANCE module, const wchar_t* name,
                                            WNDPROC procedure);
    /// The class while a window needs it, otherwise none.
    static std::shared_ptr<WindowClass> Find(const wchar_t* name);
    /// Takes a class back whose windows died with their thread.
    static void Forget(const wchar_t* name);

 private:
    HINSTANCE module_;
    ATOM id_;
};

}  // namespace zv::forms::win32
