// The arguments of one call of a member.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string>

#include "base/win32/variant.h"

namespace zv::automation {

/// Counted from 0 in the order in which they are written. The value of an assignment is not one of
/// them.
class Arguments {
 public:
    explicit Arguments(const DISPPARAMS& parameters);
    /// `reversed` are `count` values, the last argument first; `assigned` may be null. They stay
    /// the caller's.
    Arguments(const VARIANT* reversed, std::size_t count, const VARIANT* assigned)
        : values_(reversed), count_(count), assigned_(assigned) {}

    std::size_t Count() const { return count_; }
    /// False for an argument that is left out, at the end or between others.
    bool IsGiven(std::size_t index) const;
    /// A copy with references followed; Missing when it is left out.
    win32::Variant At(std::size_t index) const;
    /// Throw TypeMismatch, Overflow when the argument cannot be read so. Left out: the fallback.
    std::int32_t Int(std::size_t index, std::int32_t fallback) const;
    std::string Text(std::size_t index) const;
    /// As Int, but an argument that is left out is a type mismatch.
    std::int32_t Int(std::size_t index) const;
    /// Stores into an argument passed by reference; others are left alone.
    void Store(std::size_t index, win32::Variant value) const;
    /// As it was handed over; there must be such an argument.
    const VARIANT& Raw(std::size_t index) const { return values_[count_ - 1 - index]; }

    bool IsAssignment() const { return assigned_ != nullptr; }
    /// The value of an assignment, references followed.
    win32::Variant Assigned() const;
    /// As it was handed over, in an assignment.
    const VARIANT& RawAssigned() const { return *assigned_; }

 private:
    const VARIANT* values_ = nullptr;
    std::size_t count_ = 0;
    const VARIANT* assigned_ = nullptr;
};

}  // namespace zv::automation
