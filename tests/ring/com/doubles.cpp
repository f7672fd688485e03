#include "doubles.h"

#include "com/ids.h"

namespace zv::ring::com {

IUnknown* Object::Find(REFIID iid) {
    return iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
}

STDMETHODIMP Object::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) {
    *ids = DISPID_UNKNOWN;
    ZV_TROUBLE("GetIDsOfNames");
    if (!knowsNames) return DISP_E_UNKNOWNNAME;
    *ids = 1;
    return S_OK;
}

STDMETHODIMP Object::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) {
    ZV_TROUBLE("Invoke");
    if (result) {
        *result = value;
        if (value.vt == VT_DISPATCH && value.pdispVal) value.pdispVal->AddRef();
    }
    return S_OK;
}

IUnknown* Stream::Find(REFIID iid) {
    const bool known = iid == IID_IUnknown || iid == IID_IStream || iid == IID_ISequentialStream;
    return known ? static_cast<IStream*>(this) : nullptr;
}

STDMETHODIMP Stream::Read(void* target, ULONG size, ULONG* count) {
    if (count) *count = 0;
    ZV_TROUBLE("Read");
    const std::size_t given = std::min<std::size_t>({size, most, bytes.size() - position});
    std::memcpy(target, bytes.data() + position, given);
    position += given;
    if (count) *count = static_cast<ULONG>(given);
    return S_OK;
}

STDMETHODIMP Stream::Write(const void* source, ULONG size, ULONG* count) {
    if (count) *count = 0;
    ZV_TROUBLE("Write");
    const std::size_t taken = std::min<std::size_t>(size, room - std::min(room, bytes.size()));
    bytes.append(static_cast<const char*>(source), taken);
    if (count) *count = static_cast<ULONG>(taken);
    return S_OK;
}

IUnknown* Storage::Find(REFIID iid) {
    return iid == IID_IUnknown || iid == IID_IStorage ? static_cast<IStorage*>(this) : nullptr;
}

STDMETHODIMP Storage::CreateStream(const OLECHAR* name, DWORD, DWORD, DWORD, IStream** stream) {
    *stream = nullptr;
    const auto trouble = trouble_.Enter("CreateStream");
    // The system writes a stream of its own, and does not look whether it was given one.
    if (trouble && (FAILED(*trouble) || name[0] != 1)) return *trouble;
    Stream& made = name[0] == 1 ? system_ : stream_;
    made.bytes.clear();
    *stream = &made;
    made.AddRef();
    return S_OK;
}

STDMETHODIMP Storage::OpenStream(const OLECHAR*, void*, DWORD, DWORD, IStream** stream) {
    *stream = nullptr;
    ZV_TROUBLE("OpenStream");
    stream_.position = 0;
    *stream = &stream_;
    stream_.AddRef();
    return S_OK;
}

IUnknown* Bag::Find(REFIID iid) {
    if (iid == IID_IErrorLog) return static_cast<IErrorLog*>(this);
    const bool known = iid == IID_IUnknown || iid == IID_IPropertyBag;
    return known ? static_cast<IPropertyBag*>(this) : nullptr;
}

STDMETHODIMP Bag::Read(LPCOLESTR, VARIANT* answer, IErrorLog*) {
    ZV_TROUBLE("Read");
    if (value.vt == VT_EMPTY) return E_INVALIDARG;
    *answer = value;
    if ((value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) && value.punkVal) {
        value.punkVal->AddRef();
    }
    if (value.vt == VT_BSTR) answer->bstrVal = SysAllocString(value.bstrVal);
    return S_OK;
}

STDMETHODIMP Bag::Write(LPCOLESTR, VARIANT*) {
    ZV_TROUBLE("Write");
    written++;
    return S_OK;
}

STDMETHODIMP Bag::AddError(LPCOLESTR, EXCEPINFO*) {
    ZV_TROUBLE("AddError");
    return S_OK;
}

IUnknown* Sink::Find(REFIID iid) {
    if (iid == IID_IUnknown) return static_cast<IDispatch*>(this);
    if (offersNothing) return nullptr;
    if (iid == IID_IDispatch || iid == zv::com::kEventsId) return static_cast<IDispatch*>(this);
    if (iid == IID_IPropertyNotifySink) return static_cast<IPropertyNotifySink*>(this);
    return iid == IID_IAdviseSink ? static_cast<IAdviseSink*>(this) : nullptr;
}

STDMETHODIMP Sink::QueryInterface(REFIID iid, void** object) {
    if (answersWithNothing && iid != IID_IUnknown) {
        *object = nullptr;
        return S_OK;
    }
    return Double::QueryInterface(iid, object);
}

HRESULT Sink::Hear(const char* call) {
    calls++;
    const auto act = onCall;
    if (act) act();
    ZV_TROUBLE(call);
    return S_OK;
}

STDMETHODIMP Sink::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
    return Hear("Invoke");
}

STDMETHODIMP Sink::OnChanged(DISPID) {
    return Hear("OnChanged");
}

STDMETHODIMP_(void) Sink::OnDataChange(FORMATETC*, STGMEDIUM*) {
    Hear("OnDataChange");
}

STDMETHODIMP_(void) Sink::OnViewChange(DWORD, LONG) {
    Hear("OnViewChange");
}

STDMETHODIMP_(void) Sink::OnSave() {
    Hear("OnSave");
}

STDMETHODIMP_(void) Sink::OnClose() {
    Hear("OnClose");
}

}  // namespace zv::ring::com
