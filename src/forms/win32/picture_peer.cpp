#include "forms/win32/picture_peer.h"

#include <algorithm>

#include "forms/win32/common_controls.h"
#include "forms/win32/form_window.h"
#include "forms/win32/panel_peers.h"

namespace zv::forms::win32 {
namespace {

constexpr wchar_t kPictureClass[] = L"zv.Picture";

}  // namespace

void NativePicture::Create(HWND parent, int id) {
    class_ = WindowClass::Get(Owner().Module(), kPictureClass, &DefWindowProcW);
    CreateNative(parent, id, kPictureClass, 0);
}

void NativePicture::ResolutionChanged() {
    bitmapSize_ = 0;
    NativeControl::ResolutionChanged();
}

void NativePicture::Mirror(Aspect aspect) {
    if (aspect != Aspect::Image) return;
    bitmapSize_ = 0;
    InvalidateRect(Handle(), nullptr, TRUE);
}

std::optional<LRESULT> NativePicture::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND: {
            const HDC dc = reinterpret_cast<HDC>(wParam);
            RECT client{};
            GetClientRect(Handle(), &client);
            FillRect(dc, &client, BackgroundOf(Owner(), dc, Handle()));
            return 1;
        }
        case WM_PAINT:
            Paint();
            return 0;
        default:
            return std::nullopt;
    }
}

void NativePicture::Paint() {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(Handle(), &paint);
    RECT client{};
    GetClientRect(Handle(), &client);
    const int size = static_cast<int>(std::min(client.right, client.bottom));
    const Icon& icon = static_cast<const Picture&>(Logical()).Image();
    if (size > 0 && !icon.shapes.empty()) {
        if (bitmapSize_ != size) {
            bitmap_ = CreateIconBitmap(icon, size, Alpha::Premultiplied);
            bitmapSize_ = size;
        }
        const MemoryDc memory(CreateCompatibleDC(dc));
        const Selected selected(memory.get(), bitmap_.get());
        const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        AlphaBlend(dc, static_cast<int>(client.right - size) / 2,
                   static_cast<int>(client.bottom - size) / 2, size, size, memory.get(), 0, 0, size,
                   size, blend);
    }
    EndPaint(Handle(), &paint);
}

}  // namespace zv::forms::win32
