// The early-bound half; the late-bound one is in members.cpp.
#include "com/automation.h"

#include "com/bag_adapters.h"
#include "com/boundary.h"
#include "com/type_info.h"

namespace zv::com {

namespace {

const std::string& ForHost(const std::string& text) {
    return text;
}
template <class Text>
const std::string& ForHost(const Text& text) {
    return text.ForOwner();
}

}  // namespace

template <class Set>
HRESULT Automation::Put(DISPID member, Set&& set) noexcept {
    return Boundary([&] {
        core_.EnsureValues();
        set(core_.task.State());
        if (core_.onPropertyChanged) core_.onPropertyChanged(member);
    });
}

template <class Text>
HRESULT Automation::PutText(DISPID member, Text ControlState::*property, BSTR value) noexcept {
    return Put(member, [&](ControlState& state) { state.*property = win32::ToUtf8(value); });
}

template <class Text>
HRESULT Automation::GetText(Text ControlState::*property, BSTR* value) noexcept {
    if (!value) return E_POINTER;
    *value = nullptr;
    return Boundary([&] {
        core_.EnsureValues();
        *value = win32::AllocateBstr(ForHost(core_.task.State().*property));
    });
}

STDMETHODIMP Automation::refresh(LONG mode, SHORT modal) noexcept {
    return Boundary("refresh", [&] {
        core_.EnsureValues();
        core_.task.refresh(mode, modal);
    });
}

STDMETHODIMP Automation::put_myTaskID(LONG value) noexcept {
    return Put(kMyTaskID, [&](ControlState& state) { state.myTaskID = value; });
}

STDMETHODIMP Automation::put_UserPath(BSTR value) noexcept {
    return Put(kUserPath, [&](ControlState&) { core_.task.SetUserPath(win32::ToUtf8(value)); });
}

STDMETHODIMP Automation::get_myName(BSTR* value) noexcept {
    return GetText(&ControlState::myName, value);
}

STDMETHODIMP Automation::put_myName(BSTR value) noexcept {
    return PutText(kMyName, &ControlState::myName, value);
}

STDMETHODIMP Automation::put_myDate(DATE value) noexcept {
    return Put(kMyDate, [&](ControlState& state) { state.myDate = value; });
}

STDMETHODIMP Automation::put_Password(BSTR value) noexcept {
    return PutText(kPassword, &ControlState::Password, value);
}

STDMETHODIMP Automation::put_SQLData(SHORT value) noexcept {
    return Put(kSQLData, [&](ControlState&) { core_.task.SetSQLData(value); });
}

STDMETHODIMP Automation::get_AlertType(SHORT* value) noexcept {
    if (!value) return E_POINTER;
    return Boundary([&] {
        core_.EnsureValues();
        *value = core_.task.State().AlertType;
    });
}

STDMETHODIMP Automation::put_AlertType(SHORT value) noexcept {
    return Put(kAlertType, [&](ControlState& state) { state.AlertType = value; });
}

STDMETHODIMP Automation::put_Language(SHORT value) noexcept {
    return Put(kLanguage, [&](ControlState& state) { state.Language = value; });
}

STDMETHODIMP Automation::put_PowerPath(BSTR value) noexcept {
    return PutText(kPowerPath, &ControlState::PowerPath, value);
}

STDMETHODIMP Automation::put_UserName(BSTR value) noexcept {
    return PutText(kUserName, &ControlState::UserName, value);
}

STDMETHODIMP Automation::put_ZgName(BSTR value) noexcept {
    return PutText(kZgName, &ControlState::ZgName, value);
}

STDMETHODIMP Automation::put_CompName(BSTR value) noexcept {
    return PutText(kCompName, &ControlState::CompName, value);
}

STDMETHODIMP Automation::put_myPower(BSTR value) noexcept {
    return PutText(kMyPower, &ControlState::myPower, value);
}

STDMETHODIMP Automation::put_myModel(BSTR value) noexcept {
    return PutText(kMyModel, &ControlState::myModel, value);
}

STDMETHODIMP Automation::put_Copyright(VARIANT_BOOL value) noexcept {
    return Put(kCopyright, [&](ControlState& state) { state.Copyright = value != VARIANT_FALSE; });
}

STDMETHODIMP Automation::UserControl_InitProperties() noexcept {
    return Boundary([&] { core_.InitProperties(); });
}

STDMETHODIMP Automation::UserControl_ReadProperties(IDispatch* bag) noexcept {
    return Boundary("UserControl_ReadProperties", [&] {
        const auto adapter = AdaptBagObject(bag);
        core_.ReadProperties(*adapter);
    });
}

STDMETHODIMP Automation::UserControl_WriteProperties(IDispatch* bag) noexcept {
    return Boundary("UserControl_WriteProperties", [&] {
        core_.EnsureValues();
        const auto adapter = AdaptBagObject(bag);
        core_.WriteProperties(*adapter);
    });
}

STDMETHODIMP Automation::get_Zorvan(BSTR* value) noexcept {
    if (!value) return E_POINTER;
    *value = nullptr;
    return Boundary([&] { *value = win32::AllocateBstr(core_.task.Zorvan()); });
}

STDMETHODIMP Automation::put_Zorvan(BSTR value) noexcept {
    return PutText(kZorvan, &ControlState::Zorvan, value);
}

STDMETHODIMP Automation::get_UserID(BSTR* value) noexcept {
    return GetText(&ControlState::UserID, value);
}

STDMETHODIMP Automation::put_UserID(BSTR value) noexcept {
    return PutText(kUserID, &ControlState::UserID, value);
}

STDMETHODIMP Automation::get_Default(BSTR* value) noexcept {
    return GetText(&ControlState::Default, value);
}

STDMETHODIMP Automation::put_Default(BSTR value) noexcept {
    return PutText(kDefault, &ControlState::Default, value);
}

STDMETHODIMP Automation::StartReminders() noexcept {
    return Boundary("StartReminders", [&] {
        core_.EnsureValues();
        core_.task.StartReminders();
    });
}

STDMETHODIMP Automation::StopReminders() noexcept {
    return Boundary("StopReminders", [&] { core_.task.StopReminders(); });
}

STDMETHODIMP Automation::get_Reminding(VARIANT_BOOL* value) noexcept {
    if (!value) return E_POINTER;
    *value = VARIANT_FALSE;
    return Boundary([&] { *value = core_.task.Reminding() ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP Automation::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP Automation::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Boundary([&] { *info = LoadTypeInfo(kSecondInterfaceId).Detach(); });
}

}  // namespace zv::com
