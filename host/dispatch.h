// Automation objects whose members stand in a table: no type library is asked during a call.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cwchar>
#include <span>
#include <string>
#include <string_view>

#include "base/win32/com_error.h"
#include "base/win32/variant.h"
#include "module.h"

namespace zv::host {

/// The arguments of one call, counted from 0 in the order in which they are written. The value of
/// an assignment is not one of them.
class Arguments {
 public:
    explicit Arguments(const DISPPARAMS& parameters);

    std::size_t Count() const { return count_; }
    /// False for an argument that is left out, at the end or between others.
    bool IsGiven(std::size_t index) const;
    /// A copy with references followed; Missing when it is left out.
    win32::Variant At(std::size_t index) const;
    /// Throw TypeMismatch, Overflow when the argument cannot be read so. Left out: the fallback.
    std::int32_t Int(std::size_t index, std::int32_t fallback) const;
    std::string Text(std::size_t index) const;
    /// Stores into an argument passed by reference; others are left alone.
    void Store(std::size_t index, win32::Variant value) const;

    bool IsAssignment() const { return assigned_ != nullptr; }
    /// The value of an assignment, references followed.
    win32::Variant Assigned() const;

 private:
    const VARIANT& Raw(std::size_t index) const { return values_[count_ - 1 - index]; }

    const VARIANT* values_ = nullptr;
    std::size_t count_ = 0;
    const VARIANT* assigned_ = nullptr;
};

/// Answers what a failed member reports: the details into `info` when there is one, and as error
/// information of the thread.
HRESULT ReportFailure(HRESULT hr, EXCEPINFO* info);

template <class T>
struct MemberEntry {
    const wchar_t* name;
    DISPID id;
    /// Called as a method or read as a property; null when the member can only be assigned.
    win32::Variant (T::*read)(const Arguments&);
    /// Null when the member cannot be assigned.
    void (T::*assign)(const Arguments&) = nullptr;
};

/// T gives `static std::span<const MemberEntry<T>> Members()`, `kInterfaceId` (its dispatch
/// interface) and `kSourceName` (the source of its errors).
template <class T>
class DispatchObject : public IDispatch, public ISupportErrorInfo {
 public:
    DispatchObject() { ++liveObjects; }
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == T::kInterfaceId) {
            *object = static_cast<IDispatch*>(this);
        } else if (iid == IID_ISupportErrorInfo) {
            *object = static_cast<ISupportErrorInfo*>(this);
        } else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IDispatch || iid == T::kInterfaceId ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        if (info) *info = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || !ids || count == 0) return E_INVALIDARG;
        // Arguments have no names here, only the member itself does.
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        for (const auto& member : T::Members()) {
            if (_wcsicmp(member.name, names[0]) == 0) {
                ids[0] = member.id;
                return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* info, UINT*) override {
        if (!parameters) return E_POINTER;
        const bool assigns = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        const UINT named = parameters->cNamedArgs;
        const bool namesValue = assigns && named == 1 && parameters->cArgs > 0 &&
                                parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
        if (named != 0 && !namesValue) return DISP_E_NONAMEDARGS;
        if (assigns && !namesValue) return DISP_E_PARAMNOTOPTIONAL;
        for (const auto& member : T::Members()) {
            if (member.id != id) continue;
            if (assigns ? member.assign == nullptr : member.read == nullptr) break;
            const HRESULT hr = win32::Guarded(T::kSourceName, [&] {
                const Arguments arguments(*parameters);
                T& self = static_cast<T&>(*this);
                if (assigns) {
                    (self.*member.assign)(arguments);
                    return;
                }
                win32::Variant answer = (self.*member.read)(arguments);
                if (result) *result = answer.Detach();
            });
            return FAILED(hr) ? ReportFailure(hr, info) : hr;
        }
        return DISP_E_MEMBERNOTFOUND;
    }

 protected:
    virtual ~DispatchObject() { --liveObjects; }

 private:
    std::atomic<long> references_{1};
};

}  // namespace zv::host
