// The late-bound half: what each name stands for. A host sets some twenty properties before each
// refresh, which a walk through the type library would make slow.
#include <array>

#include "com/automation.h"
#include "com/boundary.h"

namespace zv::com {

namespace {

using automation::Arguments;
using win32::Variant;
using Entry = automation::MemberEntry<Automation>;

// Where a value of a type lies.
template <VARTYPE Type>
auto& Held(VARIANT& value) {
    static_assert(Type == VT_BSTR || Type == VT_I4 || Type == VT_I2 || Type == VT_DATE ||
                  Type == VT_BOOL);
    if constexpr (Type == VT_BSTR) return value.bstrVal;
    if constexpr (Type == VT_I4) return value.lVal;
    if constexpr (Type == VT_I2) return value.iVal;
    if constexpr (Type == VT_DATE) return value.date;
    if constexpr (Type == VT_BOOL) return value.boolVal;
}

template <VARTYPE Type, auto Put>
HRESULT PutValue(Automation& task, const Arguments& arguments, Variant&) noexcept {
    VARIANT value = arguments.RawAssigned();
    return (task.*Put)(Held<Type>(value));
}

template <VARTYPE Type, auto Get>
HRESULT GetValue(Automation& task, const Arguments&, Variant& answer) noexcept {
    const HRESULT hr = (task.*Get)(&Held<Type>(answer.Ref()));
    if (SUCCEEDED(hr)) answer.Ref().vt = Type;
    return hr;
}

template <VARTYPE Type, auto Get>
constexpr Entry ReadOnly(const wchar_t* name, DISPID id) {
    Entry entry{{.name = name, .id = id, .count = 0, .type = Type}};
    entry.read = &GetValue<Type, Get>;
    return entry;
}

template <VARTYPE Type, auto Put, auto Get = nullptr>
constexpr Entry Property(const wchar_t* name, DISPID id) {
    Entry entry{{.name = name, .id = id, .count = 0, .type = Type}};
    entry.assign = &PutValue<Type, Put>;
    if constexpr (Get != nullptr) entry.read = &GetValue<Type, Get>;
    return entry;
}

HRESULT Refresh(Automation& task, const Arguments& arguments, Variant&) noexcept {
    return task.refresh(arguments.Raw(0).lVal, arguments.Raw(1).iVal);
}

template <auto Function>
HRESULT Plain(Automation& task, const Arguments&, Variant&) noexcept {
    return (task.*Function)();
}

template <auto Function>
HRESULT WithBag(Automation& task, const Arguments& arguments, Variant&) noexcept {
    return (task.*Function)(arguments.Raw(0).pdispVal);
}

constexpr Entry Method(const wchar_t* name, DISPID id, automation::MemberBody<Automation> body,
                       int count = 0, automation::Parameter first = {},
                       automation::Parameter second = {}) {
    return {
        {.name = name, .id = id, .count = count, .isMethod = true, .parameters = {first, second}},
        body};
}

}  // namespace

std::span<const Entry> Automation::Members() {
    using A = Automation;
    static constexpr std::array<Entry, 25> kMembers{
        Method(L"refresh", kRefresh, &Refresh, 2, {L"mode", VT_I4}, {L"modal", VT_I2}),
        Property<VT_I4, &A::put_myTaskID>(L"myTaskID", kMyTaskID),
        Property<VT_BSTR, &A::put_UserPath>(L"UserPath", kUserPath),
        Property<VT_BSTR, &A::put_myName, &A::get_myName>(L"myName", kMyName),
        Property<VT_DATE, &A::put_myDate>(L"myDate", kMyDate),
        Property<VT_BSTR, &A::put_Password>(L"Password", kPassword),
        Property<VT_I2, &A::put_SQLData>(L"SQLData", kSQLData),
        Property<VT_I2, &A::put_AlertType, &A::get_AlertType>(L"AlertType", kAlertType),
        Property<VT_I2, &A::put_Language>(L"Language", kLanguage),
        Property<VT_BSTR, &A::put_PowerPath>(L"PowerPath", kPowerPath),
        Property<VT_BSTR, &A::put_UserName>(L"UserName", kUserName),
        Property<VT_BSTR, &A::put_ZgName>(L"ZgName", kZgName),
        Property<VT_BSTR, &A::put_CompName>(L"CompName", kCompName),
        Property<VT_BSTR, &A::put_myPower>(L"myPower", kMyPower),
        Property<VT_BSTR, &A::put_myModel>(L"myModel", kMyModel),
        Property<VT_BOOL, &A::put_Copyright>(L"Copyright", kCopyright),
        Method(L"UserControl_InitProperties", kInitProperties,
               &Plain<&A::UserControl_InitProperties>),
        Method(L"UserControl_ReadProperties", kReadProperties,
               &WithBag<&A::UserControl_ReadProperties>, 1, {L"PropBag", VT_DISPATCH}),
        Method(L"UserControl_WriteProperties", kWriteProperties,
               &WithBag<&A::UserControl_WriteProperties>, 1, {L"PropBag", VT_DISPATCH}),
        Property<VT_BSTR, &A::put_Zorvan, &A::get_Zorvan>(L"Zorvan", kZorvan),
        Property<VT_BSTR, &A::put_UserID, &A::get_UserID>(L"UserID", kUserID),
        Property<VT_BSTR, &A::put_Default, &A::get_Default>(L"Default", kDefault),
        Method(L"StartReminders", kStartReminders, &Plain<&A::StartReminders>),
        Method(L"StopReminders", kStopReminders, &Plain<&A::StopReminders>),
        ReadOnly<VT_BOOL, &A::get_Reminding>(L"Reminding", kReminding),
    };
    return kMembers;
}

HRESULT Automation::Explain(const automation::MemberShape& shape, const wchar_t* parameter,
                            HRESULT hr) noexcept {
    return com::Boundary([&] {
        std::string what = win32::ToUtf8(shape.name);
        if (parameter) what += "(" + win32::ToUtf8(parameter) + ")";
        throw Naming(what, RuntimeError(win32::ToErrorNumber(hr)));
    });
}

STDMETHODIMP Automation::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                       DISPID* ids) noexcept {
    return automation::FindNames<Automation>(automation::Binding::Typed, reserved, names, count,
                                             ids);
}

STDMETHODIMP Automation::Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind,
                                DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                UINT* badArgument) noexcept {
    // Objects among the arguments are asked for their values before the member is called.
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    return automation::InvokeMember(
        automation::Binding::Typed, *this, id,
        {reserved, locale, kind, parameters, result, exception, badArgument});
}

}  // namespace zv::com
