#include "zvdb/import/importer.h"

#include <algorithm>

#include "base/text.h"
#include "zvdb/import/cell_fit.h"
#include "zvdb/import/interruption.h"
#include "zvdb/import/key_set.h"
#include "zvdb/own_modules.h"
#include "zvdb/side_tables.h"

namespace zv::zvdb {
namespace {

int ProgressTotal(std::int64_t rows) {
    return static_cast<int>(std::clamp<std::int64_t>(rows, 0, 2'000'000'000));
}

/// Judges the rows of one table before they are written.
class RowJudge {
 public:
    RowJudge(const std::string& table, const std::vector<ColumnRule>& columns,
             const TargetLimits& limits, bool asItIs, ImportReport& report)
        : table_(table), columns_(columns), asItIs_(asItIs), report_(report) {
        for (const ColumnRule& column : columns) fits_.emplace_back(column, limits);
        const auto key = std::find_if(columns.begin(), columns.end(),
                                      [](const ColumnRule& column) { return column.isKey; });
        if (key != columns.end()) key_ = static_cast<std::size_t>(key - columns.begin());
    }

    void Judge(std::vector<store::Value>& row, const std::vector<CellRemark>& remarks) {
        ++rows_;
        if (!asItIs_) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                if (const auto misfit = fits_[i].Fit(row[i])) {
                    Note(misfit->weight, i, misfit->what, row);
                }
            }
        }
        for (const CellRemark& remark : remarks) {
            Note(remark.lost ? Weight::Refusal : Weight::Remark,
                 static_cast<std::size_t>(remark.column), remark.text, row);
        }
        if (key_ != kNoKey) JudgeKey(row);
    }

 private:
    static constexpr std::size_t kNoKey = std::size_t(-1);

    void JudgeKey(const std::vector<store::Value>& row) {
        const auto* number = std::get_if<std::int64_t>(&row[key_].Data());
        if (row[key_].IsNull()) {
            Note(Weight::Refusal, key_, "rows without a key", row);
        } else if (number != nullptr && !keys_.Insert(*number)) {
            Note(Weight::Refusal, key_, "keys that more than one row has", row);
        }
    }
    void Note(Weight weight, std::size_t column, const std::string& what,
              const std::vector<store::Value>& row) {
        const bool named = key_ != kNoKey && !row[key_].IsNull();
        report_.Add(weight, table_ + "." + columns_[column].name + ": " + what,
                    named ? columns_[key_].name + " " + row[key_].ToText()
                          : "row " + std::to_string(rows_));
    }

    const std::string& table_;
    const std::vector<ColumnRule>& columns_;
    bool asItIs_;
    ImportReport& report_;
    std::vector<CellFit> fits_;
    std::size_t key_ = kNoKey;
    KeySet keys_;
    std::int64_t rows_ = 0;
};

}  // namespace

Importer::Importer(TableSource& source, TableTarget& target, ImportReport& report,
                   Progress& progress)
    : source_(source), target_(target), report_(report), progress_(progress) {}

void Importer::MatchColumns(Way& way) {
    const std::string& table = way.to->name;
    for (const ColumnRule& column : way.to->columns) {
        const auto name = std::find_if(
            way.from->columns.begin(), way.from->columns.end(),
            [&](const std::string& each) { return text::EqualsIgnoreCase(each, column.name); });
        if (name != way.from->columns.end()) {
            way.columns.push_back(column);
            way.names.push_back(*name);
        } else {
            report_.Add(column.isKey ? Weight::Refusal : Weight::Remark,
                        "column " + table + "." + column.name + " is missing at the source" +
                            (column.isKey ? "" : " and stays at its default"));
        }
    }
    for (const std::string& name : way.from->columns) {
        if (std::find(way.names.begin(), way.names.end(), name) == way.names.end()) {
            report_.Add(Weight::Remark, "column " + table + "." + name +
                                            " is not one of the system and is not copied");
        }
    }
}

bool Importer::BringsSideTables() const {
    return std::ranges::any_of(source_.Tables(), [](const SourceTable& each) {
        const TableRule* table = FindTable(SideTables(), each.name);
        return table != nullptr && table->name != kMetaTable;
    });
}

void Importer::Match() {
    if (BringsSideTables()) target_.TakeSideTables();
    for (const TableRule& table : target_.Tables()) {
        const auto& tables = source_.Tables();
        const auto from = std::find_if(tables.begin(), tables.end(), [&](const SourceTable& each) {
            return text::EqualsIgnoreCase(each.name, table.name);
        });
        if (from == tables.end()) {
            report_.Add(Weight::Remark,
                        "table " + table.name + " is missing at the source and stays empty");
        } else if (!from->elsewhere.empty()) {
            report_.Add(Weight::Refusal,
                        "table " + table.name + " is linked, its rows are in " + from->elsewhere);
        } else {
            Way way{&*from, &table, {}, {}};
            MatchColumns(way);
            way.sums = TableSums(way.columns.size());
            ways_.push_back(std::move(way));
        }
    }
    if (ways_.empty()) throw SourceError("it has none of the tables of the system");
    for (const SourceTable& table : source_.Tables()) {
        if (FindTable(target_.Tables(), table.name) == nullptr &&
            !text::EqualsIgnoreCase(table.name, kMetaTable)) {
            const std::string rows =
                table.rows < 0 ? "" : " (" + std::to_string(table.rows) + " rows)";
            report_.Add(Weight::Remark, "table " + table.name + rows +
                                            " is not one of the system and is not copied");
        }
    }
}

void Importer::Copy(Way& way, bool write) {
    progress_.Begin(way.to->name, ProgressTotal(way.from->rows));
    RowJudge judge(way.to->name, way.columns, target_.Limits(),
                   !source_.EmbeddedFile().empty() && target_.IsEmbedded(), report_);
    const bool handOver = write && !attached_;
    if (handOver) target_.BeginTable(*way.to, way.columns);
    const auto reader = write && attached_ ? target_.ReadAttached(way.from->name, way.names)
                                           : source_.Read(*way.from, way.names);
    std::vector<store::Value> row;
    while (reader->Next(row)) {
        judge.Judge(row, reader->Remarks());
        // Once something is refused, the rest is only read for the report.
        if (handOver && !report_.HasRefusals()) target_.Add(row);
        way.sums.Add(row);
        progress_.Advance();
        StopIfInterrupted();
    }
    if (handOver) {
        target_.EndTable();
    } else if (write && !report_.HasRefusals()) {
        target_.CopyAttached(*way.to, way.columns, way.from->name, way.names);
    }
    counts_.emplace_back(way.to->name, way.sums.Rows());
}

void Importer::Compare(const Way& way) {
    progress_.Begin("checking", ProgressTotal(way.sums.Rows()));
    TableSums written(way.columns.size());
    const auto reader = target_.Read(*way.to, way.columns);
    std::vector<store::Value> row;
    while (reader->Next(row)) {
        written.Add(row);
        progress_.Advance();
        StopIfInterrupted();
    }
    const std::string difference = way.sums.Difference(written, way.columns);
    if (!difference.empty()) {
        throw TargetError("table " + way.to->name +
                          " was not written as it was read: " + difference);
    }
}

void Importer::Run(bool dryRun, bool replace) {
    for (const std::string& warning : source_.Warnings()) report_.Add(Weight::Remark, warning);
    Match();
    for (const std::string& warning : target_.Warnings()) report_.Add(Weight::Remark, warning);
    target_.CheckWritable();
    const bool write = !dryRun && !report_.HasRefusals();
    if (write) {
        attached_ = target_.Attach(source_);
        target_.Begin(replace);
    }
    for (Way& way : ways_) Copy(way, write);
    source_.CheckUnchanged();
    if (!write || report_.HasRefusals()) return;
    progress_.Begin("indexes", 0);
    target_.Finish();
    for (const Way& way : ways_) Compare(way);
    progress_.Finish();
    StopIfInterrupted();
    const bool bringsModules = std::any_of(counts_.begin(), counts_.end(), [](const auto& table) {
        return table.first == kModuleTable && table.second > 0;
    });
    if (!bringsModules) target_.RegisterModules();
    target_.Commit();
}

}  // namespace zv::zvdb
