#include "platform/win32/host_module_runner.h"

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "base/win32/wide.h"

namespace zv::platform::win32 {

using zv::win32::ComPtr;
using zv::win32::Variant;

namespace {

class LateBound {
 public:
    explicit LateBound(ComPtr<IDispatch> object) : object_(std::move(object)) {}

    void Put(const wchar_t* name, const Variant& value) {
        DISPID putId = DISPID_PROPERTYPUT;
        VARIANT argument = value.Get();
        DISPPARAMS parameters{&argument, &putId, 1, 1};
        Invoke(name, DISPATCH_PROPERTYPUT, parameters);
    }

    void Call(const wchar_t* name) {
        DISPPARAMS parameters{};
        Invoke(name, DISPATCH_METHOD, parameters);
    }

 private:
    void Invoke(const wchar_t* name, WORD kind, DISPPARAMS& parameters) {
        auto* nameArgument = const_cast<LPOLESTR>(name);
        DISPID id = DISPID_UNKNOWN;
        EXCEPINFO error{};
        HRESULT hr = object_->GetIDsOfNames(IID_NULL, &nameArgument, 1, LOCALE_USER_DEFAULT, &id);
        if (SUCCEEDED(hr)) {
            hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, nullptr,
                                 &error, nullptr);
        }
        if (FAILED(hr)) throw zv::win32::ErrorOf(hr, error);
    }

    ComPtr<IDispatch> object_;
};

LateBound CreateRunner() {
    CLSID classId;
    ComPtr<IDispatch> object;
    HRESULT hr = CLSIDFromProgID(HostModuleRunner::kProgId, &classId);
    if (SUCCEEDED(hr)) {
        hr = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                              __uuidof(IDispatch), object.PutVoid());
    }
    if (FAILED(hr)) {
        throw RuntimeError(
            ErrorNumber::CannotCreateObject,
            zv::win32::ToUtf8(HostModuleRunner::kProgId) + ": " + zv::win32::SystemMessage(hr));
    }
    return LateBound(std::move(object));
}

}  // namespace

void HostModuleRunner::Run(const ModuleStart& start) {
    LateBound runner = CreateRunner();
    runner.Put(L"Language", Variant(std::int32_t{start.language}));
    runner.Put(L"StartMode", Variant(std::int32_t{start.startMode}));
    runner.Put(L"UserPath", Variant(start.connection.dataPath));
    runner.Put(L"Password", Variant(start.connection.password));
    runner.Put(L"SQLData", Variant(std::int32_t{start.connection.kind}));
    runner.Put(L"UserID", Variant(start.connection.login));
    runner.Put(L"Default", Variant(start.connection.database));
    runner.Put(L"UserName", Variant(start.userName));
    runner.Put(L"Heading", Variant(start.heading));
    runner.Put(L"ModuleName", Variant(start.moduleName));
    runner.Call(L"Start");
}

}  // namespace zv::platform::win32
