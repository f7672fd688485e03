#include "forms/win32/accessibility.h"

#include <initguid.h>
#include <oleacc.h>

namespace zv::forms::win32 {
namespace {

// The property "name" of an accessible object.
constexpr GUID kAccessibleName = {
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr GUID kServicesClass = {
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kServicesInterface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};

}  // namespace

void NameForScreenReaders(HWND window, const std::wstring& name) {
    void* object = nullptr;
    if (FAILED(CoCreateInstance(kServicesClass, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface,
                                &object))) {
        return;
    }
    auto* services = static_cast<IAccPropServices*>(object);
    services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                             kAccessibleName, name.c_str());
    services->Release();
}

}  // namespace zv::forms::win32
