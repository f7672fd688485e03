// Carries the tables of the system from a source into a target.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "zvdb/import/import_report.h"
#include "zvdb/import/table_sums.h"
#include "zvdb/import/table_target.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

class Importer {
 public:
    Importer(TableSource& source, TableTarget& target, ImportReport& report, Progress& progress);

    /// Reads and judges everything, and writes it unless `dryRun`. Afterwards either all is in the
    /// target and compared with the source, or the report has refusals and the target is as it was.
    /// Throws SourceError, TargetError, Interrupted; the target is as it was then.
    void Run(bool dryRun, bool replace);
    /// Rows of each table that was copied, or would be.
    const std::vector<std::pair<std::string, std::int64_t>>& Counts() const { return counts_; }

 private:
    /// A table as far as source and target share it.
    struct Way {
        const SourceTable* from;
        const TableRule* to;
        std::vector<ColumnRule> columns;  ///< of the target
        std::vector<std::string> names;   ///< the same columns at the source
        TableSums sums{0};
    };
    /// Rows of side tables; one that only says which of them are there has nothing to bring.
    bool BringsSideTables() const;
    void Match();
    void MatchColumns(Way& way);
    void Copy(Way& way, bool write);
    void Compare(const Way& way);

    TableSource& source_;
    TableTarget& target_;
    ImportReport& report_;
    Progress& progress_;
    bool attached_ = false;  ///< the engine itself copies the rows
    std::vector<Way> ways_;
    std::vector<std::pair<std::string, std::int64_t>> counts_;
};

}  // namespace zv::zvdb
