#include "automation/dispatch.h"

#include <algorithm>
#include <new>

namespace zv::automation {

using win32::Variant;

namespace {

// Brings a caller's argument into the type wanted, references followed. Dates and numbers in texts
// are read as the caller's user writes them.
HRESULT Coerce(const VARIANT& argument, VARTYPE type, LCID locale, Variant& result) {
    if ((argument.vt & VT_BYREF) && !argument.byref) return E_INVALIDARG;
    const HRESULT hr = VariantCopyInd(&result.Ref(), const_cast<VARIANT*>(&argument));
    if (FAILED(hr)) return hr;
    if (result.IsMissing()) return DISP_E_PARAMNOTOPTIONAL;
    if (result.Type() == type) return S_OK;
    // Nothing, as scripts write it, is an object too.
    if (type == VT_DISPATCH && result.Type() == VT_EMPTY) return DISP_E_TYPEMISMATCH;
    return VariantChangeTypeEx(&result.Ref(), &result.Ref(), locale, VARIANT_ALPHABOOL, type);
}

HRESULT Misfits(HRESULT hr, UINT argument, UINT* badArgument) {
    if (badArgument) *badArgument = argument;
    return hr;
}

}  // namespace

TakenArguments::Converted::~Converted() {
    if (!isFilled) return;
    for (VARIANT& value : values) VariantClear(&value);
}

HRESULT TakenArguments::Take(Binding binding, const MemberShape& shape,
                             const MemberCall& call) noexcept {
    const DISPPARAMS& parameters = *call.parameters;
    if (parameters.cNamedArgs > parameters.cArgs) return DISP_E_BADPARAMCOUNT;
    if ((parameters.cArgs > 0 && !parameters.rgvarg) ||
        (parameters.cNamedArgs > 0 && !parameters.rgdispidNamedArgs)) {
        return E_INVALIDARG;
    }
    try {
        if (binding == Binding::Positional) return TakePositional(shape, call);
        // What is left for this thread by then is the member's own.
        SetErrorInfo(0, nullptr);
        return shape.isMethod ? TakeTyped(shape, call) : TakeValue(shape, call);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT TakenArguments::TakePositional(const MemberShape& shape, const MemberCall& call) {
    const DISPPARAMS& parameters = *call.parameters;
    const bool namesValue = call.IsAssignment() && parameters.cNamedArgs == 1 &&
                            parameters.cArgs > 0 &&
                            parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (parameters.cNamedArgs != 0 && !namesValue) return DISP_E_NONAMEDARGS;
    if (call.IsAssignment() && !namesValue) return DISP_E_PARAMNOTOPTIONAL;
    taken_ = Arguments(parameters);
    if (shape.count != MemberShape::kAnyCount &&
        taken_.Count() != static_cast<std::size_t>(shape.count)) {
        return DISP_E_BADPARAMCOUNT;
    }
    return S_OK;
}

// A property's value, to be set or to be read.
HRESULT TakenArguments::TakeValue(const MemberShape& shape, const MemberCall& call) {
    const DISPPARAMS& parameters = *call.parameters;
    if (!(call.kind & DISPATCH_PROPERTYPUT)) {
        return parameters.cArgs == 0 ? S_OK : DISP_E_BADPARAMCOUNT;
    }
    if (parameters.cArgs != 1) return DISP_E_BADPARAMCOUNT;
    if (parameters.cNamedArgs > 1 ||
        (parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
        return DISP_E_PARAMNOTFOUND;
    }
    Variant value;
    const HRESULT hr = Coerce(parameters.rgvarg[0], shape.type, call.locale, value);
    if (FAILED(hr)) return Misfits(hr, 0, call.badArgument);
    converted_.values[0] = value.Detach();
    converted_.isFilled = true;
    taken_ = Arguments(nullptr, 0, converted_.values.data());
    return S_OK;
}

HRESULT TakenArguments::TakeTyped(const MemberShape& shape, const MemberCall& call) {
    const DISPPARAMS& parameters = *call.parameters;
    const auto count = static_cast<UINT>(shape.count);
    if (parameters.cArgs != count || parameters.cNamedArgs > count) return DISP_E_BADPARAMCOUNT;
    std::array<const VARIANT*, MemberShape::kMostParameters> given{};
    std::array<UINT, MemberShape::kMostParameters> place{};
    for (UINT i = 0; i < count; i++) {
        // Named arguments come first; those without a name follow, the last one in front.
        const bool isNamed = i < parameters.cNamedArgs;
        const UINT position =
            isNamed ? static_cast<UINT>(parameters.rgdispidNamedArgs[i]) : count - 1 - i;
        if (position >= count || given[position]) return DISP_E_PARAMNOTFOUND;
        given[position] = &parameters.rgvarg[i];
        place[position] = i;
    }
    converted_.isFilled = true;
    for (UINT i = 0; i < count; i++) {
        Variant value;
        const HRESULT hr = Coerce(*given[i], shape.parameters[i].type, call.locale, value);
        if (FAILED(hr)) {
            misfit_ = shape.parameters[i].name;
            return Misfits(hr, place[i], call.badArgument);
        }
        converted_.values[count - 1 - i] = value.Detach();
    }
    taken_ = Arguments(converted_.values.data(), count, nullptr);
    return S_OK;
}

HRESULT ReportFailure(Binding binding, HRESULT hr, EXCEPINFO* exception) noexcept {
    if (!exception) return binding == Binding::Typed ? DISP_E_EXCEPTION : hr;
    *exception = {};
    exception->scode = hr;
    win32::ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Put()) == S_OK) {
        info->GetDescription(&exception->bstrDescription);
        info->GetSource(&exception->bstrSource);
        if (binding == Binding::Positional) {
            info->GetHelpContext(&exception->dwHelpContext);
            SetErrorInfo(0, info.Get());
        }
    }
    return DISP_E_EXCEPTION;
}

bool SameName(std::wstring_view a, std::wstring_view b) {
    const auto fold = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](wchar_t x, wchar_t y) { return fold(x) == fold(y); });
}

HRESULT FindParameters(const MemberShape* shape, LPOLESTR* names, UINT count,
                       DISPID* ids) noexcept {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    if (!shape) return DISP_E_UNKNOWNNAME;
    ids[0] = shape->id;
    HRESULT hr = S_OK;
    for (UINT i = 1; i < count; i++) {
        DISPID position = 0;
        for (const Parameter& parameter : shape->parameters) {
            if (parameter.name && names[i] && SameName(names[i], parameter.name)) ids[i] = position;
            position++;
        }
        if (ids[i] == DISPID_UNKNOWN) hr = DISP_E_UNKNOWNNAME;
    }
    return hr;
}

}  // namespace zv::automation
