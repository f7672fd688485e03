#include "com/data_object.h"

#include "base/win32/enumerator.h"
#include "com/boundary.h"
#include "com/design_view.h"
#include "com/held_items.h"

namespace zv::com {

namespace {

constexpr FORMATETC kMetafilePicture = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1,
                                        TYMED_MFPICT};
constexpr FORMATETC kEnhancedMetafile = {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1,
                                         TYMED_ENHMF};

HRESULT CopyFormat(const FORMATETC& held, FORMATETC* item) {
    *item = held;
    return S_OK;
}

using FormatItems = HeldItems<FORMATETC, FORMATETC, &CopyFormat>;
using FormatEnumerator = win32::Enumerator<IEnumFORMATETC, FORMATETC, FormatItems>;

HRESULT Check(const FORMATETC* format, const FORMATETC& offered) {
    if (format->cfFormat != offered.cfFormat) return DV_E_FORMATETC;
    if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (format->lindex != -1) return DV_E_LINDEX;
    return format->tymed & offered.tymed ? S_OK : DV_E_TYMED;
}

HRESULT RenderMetafilePicture(SIZEL extent, std::wstring_view name, STGMEDIUM& medium) {
    const SIZE pixels = ToPixels(extent);
    const HDC context = CreateMetaFileW(nullptr);
    if (!context) return E_OUTOFMEMORY;
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetWindowExtEx(context, pixels.cx, pixels.cy, nullptr);
    DrawDesignView(context, RECT{0, 0, pixels.cx, pixels.cy}, name);
    const HMETAFILE metafile = CloseMetaFile(context);
    if (!metafile) return E_OUTOFMEMORY;
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
    auto* picture = memory ? static_cast<METAFILEPICT*>(GlobalLock(memory)) : nullptr;
    if (!picture) {
        if (memory) GlobalFree(memory);
        DeleteMetaFile(metafile);
        return E_OUTOFMEMORY;
    }
    *picture = {MM_ANISOTROPIC, extent.cx, extent.cy, metafile};
    GlobalUnlock(memory);
    medium.tymed = TYMED_MFPICT;
    medium.hMetaFilePict = memory;
    return S_OK;
}

HRESULT RenderEnhancedMetafile(SIZEL extent, std::wstring_view name, STGMEDIUM& medium) {
    const RECT frame{0, 0, extent.cx, extent.cy};
    const SIZE pixels = ToPixels(extent);
    const HDC context = CreateEnhMetaFileW(nullptr, nullptr, &frame, L"zvTask\0zvTask\0");
    if (!context) return E_OUTOFMEMORY;
    DrawDesignView(context, RECT{0, 0, pixels.cx, pixels.cy}, name);
    medium.hEnhMetaFile = CloseEnhMetaFile(context);
    if (!medium.hEnhMetaFile) return E_OUTOFMEMORY;
    medium.tymed = TYMED_ENHMF;
    return S_OK;
}

}  // namespace

STDMETHODIMP DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
    if (!format || !medium) return E_POINTER;
    return Boundary([&] {
        *medium = {};
        const std::wstring name = core_.DisplayName();
        if (Check(format, kEnhancedMetafile) == S_OK) {
            return RenderEnhancedMetafile(core_.extent, name, *medium);
        }
        const HRESULT hr = Check(format, kMetafilePicture);
        return hr == S_OK ? RenderMetafilePicture(core_.extent, name, *medium) : hr;
    });
}

STDMETHODIMP DataObject::GetDataHere(FORMATETC*, STGMEDIUM*) noexcept {
    return DV_E_FORMATETC;
}

STDMETHODIMP DataObject::QueryGetData(FORMATETC* format) noexcept {
    if (!format) return E_POINTER;
    if (Check(format, kEnhancedMetafile) == S_OK) return S_OK;
    return Check(format, kMetafilePicture);
}

STDMETHODIMP DataObject::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) noexcept {
    if (!format || !canonical) return E_POINTER;
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP DataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept {
    return DV_E_FORMATETC;
}

STDMETHODIMP DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept {
    if (!formats) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    return Boundary([&] {
        *formats = new FormatEnumerator(FormatItems({kEnhancedMetafile, kMetafilePicture}));
    });
}

STDMETHODIMP DataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                 DWORD* connection) noexcept {
    if (!format || !sink || !connection) return E_POINTER;
    return Boundary([&]() -> HRESULT {
        if (!advises_) ThrowIfFailed(CreateDataAdviseHolder(advises_.Put()));
        const win32::ComPtr<IDataAdviseHolder> advises = advises_;
        return advises->Advise(this, format, flags, sink, connection);
    });
}

STDMETHODIMP DataObject::DUnadvise(DWORD connection) noexcept {
    const win32::ComPtr<IDataAdviseHolder> advises = advises_;
    return advises ? advises->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP DataObject::EnumDAdvise(IEnumSTATDATA** connections) noexcept {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return advises_ ? advises_->EnumAdvise(connections) : S_OK;
}

void DataObject::NotifyChanged() noexcept {
    const win32::ComPtr<IDataAdviseHolder> advises = advises_;
    if (advises) advises->SendOnDataChange(this, 0, 0);
}

}  // namespace zv::com
