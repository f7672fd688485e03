// Automation objects whose members stand in a table: no type library is asked during a call.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <span>
#include <string_view>

#include "automation/arguments.h"
#include "automation/module.h"
#include "base/win32/com_error.h"
#include "base/win32/variant.h"

namespace zv::automation {

/// How the calls of an object are read.
enum class Binding {
    /// Arguments as they come, by their position alone: the member reads them and may do without.
    /// Details of a failure stay with the thread too; a caller that brings no record of its own is
    /// answered the number itself.
    Positional,
    /// As a type library promises: what does not fit a member's types is answered with automation's
    /// own results and the argument's index, in the caller's locale; arguments may be named.
    /// Details of a failure are the caller's alone. An object that can explain what does not fit
    /// does so to a caller that brings a record for it.
    Typed,
};

struct Parameter {
    const wchar_t* name = nullptr;
    VARTYPE type = VT_EMPTY;
};

/// What is said of a member, whichever class has it.
struct MemberShape {
    static constexpr int kAnyCount = -1;
    static constexpr std::size_t kMostParameters = 2;

    const wchar_t* name;
    DISPID id;
    int count = kAnyCount;  ///< of arguments
    // Of typed members only.
    bool isMethod = false;
    VARTYPE type = VT_EMPTY;  ///< of a property
    std::array<Parameter, kMostParameters> parameters{};
};

/// What a member does; nothing is thrown. A failure leaves its details as error information.
template <class T>
using MemberBody = HRESULT (*)(T& self, const Arguments& arguments,
                               win32::Variant& answer) noexcept;

template <class T>
struct MemberEntry {
    MemberShape shape;
    /// Called as a method or read as a property; null when the member can only be assigned.
    MemberBody<T> read = nullptr;
    /// Null when the member cannot be assigned.
    MemberBody<T> assign = nullptr;

    /// The same member, which takes just so many arguments.
    constexpr MemberEntry Taking(int count) const {
        MemberEntry entry = *this;
        entry.shape.count = count;
        return entry;
    }
};

template <class T, auto Read>
HRESULT ReadGuarded(T& self, const Arguments& arguments, win32::Variant& answer) noexcept {
    return win32::Guarded(T::kSourceName, [&] { answer = (self.*Read)(arguments); });
}
template <class T, auto Assign>
HRESULT AssignGuarded(T& self, const Arguments& arguments, win32::Variant&) noexcept {
    return win32::Guarded(T::kSourceName, [&] { (self.*Assign)(arguments); });
}

/// The class that a member belongs to.
template <class Function>
struct OwnerOf;
template <class T, class Answer>
struct OwnerOf<Answer (T::*)(const Arguments&)> {
    using Type = T;
};
template <auto Function>
using Owner = typename OwnerOf<decltype(Function)>::Type;

/// A positional member: `Variant (T::*Read)(const Arguments&)`, which answers a call or the
/// property, and `void (T::*Assign)(const Arguments&)`; both may throw.
template <auto Read, auto Assign = nullptr>
constexpr auto Offers(const wchar_t* name, DISPID id) {
    if constexpr (Assign == nullptr) {
        using T = Owner<Read>;
        return MemberEntry<T>{{.name = name, .id = id}, &ReadGuarded<T, Read>};
    } else if constexpr (Read == nullptr) {
        using T = Owner<Assign>;
        return MemberEntry<T>{{.name = name, .id = id}, nullptr, &AssignGuarded<T, Assign>};
    } else {
        using T = Owner<Read>;
        return MemberEntry<T>{
            {.name = name, .id = id}, &ReadGuarded<T, Read>, &AssignGuarded<T, Assign>};
    }
}

/// The arguments of IDispatch::Invoke that do not name a member.
struct MemberCall {
    REFIID reserved;
    LCID locale;
    WORD kind;
    DISPPARAMS* parameters;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* badArgument;

    bool IsAssignment() const {
        return (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    }
};

/// The arguments of a call as its member takes them.
class TakenArguments {
 public:
    /// An automation result for arguments that do not fit.
    HRESULT Take(Binding binding, const MemberShape& shape, const MemberCall& call) noexcept;
    const Arguments& Get() const { return taken_; }
    /// The parameter of a method that the call does not fit; null when it is none or unknown.
    const wchar_t* Misfit() const { return misfit_; }

 private:
    HRESULT TakePositional(const MemberShape& shape, const MemberCall& call);
    HRESULT TakeValue(const MemberShape& shape, const MemberCall& call);
    HRESULT TakeTyped(const MemberShape& shape, const MemberCall& call);

