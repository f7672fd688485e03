#include "forms/win32/common_controls.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/errors.h"

namespace zv::forms::win32 {
namespace {

constexpr int kManifestResource = 2;

Context CreateContext(HINSTANCE module) {
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    request.hModule = module;
    request.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
    const HANDLE context = CreateActCtxW(&request);
    return context == INVALID_HANDLE_VALUE ? Context() : Context(context);
}

std::uint32_t Divided(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0 || alpha == 255) return pixel;
    const auto channel = [&](int shift) {
        return std::min<std::uint32_t>(255, (pixel >> shift & 0xFF) * 255 / alpha) << shift;
    };
    return alpha << 24 | channel(16) | channel(8) | channel(0);
}

}  // namespace

ManifestInForce::ManifestInForce(HANDLE context) {
    active_ = context && ActivateActCtx(context, &cookie_);
}

ManifestInForce::~ManifestInForce() {
    if (active_) DeactivateActCtx(0, cookie_);
}

CommonControls::CommonControls(HINSTANCE module) : context_(CreateContext(module)) {
    const ManifestInForce manifest(context_.get());
    library_.reset(LoadLibraryW(L"comctl32.dll"));
    const auto find = [this](const char* name) { return GetProcAddress(library_.get(), name); };
    create_ = reinterpret_cast<decltype(create_)>(find("ImageList_Create"));
    add_ = reinterpret_cast<decltype(add_)>(find("ImageList_Add"));
    destroy_ = reinterpret_cast<decltype(destroy_)>(find("ImageList_Destroy"));
    const auto init =
        reinterpret_cast<decltype(&InitCommonControlsEx)>(find("InitCommonControlsEx"));
    if (!create_ || !add_ || !destroy_ || !init) {
        throw RuntimeError(ErrorNumber::InternalError, "The common controls cannot be loaded");
    }
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_TAB_CLASSES | ICC_UPDOWN_CLASS |
                                                           ICC_DATE_CLASSES | ICC_STANDARD_CLASSES};
    init(&classes);
}

HIMAGELIST CommonControls::CreateImageList(const ImageList& images, int size) const {
    const HIMAGELIST list = create_(size, size, ILC_COLOR32 | ILC_MASK, images.Count(), 4);
    if (!list) throw RuntimeError(ErrorNumber::InternalError, "No memory for images");
    for (int i = 0; i < images.Count(); i++) {
        add_(list, CreateIconBitmap(images.At(i), size, Alpha::Straight).get(), nullptr);
    }
    liveHandles++;
    return list;
}

void CommonControls::Destroy(HIMAGELIST list) const {
    if (!list) return;
    liveHandles--;
    destroy_(list);
}

Bitmap CreateIconBitmap(const Icon& icon, int size, Alpha alpha) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size;
    info.bmiHeader.biHeight = -size;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    Bitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) throw RuntimeError(ErrorNumber::InternalError, "No memory for images");
    std::vector<std::uint32_t> pixels = Rasterize(icon, size);
    if (alpha == Alpha::Straight)
        std::transform(pixels.begin(), pixels.end(), pixels.begin(), Divided);
    std::copy(pixels.begin(), pixels.end(), static_cast<std::uint32_t*>(bits));
    return bitmap;
}

}  // namespace zv::forms::win32
