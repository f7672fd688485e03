// Opens real databases: of the embedded engine, or over ODBC when the data path is a connection
// string.
#pragma once

#include <memory>

#include "store/connection_opener.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/odbc_connection.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::doubles {

class EngineOpener : public store::ConnectionOpener {
 public:
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override {
        if (!store::odbc::IsOdbcConnectionString(settings.dataPath.ForDriver())) {
            return store::OpenSqlite(settings.dataPath.ForDriver());
        }
        return store::odbc::OpenOdbc(store::odbc::OptionsFor(settings));
    }
};

}  // namespace zv::doubles
