#include "changes/taking_back.h"

#include <optional>
#include <utility>

#include "base/errors.h"

namespace zv::changes {
namespace {

std::vector<std::size_t> Differences(const Fields& wanted, const Fields& stored) {
    std::vector<std::size_t> differences;
    for (std::size_t i = 0; i < wanted.size(); i++) {
        if (wanted[i] && wanted[i]->ToText() != stored[i]->ToText()) differences.push_back(i);
    }
    return differences;
}

bool IsAs(const std::optional<Fields>& wanted, const std::optional<Fields>& stored) {
    if (!wanted || !stored) return !wanted && !stored;
    return Differences(*wanted, *stored).empty();
}

std::optional<Obstacle> ObstacleTo(const RowChange& change, const std::optional<Fields>& stored) {
    using Kind = Obstacle::Kind;
    if (IsAs(change.before, stored)) return std::nullopt;
    if (!change.after) {
        if (!stored) return std::nullopt;
        return Obstacle{Kind::Taken, change};
    }
    if (!stored) return Obstacle{Kind::Gone, change};
    std::vector<std::size_t> fields = Differences(*change.after, *stored);
    if (fields.empty()) return std::nullopt;
    return Obstacle{Kind::Changed, change, std::move(fields)};
}

std::unique_ptr<store::Recordset> OpenRow(store::Database& database, const Table& table,
                                          std::int32_t row) {
    return database.Open(std::string(table.select) + std::to_string(row), store::CursorType::Keyset,
                         store::LockType::Optimistic);
}

void Write(store::Recordset& row, const Table& table, const Fields& fields) {
    for (std::size_t i = 0; i < fields.size(); i++) {
        if (fields[i]) row.SetField(table.columns[i].name, *fields[i]);
    }
}

/// Answers the number of the new row; 0 when the database does not give it.
std::int32_t Add(store::Database& database, const RowChange& change, bool underItsNumber) {
    const Table& table = *change.table;
    const auto row = OpenRow(database, table, change.row);
    row->AddNew();
    if (underItsNumber && !table.numberedBy.empty()) row->SetField(table.numberedBy, change.row);
    Write(*row, table, *change.before);
    row->Update();
    std::int32_t number = change.row;
    if (!underItsNumber) number = store::NumberOfNewRow(*row, table.numberedBy);
    row->Close();
    return number;
}

std::int32_t PutBack(store::Database& database, const RowChange& change) {
    if (change.table->numberedBy.empty()) return Add(database, change, true);
    try {
        return Add(database, change, true);
    } catch (const RuntimeError&) {
        // An engine that gives out the numbers may take none. Where it took it and failed after
        // that, the row is there; where the connection was lost, so is the next attempt.
        if (Load(database, *change.table, change.row)) return change.row;
    }
    return Add(database, change, false);
}

void Restore(store::Recordset& row, const RowChange& change) {
    Fields fields(change.before->size());
    for (const std::size_t i : ChangedFields(change)) fields[i] = (*change.before)[i];
    Write(row, *change.table, fields);
    row.Update();
}

void TakeBack(store::Database& database, const RowChange& change, TakenBack& done) {
    const auto row = OpenRow(database, *change.table, change.row);
    const auto stored = Read(*row, *change.table);
    // Since the look somebody else may have come.
    const bool leaves = ObstacleTo(change, stored) || IsAs(change.before, stored);
    if (!leaves && change.before && change.after) Restore(*row, change);
    row->Close();
    if (leaves) return;
    RowChange back = Reversed(change);
    if (!change.before) {
        database.Execute(std::string(change.table->erase) + std::to_string(change.row));
    } else if (!change.after) {
        back.row = PutBack(database, change);
        if (back.row != change.row) done.renumbered.push_back({change, back.row});
    }
    done.rows.push_back(std::move(back));
}

}  // namespace

std::vector<Obstacle> ObstaclesTo(store::Database& database,
                                  const std::vector<RowChange>& changes) {
    std::vector<Obstacle> obstacles;
    for (const RowChange& change : changes) {
        auto obstacle = ObstacleTo(change, Load(database, *change.table, change.row));
        if (obstacle) obstacles.push_back(std::move(*obstacle));
    }
    return obstacles;
}

void TakeBack(store::Database& database, const std::vector<RowChange>& changes, TakenBack& done) {
    database.EnsureConnection();
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        TakeBack(database, *change, done);
    }
}

}  // namespace zv::changes
