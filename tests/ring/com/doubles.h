// What a host hands to the control: each call of each of these can make trouble.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "e2e/container/quiet_interfaces.h"
#include "trouble.h"

namespace zv::ring::com {

/// Answers its default property with `value`, knows no names and no interface beside IDispatch.
class Object final : public container::QuietDispatch<Double<Object, IDispatch>> {
 public:
    explicit Object(Trouble& trouble) : QuietDispatch("object", trouble) {}
    IUnknown* Find(REFIID iid);
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;
    /// Copied into the answer; its references stay with the test.
    VARIANT value{};
    bool knowsNames = false;
};

/// A stream in memory that hands out and takes no more than it likes.
class Stream final : public Double<Stream, IStream> {
 public:
    explicit Stream(Trouble& trouble) : Double("stream", trouble) {}
    IUnknown* Find(REFIID iid);
    STDMETHODIMP Read(void* bytes, ULONG size, ULONG* count) override;
    STDMETHODIMP Write(const void* bytes, ULONG size, ULONG* count) override;
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Revert() override { return E_NOTIMPL; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IStream**) override { return E_NOTIMPL; }

    std::string bytes;
    std::size_t position = 0;
    ULONG most = 7;                        ///< bytes that one read hands out, with S_OK
    std::size_t room = std::string::npos;  ///< bytes that it takes; the rest is left out, with S_OK
};

/// A storage with the control's stream and one for what the system writes beside it.
class Storage final : public Double<Storage, IStorage> {
 public:
    Storage(Trouble& trouble, Stream& stream, Stream& system)
        : Double("storage", trouble), stream_(stream), system_(system) {}
    IUnknown* Find(REFIID iid);
    STDMETHODIMP CreateStream(const OLECHAR* name, DWORD, DWORD, DWORD, IStream** stream) override;
    STDMETHODIMP OpenStream(const OLECHAR*, void*, DWORD, DWORD, IStream** stream) override;
    STDMETHODIMP CreateStorage(const OLECHAR*, DWORD, DWORD, DWORD, IStorage**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP OpenStorage(const OLECHAR*, IStorage*, DWORD, SNB, DWORD, IStorage**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP CopyTo(DWORD, const IID*, SNB, IStorage*) override { return E_NOTIMPL; }
    STDMETHODIMP MoveElementTo(const OLECHAR*, IStorage*, const OLECHAR*, DWORD) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return S_OK; }
    STDMETHODIMP Revert() override { return E_NOTIMPL; }
    STDMETHODIMP EnumElements(DWORD, void*, DWORD, IEnumSTATSTG**) override { return E_NOTIMPL; }
    STDMETHODIMP DestroyElement(const OLECHAR*) override { return E_NOTIMPL; }
    STDMETHODIMP RenameElement(const OLECHAR*, const OLECHAR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetElementTimes(const OLECHAR*, const FILETIME*, const FILETIME*,
                                 const FILETIME*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetClass(REFCLSID) override { return S_OK; }
    STDMETHODIMP SetStateBits(DWORD, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }

 private:
    Stream& stream_;
    Stream& system_;
};

/// Answers each key with `value`.
class Bag final : public Double<Bag, IPropertyBag, IErrorLog> {
 public:
    explicit Bag(Trouble& trouble) : Double("bag", trouble) {}
    IUnknown* Find(REFIID iid);
    // The two interfaces share this one unknown.
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return Double::QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return Add(); }
    STDMETHODIMP_(ULONG) Release() override { return Drop(); }
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* info) override;
    /// Copied into each answer as it is; empty: the key is not there.
    VARIANT value{};
    int written = 0;
};

/// Listens to everything that a control tells.
class Sink final
    : public container::QuietDispatch<Double<Sink, IDispatch, IPropertyNotifySink, IAdviseSink>> {
 public:
    explicit Sink(Trouble& trouble) : QuietDispatch("sink", trouble) {}
    IUnknown* Find(REFIID iid);
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return Add(); }
    STDMETHODIMP_(ULONG) Release() override { return Drop(); }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override;
    STDMETHODIMP OnChanged(DISPID id) override;
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override;
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override;
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override;
    STDMETHODIMP_(void) OnClose() override;
    IUnknown* Identity() { return static_cast<IDispatch*>(this); }
    /// Runs in each event and notification.
    std::function<void()> onCall;
    int calls = 0;
    bool offersNothing = false;       ///< but IUnknown
    bool answersWithNothing = false;  ///< S_OK and a null pointer for everything else

 private:
    HRESULT Hear(const char* call);
};

}  // namespace zv::ring::com
