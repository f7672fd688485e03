// The engines that statements can be translated for.
#pragma once

#include <string>

namespace zv::store::dialect {

class Target;

/// The embedded engine, 3.9 or later.
const Target& Sqlite();
/// The same engine behind its ODBC driver, which garbles characters beyond the basic plane in a
/// statement, and which takes a quoted name that it does not know for a text.
const Target& SqliteOverOdbc();
/// PostgreSQL 12 or later, with the tables of schema/postgresql.sql: texts of the type citext,
/// dates of the type timestamp, names in lower case.
const Target& PostgreSql();

/// A statement that yields a row when the database has the index over alert windows.
std::string FindPostgreSqlWindowIndex();

}  // namespace zv::store::dialect
