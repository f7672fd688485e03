#include "com/boundary.h"
#include "com/ids.h"
#include "com/persist.h"
#include "com/stream_io.h"

namespace zv::com {

STDMETHODIMP PersistStream::GetClassID(CLSID* id) noexcept {
    if (!id) return E_POINTER;
    *id = kClassId;
    return S_OK;
}

STDMETHODIMP PersistStream::IsDirty() noexcept {
    return core_.isDirty ? S_OK : S_FALSE;
}

STDMETHODIMP PersistStream::Load(IStream* stream) noexcept {
    if (!stream) return E_POINTER;
    return Boundary([&] {
        ReadFromStream(core_, *stream);
        core_.isDirty = false;
    });
}

STDMETHODIMP PersistStream::Save(IStream* stream, BOOL clearDirty) noexcept {
    if (!stream) return E_POINTER;
    return Boundary([&] {
        WriteToStream(core_, *stream);
        if (clearDirty) core_.isDirty = false;
    });
}

STDMETHODIMP PersistStream::GetSizeMax(ULARGE_INTEGER* size) noexcept {
    if (!size) return E_POINTER;
    return Boundary([&] { size->QuadPart = StreamImage(core_).size(); });
}

STDMETHODIMP PersistStream::InitNew() noexcept {
    return Boundary([&] {
        core_.InitProperties();
        core_.isDirty = false;
    });
}

}  // namespace zv::com
