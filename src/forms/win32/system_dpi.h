// The awareness of resolutions that the system keeps for threads and windows: Windows 10, version
// 1607 and later.
#pragma once

#include <windows.h>

#include "forms/dpi_awareness.h"

namespace zv::forms::win32 {

/// Asks a window how large it wants to be at another resolution, before that is suggested to it.
/// Of the same versions, and not in the headers of earlier ones.
inline constexpr UINT kGetDpiScaledSize = 0x02E4;

/// The calling thread. Where the system has no such function it knows no context.
class SystemDpiThread final : public ThreadDpi {
 public:
    DpiContext Set(DpiContext context) noexcept override;
    std::span<const DpiContext> Wanted() const noexcept override;
};

/// The context that a window was made in; null where the system keeps none. A child window can only
/// be made in that of its parent.
DpiContext DpiContextOf(HWND window) noexcept;

/// For WM_NCCREATE: the frame of a window that is aware of each monitor follows its resolution.
/// Does nothing where that happens by itself or cannot be had.
void ScaleFrame(HWND window) noexcept;

}  // namespace zv::forms::win32
