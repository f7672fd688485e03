// Where an import reads from: an Access file, an embedded file, a server.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "store/value.h"

namespace zv::zvdb {

/// The source cannot be read, or not be trusted: the text says why.
class SourceError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

struct SourceTable {
    std::string name;
    std::vector<std::string> columns;
    std::int64_t rows = -1;  ///< -1 when the source does not know before it is read
    /// Not empty: the table is named in the source and its rows are elsewhere.
    std::string elsewhere;
};

/// Something about one cell that its value alone does not show.
struct CellRemark {
    int column = 0;     ///< position among the columns that are read
    bool lost = false;  ///< the value could not be read at all
    std::string text;
};

class RowReader {
 public:
    virtual ~RowReader() = default;
    /// The next row into `row`, which is made as long as the columns; false behind the last one.
    /// Throws SourceError.
    virtual bool Next(std::vector<store::Value>& row) = 0;
    /// Of the present row; usually none.
    virtual const std::vector<CellRemark>& Remarks() const { return none_; }

 private:
    std::vector<CellRemark> none_;
};

class TableSource {
 public:
    virtual ~TableSource() = default;
    /// What it is, for the user: "Access file (Jet 4)".
    virtual std::string Kind() const = 0;
    /// Distinguishes databases where no file name can; empty for files.
    virtual std::string Identity() { return {}; }
    /// The tables of users, in the source's order. Throws SourceError.
    virtual const std::vector<SourceTable>& Tables() = 0;
    /// Throws SourceError.
    virtual std::unique_ptr<RowReader> Read(const SourceTable& table,
                                            const std::vector<std::string>& columns) = 0;
    /// The path, when it is a file of the embedded engine: its values fit another such file as they
    /// stand.
    virtual std::string EmbeddedFile() const { return {}; }
    /// What the user should know of the source as a whole, a sentence each.
    virtual std::vector<std::string> Warnings() { return {}; }
    /// Throws SourceError when somebody changed the source since it was opened.
    virtual void CheckUnchanged() {}
};

}  // namespace zv::zvdb
