#include "store/ado/provider_errors.h"

#include "automation/variant_readers.h"
#include "store/ado_error_kinds.h"

namespace zv::store::ado {
namespace {

using win32::Variant;

/// 0 for what is no number.
std::int32_t NumberOf(IDispatch& object, const wchar_t* name) {
    Member member(name);
    if (!member.IsOffered(object)) return 0;
    return automation::TryNumber(GetProperty(object, member)).value_or(0);
}

}  // namespace

std::vector<ProviderError> ErrorsOf(IDispatch& connection) {
    std::vector<ProviderError> found;
    Member list(L"Errors");
    Member item(L"Item");
    if (!list.IsOffered(connection)) return found;
    const auto errors = GetObjectProperty(connection, list);
    const std::int32_t count = NumberOf(*errors, L"Count");
    for (std::int32_t i = 0; i < count; i++) {
        const auto error = GetObjectProperty(*errors, item, {Variant(i).Get()});
        Member sqlState(L"SQLState");
        const auto state = automation::TryText(GetProperty(*error, sqlState));
        if (!state) continue;
        found.push_back({win32::ToErrorNumber(NumberOf(*error, L"Number")),
                         {*state, NumberOf(*error, L"NativeError")}});
    }
    return found;
}

RuntimeError OfReportedKind(RuntimeError error, IDispatch& connection) {
    if (!IsGeneral(error.Kind())) return error;
    std::vector<ServerCode> said;
    try {
        for (ProviderError& each : ErrorsOf(connection)) {
            // Errors that are not the provider's own leave the list of an earlier one as it was.
            if (each.number == error.Number()) said.push_back(std::move(each.code));
        }
    } catch (const RuntimeError&) {
        // What went wrong first is reported.
    }
    const ErrorKind kind = KindOfProviderError(error, said);
    return kind == ErrorKind::Other ? error : std::move(error).Of(kind);
}

}  // namespace zv::store::ado
