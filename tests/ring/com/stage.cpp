#include "stage.h"

#include "ring.h"

namespace zv::ring::com {

namespace {

constexpr wchar_t kHostClass[] = L"zvRingHost";

// Most hosts leave it whole for the next one.
HWND HostWindow() {
    static HWND window = nullptr;
    if (IsWindow(window)) return window;
    WNDCLASSW description{};
    description.lpfnWndProc = &DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kHostClass;
    RegisterClassW(&description);
    window = CreateWindowExW(0, kHostClass, L"host", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                             nullptr, GetModuleHandleW(nullptr), nullptr);
    return window;
}

HMODULE ControlModule() {
    return GetModuleHandleW(container::File().path.c_str());
}

}  // namespace

Stage::Stage()
    : site(troupe.Make<Site>(trouble)),
      otherSite(troupe.Make<Site>(trouble)),
      stream(troupe.Make<Stream>(trouble)),
      systemStream(troupe.Make<Stream>(trouble)),
      storage(troupe.Make<Storage>(trouble, stream, systemStream)),
      bag(troupe.Make<Bag>(trouble)),
      sink(troupe.Make<Sink>(trouble)),
      secondSink(troupe.Make<Sink>(trouble)),
      window(HostWindow()) {
    site.window = window;
    otherSite.window = window;
    CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                     control.PutVoid());
}

IConnectionPoint* Stage::Point(REFIID iid) const {
    const auto points = control.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    if (points) points->FindConnectionPoint(iid, point.Put());
    return point.Get();
}

std::string Stage::Close() {
    trouble.Plan(0, std::nullopt);
    sink.onCall = nullptr;
    secondSink.onCall = nullptr;
    // One that was let go of while it was active has nobody left to tell.
    const bool wasClosed = static_cast<bool>(control);
    if (control) {
        const auto object = control.As<IOleObject>();
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    control.Reset();
    std::string wrong = ControlWindows().empty() || CloseWindows() ? "" : "windows are left\n";
    wrong += troupe.Imbalance();
    while (const HWND child = IsWindow(window) ? GetWindow(window, GW_CHILD) : nullptr) {
        wrong += "a child window is left\n";
        DestroyWindow(child);
    }
    if (wasClosed && site.activations > 0)
        wrong += "the site was not told that the control is inactive\n";
    return wrong;
}

std::string Stage::End() {
    std::string wrong = Close();
    wrong += WhatIsLeft();
    return wrong + NormalLife();
}

std::string WhatIsLeft() {
    std::string wrong = CloseWindows() ? "" : "windows are left\n";
    if (container::File().canUnload() != S_OK) wrong += "the file cannot be unloaded\n";
    WNDCLASSEXW left{};
    left.cbSize = sizeof left;
    if (GetClassInfoExW(ControlModule(), L"zvTask.DesignView", &left)) {
        wrong += "a class of windows is left\n";
    }
    return wrong;
}

std::string Image(IUnknown& control) {
    Trouble none;
    Stream stream(none);
    ComPtr<IPersistStreamInit> persist;
    control.QueryInterface(IID_IPersistStreamInit, persist.PutVoid());
    return persist && persist->Save(&stream, FALSE) == S_OK ? stream.bytes : std::string();
}

std::string NormalLife() {
    ComPtr<IDispatch> task;
    const HRESULT hr = CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER,
                                        IID_IDispatch, task.PutVoid());
    if (FAILED(hr)) return "no control can be created\n";
    std::string wrong;
    const Variant name("名");
    if (container::Put(*task, L"myName", name).hr != S_OK) wrong += "a property cannot be set\n";
    const auto read = container::Get(*task, L"myName");
    if (read.hr != S_OK || read.value.Type() != VT_BSTR ||
        win32::View(read.value.Get().bstrVal) != L"名") {
        wrong += "a property does not read as it was set\n";
    }
    if (Image(*task).empty()) wrong += "it cannot be saved\n";
    SetDatabase(*task);
    const Variant connectsOnly(std::int32_t{8});
    const Variant notModal(std::int16_t{0});
    const auto refreshed = container::Call(*task, L"refresh", {connectsOnly.Get(), notModal.Get()});
    if (refreshed.hr != S_OK) wrong += "it does not connect: " + refreshed.errorText + '\n';
    task.Reset();
    wrong += WhatIsLeft();
    return wrong;
}

}  // namespace zv::ring::com
