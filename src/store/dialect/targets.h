// The engines that statements can be translated for.
#pragma once

#include <string>

namespace zv::store::dialect {

class Target;

/// The embedded engine, 3.9 or later.
const Target& Sqlite();
/// PostgreSQL 12 or later, with the tables of schema/postgresql.sql: texts of the type citext,
/// dates of the type timestamp, names in lower case.
const Target& PostgreSql();

/// A statement that yields a row when the database has the index over alert windows.
std::string FindPostgreSqlWindowIndex();

}  // namespace zv::store::dialect
