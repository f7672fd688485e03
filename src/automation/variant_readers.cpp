#include "automation/variant_readers.h"

#include "base/win32/com_error.h"

namespace zv::automation {

using win32::Variant;

namespace {

void Convert(Variant& value, VARTYPE type, Misfit misfit) {
    const HRESULT hr = value.ChangeType(type);
    if (SUCCEEDED(hr)) return;
    if (misfit == Misfit::TypeMismatch) throw RuntimeError(ErrorNumber::TypeMismatch);
    throw ErrorOfResult(hr);
}

}  // namespace

RuntimeError ErrorOfResult(HRESULT hr) {
    return RuntimeError(win32::ToErrorNumber(hr), win32::SystemMessage(hr));
}

std::int32_t ToNumber(Variant value, Misfit misfit) {
    Convert(value, VT_I4, misfit);
    return static_cast<std::int32_t>(value.Get().lVal);
}

bool ToFlag(Variant value, Misfit misfit) {
    Convert(value, VT_BOOL, misfit);
    return value.Get().boolVal != VARIANT_FALSE;
}

std::string ToText(Variant value, Misfit misfit) {
    Convert(value, VT_BSTR, misfit);
    return win32::ToUtf8(value.Get().bstrVal);
}

std::string ToTextOrNone(Variant value, Misfit misfit) {
    if (value.Type() == VT_NULL || value.Type() == VT_EMPTY) return {};
    return ToText(std::move(value), misfit);
}

std::optional<std::int32_t> TryNumber(Variant value) {
    if (FAILED(value.ChangeType(VT_I4))) return std::nullopt;
    return static_cast<std::int32_t>(value.Get().lVal);
}

std::optional<std::string> TryText(Variant value) {
    if (FAILED(value.ChangeType(VT_BSTR))) return std::nullopt;
    return win32::ToUtf8(value.Get().bstrVal);
}

}  // namespace zv::automation
