// Reads the rows of a statement that has run.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "store/odbc/columns.h"
#include "store/odbc/odbc_api.h"
#include "store/odbc/row_store.h"

namespace zv::store::odbc {

/// What of reading differs between drivers.
struct ReadingFacts {
    /// SQLGetData takes columns that are bound, and columns in front of bound ones.
    bool mixesBound = false;
    /// Values are texts, whatever the columns' types are called.
    bool readsTexts = false;
};

class RowReader {
 public:
    /// Binds what can be bound. False from any operation: the statement's diagnostics say why.
    RowReader(SQLHSTMT statement, const std::vector<Column>& columns, const ReadingFacts& facts);

    bool Bind();
    bool ReadAll(RowStore& rows);

 private:
    struct Buffer {
        bool bound = false;
        bool asText = false;
        std::u16string text;
        SQLBIGINT number = 0;
        double real = 0;
        SQL_TIMESTAMP_STRUCT date{};
        SQLLEN length = 0;
    };
    bool BindColumn(SQLUSMALLINT number, const Column& column, Buffer& buffer);
    bool ReadField(SQLUSMALLINT number, const Column& column, Buffer& buffer, RowStore& rows);
    /// The whole text of a column, however long, in pieces.
    bool ReadText(SQLUSMALLINT number, std::u16string& text, bool& isNull);
    void AddText(const std::u16string& text, std::size_t units, const Column& column,
                 RowStore& rows);

    SQLHSTMT statement_;
    const std::vector<Column>& columns_;
    ReadingFacts facts_;
    std::deque<Buffer> buffers_;
    std::u16string longText_;
    Value converted_;
};

}  // namespace zv::store::odbc