    Arguments taken_{nullptr, 0, nullptr};
    const wchar_t* misfit_ = nullptr;
    /// The last one first, as callers hand them over; they are cleared where they were filled.
    struct Converted {
        std::array<VARIANT, MemberShape::kMostParameters> values{};
        bool isFilled = false;
        ~Converted();
    } converted_;
};

/// Answers what a failed member reports, its details out of the thread's error information.
HRESULT ReportFailure(Binding binding, HRESULT hr, EXCEPINFO* exception) noexcept;

/// Member names are ASCII and compared without regard to case or locale.
bool SameName(std::wstring_view a, std::wstring_view b);
/// The ids of a member and its parameters; `shape` is what the first name stands for, or null.
HRESULT FindParameters(const MemberShape* shape, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// T gives `static std::span<const MemberEntry<T>> Members()`.
template <class T>
HRESULT FindNames(Binding binding, REFIID reserved, LPOLESTR* names, UINT count,
                  DISPID* ids) noexcept {
    if (binding == Binding::Typed && reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    if (count == 0) return S_OK;
    const MemberShape* found = nullptr;
    for (const MemberEntry<T>& member : T::Members()) {
        if (!found && names[0] && SameName(names[0], member.shape.name)) found = &member.shape;
    }
    return FindParameters(found, names, count, ids);
}

template <class T>
MemberBody<T> BodyFor(const MemberEntry<T>& member, Binding binding, const MemberCall& call) {
    if (binding == Binding::Positional) return call.IsAssignment() ? member.assign : member.read;
    if (member.shape.isMethod) return call.kind & DISPATCH_METHOD ? member.read : nullptr;
    if (call.kind & DISPATCH_PROPERTYPUT) return member.assign;
    return call.kind & DISPATCH_PROPERTYGET ? member.read : nullptr;
}

/// A call that does not fit is answered with automation's own result, without details, unless T
/// gives `static HRESULT Explain(const MemberShape&, const wchar_t* parameter, HRESULT) noexcept`,
/// which leaves error information. A read that does not fit is left to the caller: some then read
/// without arguments.
template <class T>
HRESULT AnswerMisfit(const MemberShape& shape, const wchar_t* parameter, HRESULT hr,
                     const MemberCall& call) noexcept {
    if constexpr (requires { T::Explain(shape, parameter, hr); }) {
        const bool isRead = !shape.isMethod && !call.IsAssignment();
        if (call.exception && !isRead && hr != E_OUTOFMEMORY) {
            return ReportFailure(Binding::Typed, T::Explain(shape, parameter, hr), call.exception);
        }
    }
    return hr;
}

template <class T>
HRESULT InvokeMember(Binding binding, T& self, DISPID id, const MemberCall& call) noexcept {
    if (binding == Binding::Typed && call.reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!call.parameters) return E_POINTER;
    if (call.result) VariantInit(call.result);
    for (const MemberEntry<T>& member : T::Members()) {
        if (member.shape.id != id) continue;
        const MemberBody<T> body = BodyFor(member, binding, call);
        if (!body) break;
        TakenArguments arguments;
        HRESULT hr = arguments.Take(binding, member.shape, call);
        if (FAILED(hr)) return AnswerMisfit<T>(member.shape, arguments.Misfit(), hr, call);
        win32::Variant answer;
        hr = body(self, arguments.Get(), answer);
        if (FAILED(hr)) return ReportFailure(binding, hr, call.exception);
        if (call.result) *call.result = answer.Detach();
        return hr;
    }
    return DISP_E_MEMBERNOTFOUND;
}

/// For objects that others may keep longer than the file's work lasts.
struct KeepsNothing {};

/// A positional object. T gives Members() and `kSourceName` (the source of its errors), and may
/// give `kInterfaceId`, a dispatch interface of its own. `Keeps` is what it holds while it lives.
template <class T, class Keeps = module::Reference>
class DispatchObject : public IDispatch, public ISupportErrorInfo {
 public:
    DispatchObject() = default;
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        if (iid == IID_IUnknown || IsDispatch(iid)) {
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
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return IsDispatch(iid) ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        if (info) *info = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) noexcept override {
        return FindNames<T>(Binding::Positional, reserved, names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) noexcept override {
        // What a member calls may let go of the object.
        const win32::ComPtr<IDispatch> alive(this);
        return InvokeMember(Binding::Positional, static_cast<T&>(*this), id,
                            {reserved, locale, kind, parameters, result, exception, badArgument});
    }

 protected:
    virtual ~DispatchObject() = default;

 private:
    static bool IsDispatch(REFIID iid) noexcept {
        if constexpr (requires { T::kInterfaceId; }) {
            if (iid == T::kInterfaceId) return true;
        }
        return iid == IID_IDispatch;
    }

    std::atomic<ULONG> references_{1};
    [[no_unique_address]] Keeps keeps_;
};

}  // namespace zv::automation
