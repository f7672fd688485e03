#include "changes/history.h"

#include <limits>

#include "changes/row_text.h"

namespace zv::changes {
namespace {

constexpr const char* kStart = "select * from zvHistory where ";

Record ReadRecord(const store::Recordset& row) {
    Record record;
    // A row that somebody else wrote may lack anything.
    if (!row.Field("fWhen").IsNull()) record.when = row.Field("fWhen").ToDate();
    record.who = row.Field("fWho").ToText();
    record.act = row.Field("fAct").ToInt32();
    record.table = row.Field("fTable").ToText();
    record.row = row.Field("fRow").ToInt32();
    record.field = row.Field("fField").ToText();
    record.before = row.Field("fOld").ToText();
    record.after = row.Field("fNew").ToText();
    return record;
}

std::vector<Record> Read(store::Database& database, const std::string& sql, std::size_t most) {
    database.EnsureConnection();
    const auto rows = database.Open(sql);
    std::vector<Record> records;
    for (; !rows->Eof() && records.size() < most; rows->MoveNext()) {
        records.push_back(ReadRecord(*rows));
    }
    rows->Close();
    return records;
}

/// Adds records of one act.
class Writer {
 public:
    Writer(store::Database& database, DateTime when, std::string_view who, Act act)
        : rows_(database.Open(std::string(kStart) + "fID=0", store::CursorType::Keyset,
                              store::LockType::Optimistic)),
          when_(when),
          who_(who),
          act_(act) {}

    void Write(const RowChange& change) {
        const auto text = [&](const std::optional<Fields>& fields) {
            return fields ? store::Value(RowText(*change.table, *fields)) : store::Value();
        };
        if (!change.before || !change.after) {
            return Add(change, {}, text(change.before), text(change.after));
        }
        for (const std::size_t i : ChangedFields(change)) {
            Add(change, change.table->columns[i].name, (*change.before)[i]->ToText(),
                (*change.after)[i]->ToText());
        }
    }
    void Close() { rows_->Close(); }

 private:
    void Add(const RowChange& change, std::string_view field, const store::Value& before,
             const store::Value& after) {
        rows_->AddNew();
        rows_->SetField("fWhen", when_);
        rows_->SetField("fWho", who_);
        rows_->SetField("fAct", static_cast<std::int16_t>(act_));
        rows_->SetField("fTable", change.table->name);
        rows_->SetField("fRow", change.row);
        if (!field.empty()) rows_->SetField("fField", field);
        // Not every engine takes an empty text.
        if (!before.ToText().empty()) rows_->SetField("fOld", before);
        if (!after.ToText().empty()) rows_->SetField("fNew", after);
        rows_->Update();
    }

    std::unique_ptr<store::Recordset> rows_;
    DateTime when_;
    std::string_view who_;
    Act act_;
};

}  // namespace

bool History::IsKept() {
    database_.EnsureConnection();
    return database_.HasTable(kTable);
}

void History::Write(DateTime when, std::string_view who, Act act,
                    const std::vector<RowChange>& changes) {
    database_.EnsureConnection();
    Writer writer(database_, when, who, act);
    for (const RowChange& change : changes) writer.Write(change);
    writer.Close();
}

std::vector<Record> History::Of(const Table& table, std::int32_t row) {
    return Read(database_,
                std::string(kStart) + "fTable='" + std::string(table.name) +
                    "' And fRow=" + std::to_string(row) + " order by fID",
                std::numeric_limits<std::size_t>::max());
}

std::vector<Record> History::Deletions(std::size_t most) {
    return Read(database_,
                std::string(kStart) + "fField is Null And fNew is Null order by fID desc", most);
}

void History::ForgetBefore(DateTime day) {
    database_.EnsureConnection();
    database_.Execute("Delete from zvHistory where fWhen <" + database_.DateLiteral(day));
}

}  // namespace zv::changes
