// Where an import writes to: an embedded file or a server.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/date_time.h"
#include "zvdb/check.h"
#include "zvdb/import/system_tables.h"
#include "zvdb/import/table_source.h"

namespace zv::zvdb {

/// The target cannot be written; the text says why.
class TargetError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// What a target takes beyond the rules of the tables.
struct TargetLimits {
    /// Refuses what is longer or larger than the column is declared; otherwise it is kept whole.
    bool strict = true;
    bool datesAreTexts = false;
    DateTime firstDate{100, 1, 1};
    DateTime lastDate{9999, 12, 31, 23, 59, 59};
};

/// Nothing is to be seen of it before Commit; without Commit the target stays as it was.
class TableTarget {
 public:
    virtual ~TableTarget() = default;
    virtual std::string Kind() const = 0;
    virtual bool IsEmbedded() const { return false; }
    /// As of a source.
    virtual std::string Identity() { return {}; }
    virtual TargetLimits Limits() const = 0;
    /// The tables as the target has them. Throws TargetError when one is missing.
    virtual const std::vector<TableRule>& Tables() = 0;
    /// The source brings rows of the side tables: those of the target are among Tables() from here
    /// on, and Begin makes what is missing of them. Throws TargetError when what is there is not as
    /// it should be. Before everything below.
    virtual void TakeSideTables() = 0;
    /// Tables that hold rows, with their number.
    virtual std::vector<std::pair<std::string, std::int64_t>> RowsPresent() = 0;
    /// Throws when writing cannot succeed; writes nothing.
    virtual void CheckWritable() = 0;

    /// Everything below throws TargetError. `replace` empties the tables, the side tables with
    /// them, whose rows are about rows that go; otherwise they must be empty.
    virtual void Begin(bool replace) = 0;
    /// Both ends are files of one engine, which copies a table faster than rows can be handed over:
    /// the table's rows are read by way of the target then, which sees them as it copies them.
    /// False when this is not so. Before Begin.
    virtual bool Attach(const TableSource&) { return false; }
    virtual std::unique_ptr<RowReader> ReadAttached(const std::string& table,
                                                    const std::vector<std::string>& columns);
    /// Column for column.
    virtual void CopyAttached(const TableRule& table, const std::vector<ColumnRule>& columns,
                              const std::string& from, const std::vector<std::string>& names);
    virtual void BeginTable(const TableRule& table, const std::vector<ColumnRule>& columns) = 0;
    virtual void Add(const std::vector<store::Value>& row) = 0;
    virtual void EndTable() = 0;
    /// After the last table: indexes and counters.
    virtual void Finish() = 0;
    /// Rows as they will be after Commit.
    virtual std::unique_ptr<RowReader> Read(const TableRule& table,
                                            const std::vector<ColumnRule>& columns) = 0;
    /// Registers the modules that the windows ask for, where the source brings none: without them
    /// nobody could do anything.
    virtual void RegisterModules() = 0;
    virtual void Commit() = 0;
    /// What the user should know of what Commit does, a sentence each.
    virtual std::vector<std::string> Warnings() { return {}; }
    /// After Commit: what the check of a database finds in what was imported, a sentence each.
    /// Throws like the check.
    virtual std::vector<std::string> CheckImported() = 0;
};

inline std::unique_ptr<RowReader> TableTarget::ReadAttached(const std::string&,
                                                            const std::vector<std::string>&) {
    throw TargetError("nothing is attached");
}

inline void TableTarget::CopyAttached(const TableRule&, const std::vector<ColumnRule>&,
                                      const std::string&, const std::vector<std::string>&) {
    throw TargetError("nothing is attached");
}

}  // namespace zv::zvdb
