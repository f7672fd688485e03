#include "zvdb/server_inspected.h"

#include <map>
#include <utility>
#include <variant>

#include "base/text.h"

namespace zv::zvdb {
namespace {

class ServerInspectedRows final : public InspectedRows {
 public:
    explicit ServerInspectedRows(std::unique_ptr<store::Recordset> rows) : rows_(std::move(rows)) {}

    bool Next() override {
        if (begun_) rows_->MoveNext();
        begun_ = true;
        return !rows_->Eof();
    }
    bool IsNull(int column) const override { return rows_->Field(column).IsNull(); }
    std::int64_t Number(int column) const override {
        const store::Value& value = rows_->Field(column);
        if (const auto* whole = std::get_if<std::int64_t>(&value.Data())) return *whole;
        return static_cast<std::int64_t>(value.ToDouble());
    }
    std::string Text(int column) const override { return rows_->Field(column).ToText(); }

 private:
    std::unique_ptr<store::Recordset> rows_;
    bool begun_ = false;
};

class ServerInspected final : public Inspected {
 public:
    explicit ServerInspected(ServerLink& link) : link_(link) {
        // One moment for all the questions, so that people at work cannot make them disagree.
        for (const std::string& statement : link_.Bulk().BeginInspecting()) link_.Run(statement);
        for (const ServerTable& table : ReadServerTables(link_)) {
            auto& names = columns_[text::ToLower(table.name)];
            for (const ServerColumn& column : table.columns) {
                names.insert(text::ToLower(column.name));
            }
        }
    }

    std::unique_ptr<InspectedRows> Select(const std::string& sql) override {
        return std::make_unique<ServerInspectedRows>(link_.Select(sql));
    }
    std::set<std::string> Columns(const std::string& table) override {
        const auto found = columns_.find(text::ToLower(table));
        return found == columns_.end() ? std::set<std::string>() : found->second;
    }
    std::string IndexMaking(const std::string& index) override {
        if (!indexesAreRead_) ReadIndexes();
        const auto found = indexes_.find(text::ToLower(index));
        if (found == indexes_.end()) return {};
        return found->second.making + (found->second.isPlain ? ")" : ") otherwise");
    }
    std::string_view SideTables() const override { return link_.Engine().sideTables; }
    // The columns are of a type that holds nothing else.
    std::string NotADate(const std::string&) const override { return "1=0"; }

    std::vector<std::string> CheckKeys() override {
        std::vector<std::string> problems;
        for (const std::string table : {"tTaskList", "cards", "zvReminder", "zvHistory"}) {
            if (Columns(table).empty()) continue;
            const std::string question =
                link_.Bulk().CounterQuestion(link_.StoredName(table), link_.StoredName("fID"));
            if (question.empty()) continue;
            const auto row = link_.Select(question);
            if (row->Field(0).IsNull()) {
                problems.push_back("table " + table + " gives new rows no number");
            } else if (row->Field(1).ToDouble() > 0) {
                problems.push_back("the next numbers of " + table + " are taken already");
            }
        }
        return problems;
    }

 private:
    struct Index {
        std::string making;  ///< without the closing parenthesis
        bool isPlain = true;
    };

    void ReadIndexes() {
        const auto rows = link_.Select(std::string(link_.Bulk().Indexes()));
        for (; !rows->Eof(); rows->MoveNext()) {
            Index& index = indexes_[text::ToLower(rows->Field(0).ToText())];
            const bool unique = rows->Field(3).ToInt32() != 0;
            index.making += index.making.empty() ? (unique ? "unique " : "") +
                                                       text::ToLower(rows->Field(1).ToText()) + '('
                                                 : ",";
            index.making += text::ToLower(rows->Field(2).ToText());
            index.isPlain = index.isPlain && rows->Field(4).ToInt32() != 0;
        }
        indexesAreRead_ = true;
    }

    ServerLink& link_;
    std::map<std::string, std::set<std::string>> columns_;
    std::map<std::string, Index> indexes_;
    bool indexesAreRead_ = false;
};

}  // namespace

std::unique_ptr<Inspected> InspectServer(ServerLink& link) {
    return std::make_unique<ServerInspected>(link);
}

}  // namespace zv::zvdb
