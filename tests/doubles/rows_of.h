// What a query answers, as a text.
#pragma once

#include <string>

#include "store/connection.h"

namespace zv::doubles {

/// One line a row, columns joined by "|".
inline std::string RowsOf(store::Connection& connection, const std::string& sql) {
    std::string text;
    const auto rows =
        connection.Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        if (!text.empty()) text += '\n';
        for (int column = 0; column < rows->FieldCount(); column++) {
            if (column > 0) text += '|';
            text += rows->Field(column).ToText();
        }
    }
    rows->Close();
    return text;
}

}  // namespace zv::doubles
