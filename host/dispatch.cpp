#include "dispatch.h"

namespace zv::host {

using win32::Variant;

Arguments::Arguments(const DISPPARAMS& parameters)
    : values_(parameters.rgvarg), count_(parameters.cArgs) {
    if (parameters.cNamedArgs == 1) {
        assigned_ = values_;
        ++values_;
        --count_;
    }
}

bool Arguments::IsGiven(std::size_t index) const {
    if (index >= count_) return false;
    const VARIANT* value = &Raw(index);
    if (value->vt == (VT_BYREF | VT_VARIANT)) value = value->pvarVal;
    return !(value->vt == VT_ERROR && value->scode == DISP_E_PARAMNOTFOUND);
}

Variant Arguments::At(std::size_t index) const {
    return IsGiven(index) ? Variant::Copy(Raw(index)) : Variant::Missing();
}

std::int32_t Arguments::Int(std::size_t index, std::int32_t fallback) const {
    if (!IsGiven(index)) return fallback;
    Variant value = At(index);
    const HRESULT hr = value.ChangeType(VT_I4);
    if (FAILED(hr)) {
        throw RuntimeError(win32::ToErrorNumber(hr), win32::SystemMessage(hr));
    }
    return static_cast<std::int32_t>(value.Get().lVal);
}

std::string Arguments::Text(std::size_t index) const {
    if (!IsGiven(index)) return {};
    Variant value = At(index);
    if (value.Type() == VT_NULL) return {};
    const HRESULT hr = value.ChangeType(VT_BSTR);
    if (FAILED(hr)) {
        throw RuntimeError(win32::ToErrorNumber(hr), win32::SystemMessage(hr));
    }
    return win32::ToUtf8(value.Get().bstrVal);
}

void Arguments::Store(std::size_t index, Variant value) const {
    if (index >= count_) return;
    const VARIANT& target = Raw(index);
    if (target.vt == (VT_BYREF | VT_VARIANT)) {
        VariantClear(target.pvarVal);
        *target.pvarVal = value.Detach();
    } else if (target.vt == (VT_BYREF | VT_I4) && SUCCEEDED(value.ChangeType(VT_I4))) {
        *target.plVal = value.Get().lVal;
    } else if (target.vt == (VT_BYREF | VT_I2) && SUCCEEDED(value.ChangeType(VT_I2))) {
        *target.piVal = value.Get().iVal;
    } else if (target.vt == (VT_BYREF | VT_DISPATCH) && value.Type() == VT_DISPATCH) {
        if (*target.ppdispVal) (*target.ppdispVal)->Release();
        *target.ppdispVal = value.Detach().pdispVal;
    } else if (target.vt == (VT_BYREF | VT_UNKNOWN) && value.Type() == VT_DISPATCH) {
        if (*target.ppunkVal) (*target.ppunkVal)->Release();
        *target.ppunkVal = value.Detach().pdispVal;
    }
}

Variant Arguments::Assigned() const {
    return assigned_ ? Variant::Copy(*assigned_) : Variant::Missing();
}

HRESULT ReportFailure(HRESULT hr, EXCEPINFO* info) {
    if (!info) return hr;
    *info = {};
    info->scode = hr;
    win32::ComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, error.Put()) == S_OK) {
        error->GetDescription(&info->bstrDescription);
        error->GetSource(&info->bstrSource);
        error->GetHelpContext(&info->dwHelpContext);
        SetErrorInfo(0, error.Get());
    }
    return DISP_E_EXCEPTION;
}

}  // namespace zv::host
