#include "floors/bare_window.h"

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace zv::bench {
namespace {

constexpr wchar_t kClass[] = L"zvBenchBareWindow";

HWND Checked(HWND window) {
    if (window == nullptr) throw std::runtime_error("a window could not be made");
    return window;
}

}  // namespace

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

BareWindow::BareWindow() {
    const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_TREEVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    const HINSTANCE module = GetModuleHandleW(nullptr);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = module;
    windowClass.lpszClassName = kClass;
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&windowClass);
    frame_ = Checked(CreateWindowW(kClass, L"bare", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0,
                                   420, 620, nullptr, nullptr, module, nullptr));
    tree_ = Checked(CreateWindowW(
        WC_TREEVIEWW, L"",
        WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
        0, 0, 400, 580, frame_, nullptr, module, nullptr));
    images_ = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 4, 4);
    for (int i = 0; i < 4; ++i) {
        ImageList_AddIcon(images_, LoadIconW(nullptr, i % 2 != 0 ? IDI_INFORMATION : IDI_WARNING));
    }
    TreeView_SetImageList(tree_, images_, TVSIL_NORMAL);
    // The font that dialogs have; in the default one Chinese text is slow to measure.
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
    SendMessageW(tree_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
}

BareWindow::~BareWindow() {
    DestroyWindow(frame_);
    ImageList_Destroy(images_);
    DeleteObject(font_);
}

void BareWindow::Show() {
    ShowWindow(frame_, SW_SHOW);
    Paint();
}

void BareWindow::BeginFill() {
    SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
}

void BareWindow::EndFill() {
    SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(tree_, nullptr, TRUE);
}

HTREEITEM BareWindow::Add(HTREEITEM parent, int image, LPARAM data, std::string_view utf8) {
    static std::vector<wchar_t> text;
    text.resize(utf8.size() + 1);
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                           text.data(), static_cast<int>(text.size()));
    text[static_cast<std::size_t>(length)] = L'\0';
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent == nullptr ? TVI_ROOT : parent;
    insert.hInsertAfter = TVI_LAST;
    insert.itemex.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
    insert.itemex.pszText = text.data();
    insert.itemex.iImage = insert.itemex.iSelectedImage = image;
    insert.itemex.lParam = data;
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

void BareWindow::Expand(HTREEITEM group) {
    TreeView_Expand(tree_, group, TVE_EXPAND);
}

void BareWindow::Clear() {
    TreeView_DeleteAllItems(tree_);
}

void BareWindow::Paint() {
    UpdateWindow(frame_);
    UpdateWindow(tree_);
    Pump();
}

}  // namespace zv::bench
