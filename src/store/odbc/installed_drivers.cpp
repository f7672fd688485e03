#include "store/odbc/installed_drivers.h"

#include <algorithm>

#include "base/text.h"
#include "store/odbc/handle.h"

namespace zv::store::odbc {

std::vector<std::string> InstalledDrivers() {
    constexpr SQLSMALLINT kUnits = 512;
    std::vector<std::string> names;
    const EnvironmentHandle environment(SQLHANDLE{});
    if (!environment) return names;
    SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, NumberAsPointer(SQL_OV_ODBC3), 0);
    SQLWCHAR name[kUnits]{};
    SQLWCHAR attributes[kUnits]{};
    SQLSMALLINT length = 0;
    SQLSMALLINT attributesLength = 0;
    for (SQLUSMALLINT direction = SQL_FETCH_FIRST;
         SQL_SUCCEEDED(SQLDriversW(environment.Get(), direction, name, kUnits, &length, attributes,
                                   kUnits, &attributesLength));
         direction = SQL_FETCH_NEXT) {
        const auto* first = reinterpret_cast<const char16_t*>(name);
        names.push_back(text::FromUtf16({first, std::find(first, first + kUnits - 1, u'\0')}));
    }
    return names;
}

}  // namespace zv::store::odbc
