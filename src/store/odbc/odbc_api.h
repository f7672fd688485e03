// The platform's ODBC: unixODBC natively, odbc32 on Windows. Wide characters are UTF-16 on both.
#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

namespace zv::store::odbc {

/// For functions that take a text without changing it, whatever their signature says.
inline SQLWCHAR* Wide(const std::u16string& text) {
    return const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(text.data()));
}

/// For attributes that are numbers handed over as pointers.
inline SQLPOINTER NumberAsPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number);
}

}  // namespace zv::store::odbc
