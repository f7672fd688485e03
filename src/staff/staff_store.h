// The people in the database. Database errors reach the caller.
#pragma once

#include <string>
#include <vector>

#include "store/database.h"

namespace zv::staff {

/// A host suite keeps its people in the personnel table or in the plain list of employees.
enum class Source { Personnel = 0, Employees = 1 };

struct Person {
    std::string code;
    std::string name;
};

/// All people of a source: the personnel by name, the employees by code. An error of the kind
/// ErrorNumber::DatabaseTable where its table is missing.
std::vector<Person> List(store::Database& database, Source source);

/// The personnel table where the database has it, otherwise the employees.
Source PresentSource(store::Database& database);

}  // namespace zv::staff
