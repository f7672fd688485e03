// Late binding by hand: a table of members instead of a walk through the type library, because a
// host sets some twenty properties before each refresh.
#include <array>
#include <string_view>

#include "base/win32/bstr.h"
#include "base/win32/variant.h"
#include "com/automation.h"
#include "com/boundary.h"

namespace zv::com {

namespace {

using win32::Variant;

using PutFunction = HRESULT (*)(ITask&, const VARIANT&);
using GetFunction = HRESULT (*)(ITask&, VARIANT&);
using CallFunction = HRESULT (*)(ITask&, const Variant*);

struct Parameter {
    std::wstring_view name;
    VARTYPE type;
};

struct Member {
    std::wstring_view name;
    VARTYPE type = VT_EMPTY;  ///< of a property
    PutFunction put = nullptr;
    GetFunction get = nullptr;
    CallFunction call = nullptr;
    std::array<Parameter, 2> parameters{};
    UINT parameterCount = 0;
};

constexpr UINT kMaxParameters = 2;

Member Text(std::wstring_view name, PutFunction put, GetFunction get = nullptr) {
    return {.name = name, .type = VT_BSTR, .put = put, .get = get};
}

Member Number(std::wstring_view name, VARTYPE type, PutFunction put, GetFunction get = nullptr) {
    return {.name = name, .type = type, .put = put, .get = get};
}

// The functions answer their result in the variant's own type, which is set beforehand.
#define ZV_PUT_TEXT(NAME) [](ITask& task, const VARIANT& v) { return task.put_##NAME(v.bstrVal); }
#define ZV_GET_TEXT(NAME) [](ITask& task, VARIANT& v) { return task.get_##NAME(&v.bstrVal); }
#define ZV_PUT_SHORT(NAME) [](ITask& task, const VARIANT& v) { return task.put_##NAME(v.iVal); }
#define ZV_GET_SHORT(NAME) [](ITask& task, VARIANT& v) { return task.get_##NAME(&v.iVal); }

// At position id - 1, in the order of MemberId.
const std::array<Member, kDefault> kMembers = {
    Member{.name = L"refresh",
           .call =
               [](ITask& task, const Variant* arguments) {
                   return task.refresh(arguments[0].Get().lVal, arguments[1].Get().iVal);
               },
           .parameters = {{{L"mode", VT_I4}, {L"modal", VT_I2}}},
           .parameterCount = 2},
    Number(L"myTaskID", VT_I4,
           [](ITask& task, const VARIANT& v) { return task.put_myTaskID(v.lVal); }),
    Text(L"UserPath", ZV_PUT_TEXT(UserPath)),
    Text(L"myName", ZV_PUT_TEXT(myName), ZV_GET_TEXT(myName)),
    Number(L"myDate", VT_DATE,
           [](ITask& task, const VARIANT& v) { return task.put_myDate(v.date); }),
    Text(L"Password", ZV_PUT_TEXT(Password)),
    Number(L"SQLData", VT_I2, ZV_PUT_SHORT(SQLData)),
    Number(L"AlertType", VT_I2, ZV_PUT_SHORT(AlertType), ZV_GET_SHORT(AlertType)),
    Number(L"Language", VT_I2, ZV_PUT_SHORT(Language)),
    Text(L"PowerPath", ZV_PUT_TEXT(PowerPath)),
    Text(L"UserName", ZV_PUT_TEXT(UserName)),
    Text(L"ZgName", ZV_PUT_TEXT(ZgName)),
    Text(L"CompName", ZV_PUT_TEXT(CompName)),
    Text(L"myPower", ZV_PUT_TEXT(myPower)),
    Text(L"myModel", ZV_PUT_TEXT(myModel)),
    Number(L"Copyright", VT_BOOL,
           [](ITask& task, const VARIANT& v) { return task.put_Copyright(v.boolVal); }),
    Member{.name = L"UserControl_InitProperties",
           .call = [](ITask& task, const Variant*) { return task.UserControl_InitProperties(); }},
    Member{.name = L"UserControl_ReadProperties",
           .call =
               [](ITask& task, const Variant* arguments) {
                   return task.UserControl_ReadProperties(arguments[0].Get().pdispVal);
               },
           .parameters = {{{L"PropBag", VT_DISPATCH}}},
           .parameterCount = 1},
    Member{.name = L"UserControl_WriteProperties",
           .call =
               [](ITask& task, const Variant* arguments) {
                   return task.UserControl_WriteProperties(arguments[0].Get().pdispVal);
               },
           .parameters = {{{L"PropBag", VT_DISPATCH}}},
           .parameterCount = 1},
    Text(L"Zorvan", ZV_PUT_TEXT(Zorvan), ZV_GET_TEXT(Zorvan)),
    Text(L"UserID", ZV_PUT_TEXT(UserID), ZV_GET_TEXT(UserID)),
    Text(L"Default", ZV_PUT_TEXT(Default), ZV_GET_TEXT(Default)),
};

#undef ZV_PUT_TEXT
#undef ZV_GET_TEXT
#undef ZV_PUT_SHORT
#undef ZV_GET_SHORT

const Member* FindMember(DISPID id) {
    if (id < kRefresh || id > kDefault) return nullptr;
    return &kMembers[static_cast<std::size_t>(id - kRefresh)];
}

// All member names are ASCII, so the user's locale has no part in comparing them.
bool SameName(std::wstring_view a, std::wstring_view b) {
    const auto fold = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    };
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); i++) {
        if (fold(a[i]) != fold(b[i])) return false;
    }
    return true;
}

