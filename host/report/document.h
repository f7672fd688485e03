// What a report shows, before anything is laid out on pages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/date_time.h"

namespace zv::report {

/// A value of the item report under its caption.
struct Field {
    std::string key;  ///< empty when the client named none
    std::string caption;
    std::string text;
};

struct Column {
    std::string heading;
};

struct Table {
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;  ///< a cell for each column
    /// For each row how pressing it is, in words that stand beside the cell of `signColumn`. They
    /// are no part of the data: a file of the rows leaves them out. May hold less than the rows.
    std::vector<std::string> signs;
    std::size_t signColumn = 0;

    /// The cell as it stands on paper; empty for one that the row does not have.
    std::string Printed(std::size_t row, std::size_t column) const;
};

enum class DocumentKind { Item, Table };

struct Document {
    DocumentKind kind = DocumentKind::Table;
    std::string company;  ///< heading line for printed lists
    std::string title;
    std::string subtitle;
    std::string asked;  ///< what the rows were asked for: period, conditions; may be empty
    std::string user;
    DateTime printed;
    std::int16_t language = 0;  ///< one that has texts
    std::vector<Field> fields;  ///< of an item report
    Table table;                ///< of a list or a grid
};

/// Whether `accepts` answers true for every character of the document's texts as they print.
bool AllCharacters(const Document& document, const std::function<bool(char32_t)>& accepts);

}  // namespace zv::report
