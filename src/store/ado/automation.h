// Late-bound calls to an automation object.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <initializer_list>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/variant.h"

namespace zv::store::ado {

/// A member's name and, once asked for, its id. One for each object: an object is free to number
/// its members as it likes.
class Member {
 public:
    explicit constexpr Member(const wchar_t* name) : name_(name) {}
    /// False when the object has no such member.
    bool IsOffered(IDispatch& object) { return Lookup(object) == S_OK; }
    /// Throws MemberNotFound, naming the member.
    DISPID Id(IDispatch& object);

 private:
    HRESULT Lookup(IDispatch& object);

    const wchar_t* name_;
    DISPID id_ = DISPID_UNKNOWN;
    HRESULT result_ = S_FALSE;  // S_FALSE: not asked yet
};

/// An argument list holds the values in the order in which they are written in a call; they stay
/// the caller's. All calls throw RuntimeError with the number, text and source that the object
/// reports.
using ArgumentList = std::initializer_list<VARIANT>;

win32::Variant Call(IDispatch& object, Member& member, ArgumentList arguments = {});
win32::Variant GetProperty(IDispatch& object, Member& member, ArgumentList arguments = {});
void PutProperty(IDispatch& object, Member& member, const VARIANT& value);
/// The object that a property holds; throws ObjectNotSet when it holds none.
win32::ComPtr<IDispatch> GetObjectProperty(IDispatch& object, Member& member,
                                           ArgumentList arguments = {});

/// How many calls have failed so far, whatever object they went to.
unsigned FailedCalls() noexcept;

}  // namespace zv::store::ado