// Brings a host's argument into the type wanted, references followed. Dates and numbers in texts
// are read as the host's user writes them.
HRESULT Coerce(const VARIANT& argument, VARTYPE type, LCID locale, Variant& result) {
    result = Variant::Copy(argument);
    if (result.IsMissing()) return DISP_E_PARAMNOTOPTIONAL;
    if (result.Type() == type) return S_OK;
    // Nothing, as scripts write it, is an object too.
    if (type == VT_DISPATCH && result.Type() == VT_EMPTY) return DISP_E_TYPEMISMATCH;
    return VariantChangeTypeEx(&result.Ref(), &result.Ref(), locale, VARIANT_ALPHABOOL, type);
}

// Moves the error information that a member left for this thread into the caller's record.
HRESULT MoveError(HRESULT hr, EXCEPINFO* exception) {
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = hr;
    win32::ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Put()) == S_OK) {
        info->GetDescription(&exception->bstrDescription);
        info->GetSource(&exception->bstrSource);
    }
    return DISP_E_EXCEPTION;
}

HRESULT PutProperty(ITask& task, const Member& member, const DISPPARAMS& parameters, LCID locale,
                    UINT* badArgument, bool& reached) {
    if (!member.put) return DISP_E_MEMBERNOTFOUND;
    if (parameters.cArgs != 1) return DISP_E_BADPARAMCOUNT;
    if (parameters.cNamedArgs > 1 ||
        (parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
        return DISP_E_PARAMNOTFOUND;
    }
    Variant value;
    const HRESULT hr = Coerce(parameters.rgvarg[0], member.type, locale, value);
    if (FAILED(hr)) {
        if (badArgument) *badArgument = 0;
        return hr;
    }
    reached = true;
    return member.put(task, value.Get());
}

HRESULT GetProperty(ITask& task, const Member& member, const DISPPARAMS& parameters,
                    VARIANT* result, bool& reached) {
    if (!member.get) return DISP_E_MEMBERNOTFOUND;
    if (parameters.cArgs != 0) return DISP_E_BADPARAMCOUNT;
    Variant value;
    value.Ref().vt = member.type;
    reached = true;
    const HRESULT hr = member.get(task, value.Ref());
    if (SUCCEEDED(hr) && result) *result = value.Detach();
    return hr;
}

HRESULT CallMethod(ITask& task, const Member& member, const DISPPARAMS& parameters, LCID locale,
                   UINT* badArgument, bool& reached) {
    if (parameters.cArgs != member.parameterCount) return DISP_E_BADPARAMCOUNT;
    if (parameters.cNamedArgs > parameters.cArgs) return DISP_E_BADPARAMCOUNT;
    std::array<const VARIANT*, kMaxParameters> given{};
    std::array<UINT, kMaxParameters> place{};
    for (UINT i = 0; i < parameters.cArgs; i++) {
        // Named arguments come first; those without a name follow, the last one in front.
        const bool isNamed = i < parameters.cNamedArgs;
        const UINT position =
            isNamed ? static_cast<UINT>(parameters.rgdispidNamedArgs[i]) : parameters.cArgs - 1 - i;
        if (position >= member.parameterCount || given[position]) return DISP_E_PARAMNOTFOUND;
        given[position] = &parameters.rgvarg[i];
        place[position] = i;
    }
    std::array<Variant, kMaxParameters> arguments;
    for (UINT i = 0; i < member.parameterCount; i++) {
        const HRESULT hr = Coerce(*given[i], member.parameters[i].type, locale, arguments[i]);
        if (FAILED(hr)) {
            if (badArgument) *badArgument = place[i];
            return hr;
        }
    }
    reached = true;
    return member.call(task, arguments.data());
}

}  // namespace

STDMETHODIMP Automation::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                       DISPID* ids) noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    if (count == 0) return S_OK;
    for (UINT i = 0; i < count; i++) ids[i] = DISPID_UNKNOWN;

    const Member* found = nullptr;
    for (std::size_t i = 0; i < kMembers.size() && !found; i++) {
        if (!SameName(names[0], kMembers[i].name)) continue;
        found = &kMembers[i];
        ids[0] = kRefresh + static_cast<DISPID>(i);
    }
    if (!found) return DISP_E_UNKNOWNNAME;

    HRESULT hr = S_OK;
    for (UINT i = 1; i < count; i++) {
        for (UINT position = 0; position < found->parameterCount; position++) {
            if (SameName(names[i], found->parameters[position].name)) {
                ids[i] = static_cast<DISPID>(position);
            }
        }
        if (ids[i] == DISPID_UNKNOWN) hr = DISP_E_UNKNOWNNAME;
    }
    return hr;
}

STDMETHODIMP Automation::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                UINT* badArgument) noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    if (result) VariantInit(result);
    const Member* member = FindMember(id);
    if (!member) return DISP_E_MEMBERNOTFOUND;

    // Only what the member itself answers carries error information; a call that does not fit is
    // answered with automation's own result.
    bool reached = false;
    SetErrorInfo(0, nullptr);
    const HRESULT hr = Boundary([&] {
        if (member->call) {
            if (!(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
            return CallMethod(*this, *member, *parameters, locale, badArgument, reached);
        }
        if (flags & DISPATCH_PROPERTYPUT) {
            return PutProperty(*this, *member, *parameters, locale, badArgument, reached);
        }
        if (flags & DISPATCH_PROPERTYGET) {
            return GetProperty(*this, *member, *parameters, result, reached);
        }
        return DISP_E_MEMBERNOTFOUND;
    });
    return FAILED(hr) && reached ? MoveError(hr, exception) : hr;
}

}  // namespace zv::com
