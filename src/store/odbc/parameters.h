// Values that go to the server beside a statement's text.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "store/odbc/columns.h"
#include "store/odbc/odbc_api.h"
#include "store/value.h"

namespace zv::store::odbc {

struct Parameter {
    Value value;
    /// The column that the value is for.
    ColumnType type = ColumnType::Text;
    bool isLong = false;
    /// Dates go as texts in stored form.
    bool datesAsText = false;
};

/// The buffers of a statement's parameters; must live until it has run.
class ParameterBuffers {
 public:
    /// Binds all of them, the first as number 1. False when the driver refuses.
    bool Bind(SQLHSTMT statement, const std::vector<Parameter>& parameters);

 private:
    struct Buffer {
        std::u16string text;
        SQLBIGINT number = 0;
        double real = 0;
        SQL_TIMESTAMP_STRUCT date{};
        SQLLEN length = 0;
    };
    bool BindOne(SQLHSTMT statement, SQLUSMALLINT number, const Parameter& parameter);
    bool BindText(SQLHSTMT statement, SQLUSMALLINT number, const std::string& text, bool isLong);

    std::deque<Buffer> buffers_;
};

}  // namespace zv::store::odbc
