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
    // The columns are of a type that holds nothing else.
    std::string NotADate(const std::string&) const override { return "1=0"; }

    std::vector<std::string> CheckKeys() override {
        std::vector<std::string> problems;
        for (const std::string table : {"tTaskList", "cards"}) {
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
    ServerLink& link_;
    std::map<std::string, std::set<std::string>> columns_;
};

}  // namespace

std::unique_ptr<Inspected> InspectServer(ServerLink& link) {
    return std::make_unique<ServerInspected>(link);
}

}  // namespace zv::zvdb
