// An automation value that clears itself.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

#include "base/win32/bstr.h"
#include "base/win32/com_ptr.h"

namespace zv::win32 {

class Variant {
 public:
    Variant() { VariantInit(&value_); }
    explicit Variant(std::int32_t number) : Variant() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    explicit Variant(std::int16_t number) : Variant() {
        value_.vt = VT_I2;
        value_.iVal = number;
    }
    explicit Variant(double number) : Variant() {
        value_.vt = VT_R8;
        value_.dblVal = number;
    }
    explicit Variant(bool flag) : Variant() {
        value_.vt = VT_BOOL;
        value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(std::string_view utf8) : Variant() {
        value_.bstrVal = AllocateBstr(utf8);
        value_.vt = VT_BSTR;
    }
    /// Keeps a literal from becoming a flag.
    explicit Variant(const char* utf8) : Variant(std::string_view(utf8)) {}
    explicit Variant(std::wstring_view text) : Variant() {
        value_.bstrVal = AllocateBstr(text);
        value_.vt = VT_BSTR;
    }
    explicit Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    /// Adds a reference; null is an object variable set to nothing.
    explicit Variant(IDispatch* object) : Variant() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object) object->AddRef();
    }
    explicit Variant(IUnknown* object) : Variant() {
        value_.vt = VT_UNKNOWN;
        value_.punkVal = object;
        if (object) object->AddRef();
    }

    /// An automation date.
    static Variant Date(double date) {
        Variant result;
        result.value_.vt = VT_DATE;
        result.value_.date = date;
        return result;
    }
    static Variant Null() {
        Variant result;
        result.value_.vt = VT_NULL;
        return result;
    }
    /// An optional argument that is left out.
    static Variant Missing() {
        Variant result;
        result.value_.vt = VT_ERROR;
        result.value_.scode = DISP_E_PARAMNOTFOUND;
        return result;
    }
    /// A copy, references followed to the value itself. Throws bad_alloc; a value that cannot be
    /// copied becomes empty.
    static Variant Copy(const VARIANT& source) {
        Variant result;
        if ((source.vt & VT_BYREF) && !source.byref) return result;
        const HRESULT hr = VariantCopyInd(&result.value_, const_cast<VARIANT*>(&source));
        if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
        return result;
    }
    /// Takes over what the caller's variant holds and leaves it empty.
    static Variant Take(VARIANT& source) {
        Variant result;
        result.value_ = source;
        VariantInit(&source);
        return result;
    }

    Variant(const Variant&) = delete;
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant& operator=(Variant other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { VariantClear(&value_); }

    VARTYPE Type() const { return value_.vt; }
    bool IsMissing() const { return value_.vt == VT_ERROR && value_.scode == DISP_E_PARAMNOTFOUND; }
    /// The object held, null when the value is none.
    ComPtr<IDispatch> Object() const {
        if (value_.vt == VT_DISPATCH) return ComPtr<IDispatch>(value_.pdispVal);
        if (value_.vt == VT_UNKNOWN) return ComPtr<IUnknown>(value_.punkVal).As<IDispatch>();
        return {};
    }

    VARIANT& Ref() { return value_; }
    const VARIANT& Get() const { return value_; }
    /// The address for a function that hands out a value; what was held is cleared.
    VARIANT* Put() {
        VariantClear(&value_);
        return &value_;
    }
    /// Hands the value to the caller.
    [[nodiscard]] VARIANT Detach() {
        const VARIANT result = value_;
        VariantInit(&value_);
        return result;
    }
    /// Converts in place, independent of the user's locale. The result of VariantChangeTypeEx.
    [[nodiscard]] HRESULT ChangeType(VARTYPE type) {
        return VariantChangeTypeEx(&value_, &value_, LOCALE_INVARIANT, VARIANT_ALPHABOOL, type);
    }

 private:
    VARIANT value_;
};

}  // namespace zv::win32
