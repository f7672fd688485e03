#include "doubles/scripted_connection.h"

#include "base/errors.h"
#include "base/text.h"

namespace zv::doubles {
namespace {

class ScriptedRecordset final : public store::Recordset {
 public:
    ScriptedRecordset(Script& script, Table& table) : script_(script), table_(table) {
        ++script_.openRecordsets;
    }
    ~ScriptedRecordset() override { --script_.openRecordsets; }

    bool Eof() const override { return !adding_ && row_ >= table_.rows.size(); }
    void MoveNext() override { ++row_; }
    int FieldCount() const override { return static_cast<int>(table_.columns.size()); }
    const std::string& FieldName(int column) const override {
        return table_.columns.at(static_cast<std::size_t>(column));
    }
    int FieldIndex(std::string_view name) const override {
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            if (text::EqualsIgnoreCase(table_.columns[i], name)) return static_cast<int>(i);
        }
        throw RuntimeError(ErrorNumber::DatabaseColumn, "no column");
    }
    const store::Value& Field(int column) const override {
        return Current().at(static_cast<std::size_t>(column));
    }
    void AddNew() override {
        adding_ = true;
        added_.assign(table_.columns.size(), store::Value());
    }
    void SetField(std::string_view name, store::Value value) override {
        Current().at(static_cast<std::size_t>(FieldIndex(name))) = std::move(value);
    }
    void Update() override {
        if (!adding_) return;
        adding_ = false;
        // The row just added is the current one.
        row_ = table_.rows.size();
        table_.rows.push_back(added_);
    }
    void Close() override {}

 private:
    std::vector<store::Value>& Current() const {
        if (adding_) return added_;
        if (Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord, "no row");
        return table_.rows[row_];
    }

    Script& script_;
    Table& table_;
    std::size_t row_ = 0;
    bool adding_ = false;
    mutable std::vector<store::Value> added_;
};

class ScriptedConnection final : public store::Connection {
 public:
    explicit ScriptedConnection(Script& script) : script_(script) { ++script_.opens; }

    int State() const override { return open_ ? kStateOpen : kStateClosed; }
    void Close() override { open_ = false; }
    int Execute(const std::string& sql) override {
        script_.executed.push_back(sql);
        if (sql == "fail") {
            throw RuntimeError(ErrorNumber::DatabaseStatement, "语句错误: fail", "Engine");
        }
        return script_.affected;
    }
    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType,
                                           store::LockType) override {
        script_.opened.push_back(sql);
        const auto found = script_.answers.find(sql);
        if (found == script_.answers.end()) {
            throw RuntimeError(ErrorNumber::DatabaseTable, "no such table: " + sql, "Engine");
        }
        return std::make_unique<ScriptedRecordset>(script_, found->second);
    }
    bool HasTable(std::string_view) override { return false; }

 private:
    Script& script_;
    bool open_ = true;
};

}  // namespace

std::unique_ptr<store::Connection> MakeScriptedConnection(Script& script) {
    return std::make_unique<ScriptedConnection>(script);
}

}  // namespace zv::doubles
