// Run-time errors at the border to COM: nothing thrown crosses it, and what comes back over it
// becomes a run-time error again.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <cwchar>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/errors.h"
#include "base/win32/bstr.h"
#include "base/win32/com_ptr.h"

namespace zv::win32 {

/// A classic number travels as 0x800A0000 + number, a number that is an HRESULT as it is.
inline HRESULT ToHresult(ErrorNumber number) {
    const auto value = static_cast<std::int32_t>(number);
    return value < 0 ? value : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, value & 0xFFFF);
}

/// The other way round; automation's own results become the classic numbers for them.
inline ErrorNumber ToErrorNumber(HRESULT hr) {
    if (HRESULT_FACILITY(hr) == FACILITY_CONTROL && hr < 0) {
        return static_cast<ErrorNumber>(HRESULT_CODE(hr));
    }
    switch (hr) {
        case DISP_E_MEMBERNOTFOUND:
        case DISP_E_UNKNOWNNAME:
            return ErrorNumber::MemberNotFound;
        case DISP_E_TYPEMISMATCH:
        case DISP_E_BADVARTYPE:
            return ErrorNumber::TypeMismatch;
        case DISP_E_PARAMNOTFOUND:
            return ErrorNumber::NamedArgumentNotFound;
        case DISP_E_PARAMNOTOPTIONAL:
            return ErrorNumber::ArgumentMissing;
        case DISP_E_BADPARAMCOUNT:
            return ErrorNumber::WrongArgumentCount;
        case DISP_E_OVERFLOW:
            return ErrorNumber::Overflow;
        case DISP_E_BADINDEX:
            return ErrorNumber::SubscriptOutOfRange;
        case E_INVALIDARG:
            return ErrorNumber::InvalidProcedureCall;
        case CO_E_CLASSSTRING:
        case REGDB_E_CLASSNOTREG:
            return ErrorNumber::CannotCreateObject;
        default:
            return static_cast<ErrorNumber>(hr);
    }
}

/// The system's own sentence for a result, without the line end; the number where it has none.
inline std::string SystemMessage(HRESULT hr) {
    wchar_t buffer[512];
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(hr), 0, buffer, ARRAYSIZE(buffer), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ') --length;
    if (length == 0) {
        length = static_cast<DWORD>(
            swprintf(buffer, ARRAYSIZE(buffer), L"0x%08lX", static_cast<unsigned long>(hr)));
    }
    return ToUtf8(std::wstring_view(buffer, length));
}

// The kind of an error travels as its help context, in this half of which nobody else's topics lie.
inline constexpr DWORD kKindContext = 0x5A560000;
inline constexpr DWORD kKindMask = 0xFFFF0000;

inline DWORD ContextOf(ErrorKind kind) {
    return kind == ErrorKind::Own ? 0 : kKindContext + static_cast<DWORD>(kind);
}
/// Own for a help context of somebody else.
inline ErrorKind KindOfContext(DWORD context) {
    const DWORD kind = context & ~kKindMask;
    const bool known =
        (context & kKindMask) == kKindContext && kind <= static_cast<DWORD>(ErrorKind::Last);
    return known ? static_cast<ErrorKind>(kind) : ErrorKind::Own;
}

/// Leaves the error's text and source for the caller of the method that fails with the result.
inline HRESULT SetError(HRESULT hr, std::string_view text, std::string_view source,
                        REFIID iid = IID_IDispatch, DWORD helpContext = 0) noexcept {
    try {
        ComPtr<ICreateErrorInfo> info;
        if (SUCCEEDED(CreateErrorInfo(info.Put()))) {
            info->SetGUID(iid);
            info->SetDescription(Bstr(text).Get());
            info->SetSource(Bstr(source).Get());
            info->SetHelpContext(helpContext);
            if (auto error = info.As<IErrorInfo>()) SetErrorInfo(0, error.Get());
        }
    } catch (const std::bad_alloc&) {
        // The number alone has to do.
    }
    return hr;
}

/// Runs `body` (answering HRESULT or nothing) and turns whatever it throws into a result with
/// error information. `source` names the component where the error has no source of its own;
/// `textOf` gives the text of a RuntimeError.
template <class Body, class TextOf>
HRESULT Guarded(std::string_view source, REFIID iid, TextOf&& textOf, Body&& body) noexcept {
    try {
        if constexpr (std::is_void_v<decltype(body())>) {
            body();
            return S_OK;
        } else {
            return body();
        }
    } catch (const RuntimeError& error) {
        const HRESULT hr = ToHresult(error.Number());
        try {
            return SetError(hr, textOf(error), error.Source().empty() ? source : error.Source(),
                            iid, ContextOf(error.Kind()));
        } catch (...) {
            return hr;
        }
    } catch (const std::bad_alloc&) {
        SetErrorInfo(0, nullptr);  // else the caller takes an earlier error's text for this one's
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        try {
            const RuntimeError reported =
                RuntimeError(ErrorNumber::InternalError, error.what()).Of(ErrorKind::Other);
            return SetError(E_UNEXPECTED, textOf(reported), source, iid);
        } catch (...) {
            return E_UNEXPECTED;
        }
    } catch (...) {
        SetErrorInfo(0, nullptr);
        return E_UNEXPECTED;
    }
}

template <class Body>
HRESULT Guarded(std::string_view source, Body&& body) noexcept {
    return Guarded(
        source, IID_IDispatch,
        [](const RuntimeError& error) {
            return error.Text().empty() ? SystemMessage(ToHresult(error.Number())) : error.Text();
        },
        std::forward<Body>(body));
}

/// The error that a failed Invoke reports, the texts of `info` taken over and freed. It is of the
/// kind that one of our own components reported, otherwise of no kind known.
inline RuntimeError ErrorOf(HRESULT hr, EXCEPINFO& info) {
    if (hr != DISP_E_EXCEPTION) {
        return RuntimeError(ToErrorNumber(hr), SystemMessage(hr)).Of(ErrorKind::Other);
    }
    if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
    Bstr source;
    Bstr text;
    Bstr help;
    *source.Put() = info.bstrSource;
    *text.Put() = info.bstrDescription;
    *help.Put() = info.bstrHelpFile;
    // An object reports either a result or one of the classic numbers.
    const HRESULT code = info.scode != 0 ? info.scode
                         : info.wCode != 0
                             ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, info.wCode)
                             : E_FAIL;
    const ErrorKind kind = KindOfContext(info.dwHelpContext);
    info = {};
    return RuntimeError(ToErrorNumber(code), text.Utf8(), source.Utf8())
        .Of(kind == ErrorKind::Own ? ErrorKind::Other : kind);
}

}  // namespace zv::win32
