#include "store/ado/value_conversion.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/errors.h"

namespace zv::store::ado {
namespace {

using win32::Variant;

// Doubles hold every whole number up to here.
constexpr std::int64_t kExactInDouble = std::int64_t{1} << 53;

Value FromUnsigned(std::uint64_t number) {
    if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        return Value(static_cast<double>(number));
    }
    return Value(static_cast<std::int64_t>(number));
}

Value FromDecimal(const DECIMAL& decimal) {
    DECIMAL copy = decimal;
    DECIMAL whole{};
    LONG64 number = 0;
    if (VarDecFix(&copy, &whole) == S_OK && VarDecCmp(&copy, &whole) == VARCMP_EQ &&
        VarI8FromDec(&copy, &number) == S_OK) {
        return Value(static_cast<std::int64_t>(number));
    }
    double real = 0;
    if (FAILED(VarR8FromDec(&copy, &real))) throw RuntimeError(ErrorNumber::Overflow);
    return Value(real);
}

Value FromCurrency(const CY& currency) {
    constexpr std::int64_t kScale = 10000;
    if (currency.int64 % kScale == 0) return Value(std::int64_t{currency.int64 / kScale});
    return Value(static_cast<double>(currency.int64) / static_cast<double>(kScale));
}

struct Converter {
    Variant operator()(std::monostate) const { return Variant::Null(); }
    Variant operator()(std::int64_t number) const {
        if (number >= std::numeric_limits<std::int32_t>::min() &&
            number <= std::numeric_limits<std::int32_t>::max()) {
            return Variant(static_cast<std::int32_t>(number));
        }
        if (number >= -kExactInDouble && number <= kExactInDouble) {
            return Variant(static_cast<double>(number));
        }
        Variant result;
        DECIMAL decimal{};
        VarDecFromI8(number, &decimal);
        // The type stands inside the decimal's own first bytes.
        result.Ref().decVal = decimal;
        result.Ref().vt = VT_DECIMAL;
        return result;
    }
    Variant operator()(double number) const { return Variant(number); }
    Variant operator()(const std::string& text) const { return Variant(std::string_view(text)); }
    Variant operator()(DateTime date) const { return Variant::Date(date.ToAutomation()); }
};

}  // namespace

Value FromVariant(const VARIANT& value) {
    if (value.vt & VT_BYREF) return FromVariant(Variant::Copy(value).Get());
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return Value();
        case VT_I1:
            return Value(std::int64_t{static_cast<signed char>(value.cVal)});
        case VT_I2:
            return Value(std::int64_t{value.iVal});
        case VT_I4:
        case VT_INT:
            return Value(std::int64_t{value.lVal});
        case VT_I8:
            return Value(std::int64_t{value.llVal});
        case VT_UI1:
            return Value(std::int64_t{value.bVal});
        case VT_UI2:
            return Value(std::int64_t{value.uiVal});
        case VT_UI4:
        case VT_UINT:
            return Value(std::int64_t{value.ulVal});
        case VT_UI8:
            return FromUnsigned(value.ullVal);
        case VT_BOOL:
            return Value(std::int64_t{value.boolVal != VARIANT_FALSE});
        case VT_R4:
            return Value(static_cast<double>(value.fltVal));
        case VT_R8:
            return Value(value.dblVal);
        case VT_CY:
            return FromCurrency(value.cyVal);
        case VT_DECIMAL:
            return FromDecimal(value.decVal);
        case VT_DATE:
            return Value(DateTime::FromAutomation(value.date));
        case VT_BSTR:
            return Value(win32::ToUtf8(value.bstrVal));
        default:
            throw RuntimeError(ErrorNumber::TypeMismatch);
    }
}

Variant ToVariant(const Value& value) {
    return std::visit(Converter{}, value.Data());
}

}  // namespace zv::store::ado
