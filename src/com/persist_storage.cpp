#include "com/boundary.h"
#include "com/ids.h"
#include "com/persist.h"
#include "com/stream_io.h"

namespace zv::com {

namespace {

constexpr wchar_t kStreamName[] = L"zvTask";

/// The stream that a storage has handed out: some say that all is well and give none.
IStream& Given(HRESULT hr, const win32::ComPtr<IStream>& stream) {
    ThrowIfFailed(hr);
    if (!stream) ThrowIfFailed(E_UNEXPECTED);
    return *stream;
}

}  // namespace

STDMETHODIMP PersistStorage::GetClassID(CLSID* id) noexcept {
    if (!id) return E_POINTER;
    *id = kClassId;
    return S_OK;
}

STDMETHODIMP PersistStorage::IsDirty() noexcept {
    return core_.isDirty ? S_OK : S_FALSE;
}

STDMETHODIMP PersistStorage::InitNew(IStorage* storage) noexcept {
    if (!storage) return E_POINTER;
    if (state_ != State::Uninitialised) return CO_E_ALREADYINITIALIZED;
    return Boundary([&] {
        core_.InitProperties();
        core_.isDirty = false;
        state_ = State::Normal;
    });
}

STDMETHODIMP PersistStorage::Load(IStorage* storage) noexcept {
    if (!storage) return E_POINTER;
    if (state_ != State::Uninitialised) return CO_E_ALREADYINITIALIZED;
    return Boundary([&] {
        win32::ComPtr<IStream> stream;
        const HRESULT hr = storage->OpenStream(kStreamName, nullptr,
                                               STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.Put());
        ReadFromStream(core_, Given(hr, stream));
        core_.isDirty = false;
        state_ = State::Normal;
    });
}

STDMETHODIMP PersistStorage::Save(IStorage* storage, BOOL sameAsLoad) noexcept {
    if (!storage) return E_POINTER;
    if (state_ != State::Normal) return E_UNEXPECTED;
    return Boundary([&] {
        win32::ComPtr<IStream> stream;
        const HRESULT hr = storage->CreateStream(
            kStreamName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, stream.Put());
        WriteToStream(core_, Given(hr, stream));
        wchar_t userType[ARRAYSIZE(kFriendlyName)];
        std::copy(std::begin(kFriendlyName), std::end(kFriendlyName), userType);
        // The system looks for the name of the storage's class; Wine does so with a key that it has
        // not opened where the storage has kept none, and closes somebody else's handle.
        CLSID kept{};
        if (SUCCEEDED(ReadClassStg(storage, &kept)) && kept == kClassId) {
            ThrowIfFailed(WriteFmtUserTypeStg(storage, 0, userType));
        }
        savedToOwn_ = sameAsLoad != FALSE;
        state_ = State::NoScribble;
    });
}

STDMETHODIMP PersistStorage::SaveCompleted(IStorage* storage) noexcept {
    if (state_ != State::NoScribble && state_ != State::HandsOff) return E_UNEXPECTED;
    if (state_ == State::HandsOff && !storage) return E_INVALIDARG;
    return Boundary([&] {
        // A copy saved elsewhere leaves the control as unsaved as it was, unless it moves there.
        if (savedToOwn_ || storage) core_.isDirty = false;
        savedToOwn_ = false;
        state_ = State::Normal;
        if (onSaved) onSaved();
    });
}

STDMETHODIMP PersistStorage::HandsOffStorage() noexcept {
    if (state_ != State::Normal && state_ != State::NoScribble) return E_UNEXPECTED;
    state_ = State::HandsOff;
    return S_OK;
}

}  // namespace zv::com
