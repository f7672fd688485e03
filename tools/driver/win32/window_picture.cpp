#include "driver/win32/window_picture.h"

#include <fstream>
#include <vector>

#include "driver/driver.h"
#include "driver/win32/played_backend.h"
#include "driver/win32/standing_look.h"
#include "forms/win32/handles.h"

namespace zv::driver {

namespace {

// What is painted reaches the screen when the program waits.
void LetPaint(HWND window) {
    constexpr DWORD kLongEnough = 150;
    RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    PumpMessages();
    GdiFlush();
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kLongEnough, 0);
}

}  // namespace

void SaveWindowPicture(HWND window, const std::filesystem::path& file) {
    LetPaint(window);
    RECT place{};
    GetWindowRect(window, &place);
    for (const HWND menu : OpenMenus()) {
        RECT beside{};
        GetWindowRect(menu, &beside);
        UnionRect(&place, &place, &beside);
    }
    // What lies beyond the screens has no points, and asking for them would give none at all.
    RECT screens{};
    screens.left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    screens.top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    screens.right = screens.left + GetSystemMetrics(SM_CXVIRTUALSCREEN);
    screens.bottom = screens.top + GetSystemMetrics(SM_CYVIRTUALSCREEN);
    IntersectRect(&place, &place, &screens);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const forms::win32::WindowDc screen(nullptr);
    const forms::win32::MemoryDc memory(CreateCompatibleDC(screen.get()));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const forms::win32::Bitmap bitmap(
        CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const forms::win32::Selected selected(memory.get(), bitmap.get());
    if (!BitBlt(memory.get(), 0, 0, static_cast<int>(width), static_cast<int>(height), screen.get(),
                static_cast<int>(place.left), static_cast<int>(place.top), SRCCOPY)) {
        throw DriverError("the screen gives no picture of " + file.stem().string());
    }
    GdiFlush();

    const auto size = static_cast<DWORD>(width * height) * static_cast<DWORD>(sizeof(DWORD));
    BITMAPFILEHEADER header{};
    constexpr WORD kBitmapMark = 0x4D42;
    header.bfType = kBitmapMark;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + size;
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
    out.write(static_cast<const char*>(bits), static_cast<std::streamsize>(size));
    out.close();
    if (!out) throw DriverError("cannot write " + file.string());
}

}  // namespace zv::driver
