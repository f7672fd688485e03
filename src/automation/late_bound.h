// Late-bound calls to an automation object.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <initializer_list>
#include <optional>
#include <vector>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/variant.h"

namespace zv::automation {

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
/// reports, of the kind that one of our own components reports and otherwise of none.
using ArgumentList = std::initializer_list<VARIANT>;

win32::Variant Call(IDispatch& object, Member& member, ArgumentList arguments = {});
win32::Variant GetProperty(IDispatch& object, Member& member, ArgumentList arguments = {});
void PutProperty(IDispatch& object, Member& member, const VARIANT& value);
/// The object that a property holds; throws ObjectNotSet when it holds none.
win32::ComPtr<IDispatch> GetObjectProperty(IDispatch& object, Member& member,
                                           ArgumentList arguments = {});

/// What an object answers of a member with a number of its own, as containers and collections have
/// them; nothing when it does not.
std::optional<win32::Variant> TryGet(IDispatch& object, DISPID id, WORD kind);

/// Calls a listener's method of that number. The values are in the order in which they are written
/// in a call. What the listener answers or fails with is its own affair.
void Notify(IDispatch& listener, DISPID id, const std::vector<win32::Variant>& arguments);

/// Whether a class of this name is registered.
bool IsRegistered(const wchar_t* progId);
/// A new object of a class that the host's activation context or the registry knows; null and the
/// reason when that fails.
HRESULT Create(const wchar_t* progId, DWORD context, REFIID iid, void** object);
/// In this process.
HRESULT Create(const wchar_t* progId, win32::ComPtr<IDispatch>& object);

/// An object known by its class's name only, its members by theirs.
class LateBound {
 public:
    /// In this process or in one of its own. Throws error 429, naming the class, when it is not
    /// registered or cannot be created.
    static LateBound Create(const wchar_t* progId);

    explicit LateBound(win32::ComPtr<IDispatch> object) : object_(std::move(object)) {}

    /// All throw the object's own error, 438 for a member that it does not have.
    win32::Variant Get(const wchar_t* name);
    void Put(const wchar_t* name, const win32::Variant& value);
    /// As Put, for a member that an object need not have: without it nothing happens.
    void PutIfOffered(const wchar_t* name, const win32::Variant& value);
    win32::Variant Call(const wchar_t* name, ArgumentList arguments = {});

 private:
    win32::ComPtr<IDispatch> object_;
};

/// How many calls have failed so far, whatever object they went to.
unsigned FailedCalls() noexcept;

}  // namespace zv::automation
