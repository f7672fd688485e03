// IViewObject2: the picture at design time.
#pragma once

#include "com/core.h"

namespace zv::com {

class ViewObject final : public Part<IViewObject2> {
 public:
    using Part::Part;

    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target,
                      HDC targetDevice, HDC context, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(CALLBACK* mayContinue)(ULONG_PTR),
                      ULONG_PTR continueArgument) noexcept override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target,
                             HDC targetDevice, LOGPALETTE** colors) noexcept override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* key) noexcept override;
    STDMETHODIMP Unfreeze(DWORD key) noexcept override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target,
                           LPSIZEL size) noexcept override;

    /// Notifies the container that the picture changed.
    void NotifyChanged() noexcept;

 private:
    win32::ComPtr<IAdviseSink> sink_;
    DWORD aspects_ = 0;
    DWORD flags_ = 0;
};

}  // namespace zv::com
