// Late-bound calls to objects that speak of databases: what they fail with is of the kind that the
// numbers of ADO and its providers mean.
#pragma once

#include <utility>

#include "automation/late_bound.h"
#include "store/ado_error_kinds.h"

namespace zv::store::ado {

using automation::ArgumentList;
using automation::FailedCalls;

/// A member of such an object: called through it, an error is of the kind that its number means.
class Member : public automation::Member {
 public:
    using automation::Member::Member;
};

/// Runs `work`; an error of no kind known becomes one of the kind that its number means.
template <class Work>
auto WithKinds(Work&& work) {
    try {
        return work();
    } catch (const RuntimeError& error) {
        if (error.Kind() != ErrorKind::Other) throw;
        throw RuntimeError(error).Of(KindOfAdoError(error.Number()));
    }
}

inline win32::Variant Call(IDispatch& object, Member& member, ArgumentList arguments = {}) {
    automation::Member& any = member;
    return WithKinds([&] { return automation::Call(object, any, arguments); });
}
inline win32::Variant GetProperty(IDispatch& object, Member& member, ArgumentList arguments = {}) {
    return WithKinds([&] { return automation::GetProperty(object, member, arguments); });
}
inline void PutProperty(IDispatch& object, Member& member, const VARIANT& value) {
    WithKinds([&] { automation::PutProperty(object, member, value); });
}
inline win32::ComPtr<IDispatch> GetObjectProperty(IDispatch& object, Member& member,
                                                  ArgumentList arguments = {}) {
    return WithKinds([&] { return automation::GetObjectProperty(object, member, arguments); });
}

}  // namespace zv::store::ado
