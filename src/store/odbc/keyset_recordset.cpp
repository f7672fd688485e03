#include "store/odbc/keyset_recordset.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "store/dialect/lexer.h"

namespace zv::store::odbc {

KeysetRecordset::KeysetRecordset(std::shared_ptr<Session> session, std::string sql,
                                 const std::string& table)
    : session_(std::move(session)), sql_(std::move(sql)) {
    // Preparing the statement finds its errors now and not at the first look.
    columns_ = Columns(session_->Describe(sql_));
    const Table& facts = session_->TableOf(table);
    table_ = session_->Quoted(facts.name);
    std::string list;
    for (const Column& column : columns_.All()) {
        const Column* target = facts.Find(column.name);
        if (!target) break;
        targets_.push_back(*target);
        list += (list.empty() ? "" : ",") + session_->Quoted(target->name);
    }
    if (static_cast<int>(targets_.size()) == columns_.Count()) {
        rowSql_ = "select " + list + " from " + table_;
    } else {
        // Some columns are no columns of the table: those that are can still be written.
        targets_.clear();
        for (const Column& column : columns_.All()) {
            const Column* target = facts.Find(column.name);
            targets_.push_back(target ? *target : column);
        }
    }
    for (const std::string& name : facts.key) {
        for (int column = 0; column < columns_.Count(); column++) {
            if (text::EqualsIgnoreCase(columns_.At(column).name, name)) key_.push_back(column);
        }
    }
    if (key_.size() != facts.key.size()) key_.clear();
    session_->Register(this);
}

KeysetRecordset::~KeysetRecordset() {
    if (open_) session_->Unregister(this);
}

void KeysetRecordset::CheckOpen() const {
    if (!open_) throw RuntimeError(ErrorNumber::ObjectClosed);
}

void KeysetRecordset::TakeRows() const {
    if (rowsTaken_) return;
    rows_ = std::move(session_->Run(sql_, {}, true).rows);
    rowsTaken_ = true;
    Advance();
}

void KeysetRecordset::Advance() const {
    rowRead_ = false;
    hasRow_ = rows_.Advance();
    if (!hasRow_) return;
    stored_.resize(static_cast<std::size_t>(columns_.Count()));
    for (int column = 0; column < columns_.Count(); column++) {
        rows_.Read(column, stored_[static_cast<std::size_t>(column)]);
    }
    keyValues_.clear();
    for (const int column : key_) keyValues_.push_back(stored_[static_cast<std::size_t>(column)]);
}

bool KeysetRecordset::Eof() const {
    CheckOpen();
    if (adding_) return false;
    TakeRows();
    return !hasRow_;
}

void KeysetRecordset::CheckRow() const {
    if (Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void KeysetRecordset::MoveNext() {
    CheckRow();
    if (adding_ || !changes_.empty()) Update();
    isFirst_ = false;
    Advance();
}

int KeysetRecordset::FieldCount() const {
    CheckOpen();
    return columns_.Count();
}

const std::string& KeysetRecordset::FieldName(int column) const {
    CheckOpen();
    columns_.Check(column);
    return columns_.At(column).name;
}

int KeysetRecordset::FieldIndex(std::string_view name) const {
    CheckOpen();
    return columns_.Index(name);
}

const Value& KeysetRecordset::Field(int column) const {
    CheckRow();
    columns_.Check(column);
    if (const auto change = changes_.find(column); change != changes_.end()) return change->second;
    if (adding_) {
        static const Value null;
        return null;
    }
    ReadRow();
    return fields_[static_cast<std::size_t>(column)];
}

void KeysetRecordset::ReadRow() const {
    if (rowRead_) return;
    // The first row was read a moment ago; rows that cannot be read by their key stay as they came.
    const bool reads = !isFirst_ && !rowSql_.empty() && !keyValues_.empty();
    if (reads && !ReadByKey()) {
        throw RuntimeError(ErrorNumber::DatabaseConflict, "the row has been deleted", kErrorSource);
    }
    TakeFields();
    rowRead_ = true;
}

bool KeysetRecordset::ReadByKey() const {
    std::string condition;
    std::vector<Parameter> parameters;
    AddKey(condition, parameters);
    Result result = session_->Run(rowSql_ + " where " + condition, std::move(parameters), true);
    if (!result.rows.Advance()) return false;
    stored_.resize(static_cast<std::size_t>(columns_.Count()));
    for (int column = 0; column < columns_.Count(); column++) {
        result.rows.Read(column, stored_[static_cast<std::size_t>(column)]);
    }
    return true;
}

void KeysetRecordset::TakeFields() const {
    fields_ = stored_;
    if (!session_->Facts().reading.readsTexts) return;
    for (int column = 0; column < columns_.Count(); column++) {
        const auto at = static_cast<std::size_t>(column);
        if (const std::string* text = stored_[at].TextIf()) {
            TakeStoredText(fields_[at], *text, columns_.At(column));
        }
    }
}

void KeysetRecordset::AddNew() {
    CheckOpen();
    if (adding_ || !changes_.empty()) Update();
    adding_ = true;
}

void KeysetRecordset::SetField(std::string_view name, Value value) {
    CheckRow();
    const int column = columns_.Index(name);
    if (!adding_) {
        if (key_.empty()) {
            throw RuntimeError(ErrorNumber::DatabaseFailure,
                               "the rows have no key by which they could be written", kErrorSource);
        }
        // The values that the change is made against are those of now, not of the time of writing.
        ReadRow();
    }
    if (const std::string* text = value.TextIf();
        text && columns_.At(column).type == ColumnType::Date) {
        const std::string stored = dialect::StoredDate(*text);
        if (const auto date = DateTime::Parse(stored.empty() ? *text : stored)) value = *date;
    }
    changes_.insert_or_assign(column, std::move(value));
}

void KeysetRecordset::Update() {
    CheckRow();
    session_->CheckOpen();
    if (adding_) {
        Insert();
    } else if (!changes_.empty()) {
        Write();
    }
    changes_.clear();
    adding_ = false;
    rowRead_ = false;
    isFirst_ = false;
}

Parameter KeysetRecordset::ParameterFor(int column, Value value) const {
    const Column& target = targets_[static_cast<std::size_t>(column)];
    const bool asTexts = session_->Facts().reading.readsTexts;
    return {std::move(value), target.type, target.isLong, asTexts};
}

void KeysetRecordset::AddKey(std::string& condition, std::vector<Parameter>& parameters) const {
    for (std::size_t i = 0; i < key_.size(); i++) {
        condition += (condition.empty() ? "" : " and ") +
                     session_->Quoted(targets_[static_cast<std::size_t>(key_[i])].name) + "=?";
        parameters.push_back(ParameterFor(key_[i], keyValues_[i]));
    }
}

void KeysetRecordset::AddUnchanged(int column, std::string& condition,
                                   std::vector<Parameter>& parameters) const {
    const Value& value = stored_[static_cast<std::size_t>(column)];
    const std::string name = session_->Quoted(targets_[static_cast<std::size_t>(column)].name);
    condition += " and ";
    if (value.IsNull()) {
        condition += name + " is null";
        return;
    }
    if (const auto* date = std::get_if<DateTime>(&value.Data())) {
        // Fractions of a second are there and cannot be seen.
        condition += name + ">=? and " + name + "<?";
        parameters.push_back(ParameterFor(column, value));
        parameters.push_back(ParameterFor(column, date->AddSeconds(1)));
        return;
    }
    if (!value.TextIf()) {
        condition += name + "=?";
    } else {
        // Only an exact comparison notices a change of letter case.
        switch (session_->Facts().server) {
            case Server::PostgreSql:
                condition += "cast(" + name + " as text)=?";
                break;
            case Server::Sqlite:
                condition += name + " collate binary=?";
                break;
            case Server::SqlServer:
                condition += "cast(" + name + " as nvarchar(max)) collate Latin1_General_BIN2=?";
                break;
            case Server::Other:
                condition += name + "=?";
                break;
        }
    }
    parameters.push_back(ParameterFor(column, value));
}

void KeysetRecordset::Insert() {
    std::string names, places;
    std::vector<Parameter> parameters;
    for (const auto& [column, value] : changes_) {
        names += (names.empty() ? "" : ",") +
                 session_->Quoted(targets_[static_cast<std::size_t>(column)].name);
        places += places.empty() ? "?" : ",?";
        parameters.push_back(ParameterFor(column, value));
    }
    std::string statement = "insert into " + table_;
    statement += changes_.empty() ? " default values" : "(" + names + ") values(" + places + ")";

    Row key;
    for (const int column : key_) {
        const auto change = changes_.find(column);
        if (change == changes_.end() || change->second.IsNull()) break;
        key.push_back(change->second);
    }
    const bool counted = key.size() != key_.size() && key_.size() == 1;
    const Server server = session_->Facts().server;
    if (counted && server == Server::PostgreSql) {
        statement +=
            " returning " + session_->Quoted(targets_[static_cast<std::size_t>(key_.front())].name);
    } else if (counted && server == Server::SqlServer) {
        statement += "; select cast(scope_identity() as bigint)";
    }
    Result result = session_->Run(statement, std::move(parameters));
    if (counted && server == Server::Sqlite) result = session_->Run("select last_insert_rowid()");
    if (counted) {
        key.clear();
        if (result.rows.Advance()) result.rows.Read(0, key.emplace_back());
    }
    // The new row becomes the current one, behind those of the result.
    keyValues_ = key.size() == key_.size() ? std::move(key) : Row();
    if (keyValues_.empty()) {
        stored_.assign(static_cast<std::size_t>(columns_.Count()), Value());
        for (const auto& [column, value] : changes_) {
            stored_[static_cast<std::size_t>(column)] = value;
        }
    }
    rows_.Clear();
    rowsTaken_ = true;
    hasRow_ = true;
}

void KeysetRecordset::Write() {
    std::string assignments, condition, unchanged;
    std::vector<Parameter> parameters;
    for (const auto& [column, value] : changes_) {
        assignments += (assignments.empty() ? "" : ",") +
                       session_->Quoted(targets_[static_cast<std::size_t>(column)].name) + "=?";
        parameters.push_back(ParameterFor(column, value));
    }
    AddKey(condition, parameters);
    for (const auto& [column, value] : changes_) AddUnchanged(column, condition, parameters);
    const Result result = session_->Run(
        "update " + table_ + " set " + assignments + " where " + condition, std::move(parameters));
    if (result.changed == 0) ThrowLost();
    for (const auto& [column, value] : changes_) {
        stored_[static_cast<std::size_t>(column)] = value;
        const auto key = std::find(key_.begin(), key_.end(), column);
        if (key != key_.end()) keyValues_[static_cast<std::size_t>(key - key_.begin())] = value;
    }
}

void KeysetRecordset::ThrowLost() {
    const bool there = rowSql_.empty() || ReadByKey();
    throw RuntimeError(ErrorNumber::DatabaseConflict,
                       there ? "the row has been changed by another user since it was read"
                             : "the row has been deleted",
                       kErrorSource);
}

void KeysetRecordset::Abandon() noexcept {
    open_ = false;
    changes_.clear();
    rows_.Clear();
}

void KeysetRecordset::Close() {
    CheckOpen();
    session_->Unregister(this);
    Abandon();
}

}  // namespace zv::store::odbc
