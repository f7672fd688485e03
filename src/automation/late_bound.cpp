#include "automation/late_bound.h"

#include <objbase.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <utility>

#include "automation/activation.h"

namespace zv::automation {
namespace {

constexpr std::size_t kMostArguments = 8;

std::atomic<unsigned> failedCalls = 0;

win32::Variant Invoke(IDispatch& object, DISPID id, WORD kind, DISPPARAMS& parameters) {
    win32::Variant result;
    EXCEPINFO info{};
    UINT badArgument = 0;
    const bool wantsResult = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0;
    const HRESULT hr = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                     wantsResult ? result.Put() : nullptr, &info, &badArgument);
    if (FAILED(hr)) {
        failedCalls++;
        throw win32::ErrorOf(hr, info);
    }
    return result;
}

win32::Variant InvokeWith(IDispatch& object, Member& member, WORD kind, ArgumentList arguments) {
    if (arguments.size() > kMostArguments) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    std::array<VARIANT, kMostArguments> reversed;
    std::reverse_copy(arguments.begin(), arguments.end(), reversed.begin());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return Invoke(object, member.Id(object), kind, parameters);
}

}  // namespace

HRESULT Member::Lookup(IDispatch& object) {
    if (result_ == S_FALSE) {
        auto* name = const_cast<wchar_t*>(name_);
        result_ = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id_);
    }
    return result_;
}

DISPID Member::Id(IDispatch& object) {
    if (Lookup(object) != S_OK) {
        throw RuntimeError(ErrorNumber::MemberNotFound,
                           "The object has no member \"" + win32::ToUtf8(name_) + "\".")
            .Of(ErrorKind::Other);
    }
    return id_;
}

unsigned FailedCalls() noexcept {
    return failedCalls;
}

win32::Variant Call(IDispatch& object, Member& member, ArgumentList arguments) {
    return InvokeWith(object, member, DISPATCH_METHOD, arguments);
}

win32::Variant GetProperty(IDispatch& object, Member& member, ArgumentList arguments) {
    // Objects written in a script offer everything as a method.
    return InvokeWith(object, member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
}

void PutProperty(IDispatch& object, Member& member, const VARIANT& value) {
    VARIANT argument = value;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&argument, &put, 1, 1};
    // Objects are offered both ways: one class takes them as values, the next as references.
    const bool isObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
    const WORD kind =
        isObject ? DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    Invoke(object, member.Id(object), kind, parameters);
}

win32::ComPtr<IDispatch> GetObjectProperty(IDispatch& object, Member& member,
                                           ArgumentList arguments) {
    auto result = GetProperty(object, member, arguments).Object();
    if (!result) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return result;
}

std::optional<win32::Variant> TryGet(IDispatch& object, DISPID id, WORD kind) {
    DISPPARAMS none{};
    win32::Variant answer;
    if (FAILED(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &none, answer.Put(), nullptr,
                             nullptr))) {
        return std::nullopt;
    }
    return answer;
}

void Notify(IDispatch& listener, DISPID id, const std::vector<win32::Variant>& arguments) {
    std::vector<VARIANT> reversed;
    for (auto value = arguments.rbegin(); value != arguments.rend(); ++value) {
        reversed.push_back(value->Get());
    }
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    win32::Variant ignored;
    listener.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, ignored.Put(),
                    nullptr, nullptr);
}

bool IsRegistered(const wchar_t* progId) {
    CLSID classId{};
    return SUCCEEDED(CLSIDFromProgID(progId, &classId));
}

HRESULT Create(const wchar_t* progId, DWORD context, REFIID iid, void** object) {
    const ActivationInForce host;
    CLSID classId{};
    const HRESULT hr = CLSIDFromProgID(progId, &classId);
    return FAILED(hr) ? hr : CoCreateInstance(classId, nullptr, context, iid, object);
}

HRESULT Create(const wchar_t* progId, win32::ComPtr<IDispatch>& object) {
    return Create(progId, CLSCTX_INPROC_SERVER, IID_IDispatch, object.PutVoid());
}

LateBound LateBound::Create(const wchar_t* progId) {
    win32::ComPtr<IDispatch> object;
    const HRESULT hr = automation::Create(progId, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                          IID_IDispatch, object.PutVoid());
    if (FAILED(hr)) {
        throw RuntimeError(ErrorNumber::CannotCreateObject,
                           win32::ToUtf8(progId) + ": " + win32::SystemMessage(hr));
    }
    return LateBound(std::move(object));
}

win32::Variant LateBound::Get(const wchar_t* name) {
    Member member(name);
    return GetProperty(*object_, member);
}

void LateBound::Put(const wchar_t* name, const win32::Variant& value) {
    Member member(name);
    PutProperty(*object_, member, value.Get());
}

void LateBound::PutIfOffered(const wchar_t* name, const win32::Variant& value) {
    Member member(name);
    if (member.IsOffered(*object_)) PutProperty(*object_, member, value.Get());
}

win32::Variant LateBound::Call(const wchar_t* name, ArgumentList arguments) {
    Member member(name);
    return automation::Call(*object_, member, arguments);
}

}  // namespace zv::automation
