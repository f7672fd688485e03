#include "automation/arguments.h"

#include "automation/variant_readers.h"

namespace zv::automation {

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
    return value && !(value->vt == VT_ERROR && value->scode == DISP_E_PARAMNOTFOUND);
}

Variant Arguments::At(std::size_t index) const {
    return IsGiven(index) ? Variant::Copy(Raw(index)) : Variant::Missing();
}

std::int32_t Arguments::Int(std::size_t index, std::int32_t fallback) const {
    return IsGiven(index) ? Int(index) : fallback;
}

std::int32_t Arguments::Int(std::size_t index) const {
    return ToNumber(At(index), Misfit::Result);
}

std::string Arguments::Text(std::size_t index) const {
    return IsGiven(index) ? ToTextOrNone(At(index), Misfit::Result) : std::string();
}

void Arguments::Store(std::size_t index, Variant value) const {
    if (index >= count_) return;
    const VARIANT& target = Raw(index);
    if ((target.vt & VT_BYREF) && !target.byref) return;
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

}  // namespace zv::automation
