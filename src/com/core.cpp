#include "com/core.h"

#include "automation/late_bound.h"
#include "base/win32/wide.h"

namespace zv::com {

void Core::EnsureValues() {
    if (!SessionHost::HasValues()) InitProperties();
}

void Core::InitProperties() {
    task.UserControl_InitProperties();
    SessionHost::HasValues() = true;
    if (onPropertyChanged) onPropertyChanged(DISPID_UNKNOWN);
}

void Core::ReadProperties(PropertyBag& bag) {
    task.UserControl_ReadProperties(bag);
    SessionHost::HasValues() = true;
    if (onPropertyChanged) onPropertyChanged(DISPID_UNKNOWN);
}

std::optional<win32::Variant> Core::Ambient(DISPID id, VARTYPE type) const {
    const auto container = site.As<IDispatch>();
    if (!container) return std::nullopt;
    auto value = automation::TryGet(*container, id, DISPATCH_PROPERTYGET);
    if (!value || FAILED(value->ChangeType(type))) return std::nullopt;
    return value;
}

bool Core::IsUserMode() const {
    const auto mode = Ambient(DISPID_AMBIENT_USERMODE, VT_BOOL);
    return mode && mode->Get().boolVal != VARIANT_FALSE;
}

std::wstring Core::DisplayName() const {
    const auto name = Ambient(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR);
    if (name && SysStringLen(name->Get().bstrVal) > 0) {
        return std::wstring(win32::View(name->Get().bstrVal));
    }
    return L"zvTask";
}

}  // namespace zv::com
