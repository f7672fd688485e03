#include "platform/win32/late_bound.h"

#include <objbase.h>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/wide.h"
#include "store/ado/automation.h"

namespace zv::platform::win32 {

LateBound LateBound::Create(const wchar_t* progId) {
    CLSID classId;
    zv::win32::ComPtr<IDispatch> object;
    HRESULT hr = CLSIDFromProgID(progId, &classId);
    if (SUCCEEDED(hr)) {
        hr = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                              __uuidof(IDispatch), object.PutVoid());
    }
    if (FAILED(hr)) {
        throw RuntimeError(ErrorNumber::CannotCreateObject,
                           zv::win32::ToUtf8(progId) + ": " + zv::win32::SystemMessage(hr));
    }
    return LateBound(std::move(object));
}

void LateBound::Put(const wchar_t* name, const zv::win32::Variant& value) {
    store::ado::Member member(name);
    store::ado::PutProperty(*object_, member, value.Get());
}

void LateBound::Call(const wchar_t* name) {
    store::ado::Member member(name);
    store::ado::Call(*object_, member);
}

}  // namespace zv::platform::win32
