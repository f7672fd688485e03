// Real windows for a benchmark.
#pragma once

#include <windows.h>

#include "doubles/no_dialogs.h"
#include "driver/win32/played_backend.h"
#include "forms/form.h"
#include "forms/win32/win32_backend.h"

namespace zv::bench {

struct Screen {
    /// Brings on the screen what is due, and handles the messages that wait.
    void Paint(forms::Form& form) {
        UpdateWindow(backend.Handle(form));
        driver::PumpMessages();
    }

    doubles::NoDialogs dialogs;
    forms::win32::Win32Backend backend{GetModuleHandleW(nullptr), &dialogs};
};

}  // namespace zv::bench
