#include "store/odbc/row_statements.h"

#include <utility>

#include "base/text.h"
#include "store/rows/writing_statements.h"

namespace zv::store::odbc {
RowStatements::RowStatements(const Session& session, const Table& table,
                             const std::vector<Column>& columns)
    : session_(session), table_(session.Quoted(table.name)) {
    bool allOfTable = true;
    std::string list;
    for (const Column& column : columns) {
        const Column* target = table.Find(column.name);
        // Beside a column that is none of the table those that are can still be written.
        allOfTable = allOfTable && target;
        targets_.push_back(target ? *target : column);
        list += (list.empty() ? "" : ",") + session.Quoted(targets_.back().name);
    }
    if (allOfTable) select_ = "select " + list + " from " + table_;
    for (const std::string& name : table.key) {
        for (std::size_t field = 0; field < columns.size(); field++) {
            if (text::EqualsIgnoreCase(columns[field].name, name)) {
                key_.push_back(static_cast<int>(field));
            }
        }
    }
    if (key_.size() != table.key.size()) key_.clear();
}

std::string RowStatements::Name(int field) const {
    return session_.Quoted(targets_[static_cast<std::size_t>(field)].name);
}

std::vector<std::string> RowStatements::Names(const rows::Changes& changes) const {
    std::vector<std::string> names;
    for (const auto& [field, value] : changes) names.push_back(Name(field));
    return names;
}

Parameter RowStatements::ParameterFor(int field, Value value) const {
    const Column& target = targets_[static_cast<std::size_t>(field)];
    const bool asTexts = session_.Facts().reading.readsTexts;
    return {std::move(value), target.type, target.isLong, asTexts};
}

RowStatement RowStatements::Select(const rows::Row& key) const {
    RowStatement statement{select_, {}};
    AddKey(key, statement);
    return statement;
}

rows::Row RowStatements::KeyIn(const rows::Changes& changes) const {
    rows::Row key;
    for (const int field : key_) {
        const auto change = changes.find(field);
        if (change == changes.end() || change->second.IsNull()) return {};
        key.push_back(change->second);
    }
    return key;
}

bool RowStatements::IsCounted(const rows::Changes& changes) const {
    return key_.size() == 1 && KeyIn(changes).empty();
}

RowStatement RowStatements::Insert(const rows::Changes& changes) const {
    RowStatement statement{rows::InsertStatement(table_, Names(changes)), {}};
    for (const auto& [field, value] : changes) {
        statement.parameters.push_back(ParameterFor(field, value));
    }
    if (IsCounted(changes)) {
        statement.sql += session_.Facts().engine->facts->YieldingKey(Name(key_.front()));
    }
    return statement;
}

RowStatement RowStatements::Update(const rows::Changes& changes, const rows::Row& key,
                                   const rows::Row& stored) const {
    RowStatement statement{rows::UpdateStatement(table_, Names(changes)), {}};
    for (const auto& [field, value] : changes) {
        statement.parameters.push_back(ParameterFor(field, value));
    }
    AddKey(key, statement);
    for (const auto& [field, value] : changes) {
        AddUnchanged(field, stored[static_cast<std::size_t>(field)], statement);
    }
    return statement;
}

void RowStatements::AddKey(const rows::Row& key, RowStatement& statement) const {
    for (std::size_t i = 0; i < key_.size(); i++) {
        statement.sql += (i == 0 ? " where " : " and ") + Name(key_[i]) + "=?";
        statement.parameters.push_back(ParameterFor(key_[i], key[i]));
    }
}

void RowStatements::AddUnchanged(int field, const Value& value, RowStatement& statement) const {
    const std::string name = Name(field);
    statement.sql += " and ";
    if (value.IsNull()) {
        statement.sql += name + " is null";
        return;
    }
    if (const auto* date = std::get_if<DateTime>(&value.Data())) {
        // Fractions of a second are there and cannot be seen.
        statement.sql += name + ">=? and " + name + "<?";
        statement.parameters.push_back(ParameterFor(field, value));
        statement.parameters.push_back(ParameterFor(field, date->AddSeconds(1)));
        return;
    }
    statement.sql +=
        value.TextIf() ? session_.Facts().engine->facts->EqualsExactly(name) : name + "=?";
    statement.parameters.push_back(ParameterFor(field, value));
}

}  // namespace zv::store::odbc
