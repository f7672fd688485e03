// Owners of ODBC handles.
#pragma once

#include <utility>

#include "store/odbc/odbc_api.h"

namespace zv::store::odbc {

template <SQLSMALLINT Kind>
class Handle {
 public:
    Handle() = default;
    /// Null when the driver or its manager refuses; the reason is in the parent's diagnostics.
    explicit Handle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &handle_))) handle_ = SQLHANDLE{};
    }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, SQLHANDLE{})) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() {
        if (handle_) SQLFreeHandle(Kind, handle_);
    }

    explicit operator bool() const { return handle_ != SQLHANDLE{}; }
    SQLHANDLE Get() const { return handle_; }

 private:
    SQLHANDLE handle_ = SQLHANDLE{};
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace zv::store::odbc
