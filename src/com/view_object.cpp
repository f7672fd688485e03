#include "com/view_object.h"

#include "com/boundary.h"
#include "com/design_view.h"

namespace zv::com {

STDMETHODIMP ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context,
                              LPCRECTL bounds, LPCRECTL, BOOL(CALLBACK*)(ULONG_PTR),
                              ULONG_PTR) noexcept {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!context || !bounds) return E_INVALIDARG;
    return Boundary([&] {
        // Nothing is to be seen of the control while its host runs.
        if (core_.IsUserMode()) return;
        const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
        DrawDesignView(context, place, core_.DisplayName());
    });
}

STDMETHODIMP ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                     LOGPALETTE** colors) noexcept {
    if (colors) *colors = nullptr;
    return S_FALSE;
}

STDMETHODIMP ViewObject::Freeze(DWORD, LONG, void*, DWORD*) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP ViewObject::Unfreeze(DWORD) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    if (sink && aspects != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return Boundary([&] {
        sink_ = win32::ComPtr<IAdviseSink>(sink);
        aspects_ = aspects;
        flags_ = flags;
        if (sink && (flags & ADVF_PRIMEFIRST)) NotifyChanged();
    });
}

STDMETHODIMP ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
    if (aspects) *aspects = aspects_;
    if (flags) *flags = flags_;
    if (sink) sink_.CopyTo(sink);
    return S_OK;
}

STDMETHODIMP ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    *size = core_.extent;
    return S_OK;
}

void ViewObject::NotifyChanged() noexcept {
    // The sink may take itself away while it is notified.
    const win32::ComPtr<IAdviseSink> sink = sink_;
    if (!sink) return;
    if (flags_ & ADVF_ONLYONCE) sink_.Reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace zv::com
