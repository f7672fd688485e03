// The database that all workers share, and what it holds at the beginning.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "store/connection.h"

namespace zv::torture {

/// Where the database is: the path of an embedded file, or a server's ODBC connection string.
struct Target {
    std::string address;
    bool IsServer() const;
    std::unique_ptr<store::Connection> Open() const;
};

inline constexpr int kSharedItems = 5;
inline constexpr const char* kPlan = "7";
/// Dates of the plan.
inline constexpr int kPlanDays = 10;

/// The title of an item that every worker changes.
std::string SharedTitle(int number);

/// Writes the plan and the shared items into an empty database.
void Prepare(const Target& target);

}  // namespace zv::torture
