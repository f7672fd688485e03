#include "store/statement_log.h"

namespace zv::store {
namespace {

class ObservedRecordset final : public Recordset {
 public:
    ObservedRecordset(std::unique_ptr<Recordset> inner, StatementObserver& observer)
        : inner_(std::move(inner)), observer_(observer) {}

    bool Eof() const override { return inner_->Eof(); }
    void MoveNext() override { inner_->MoveNext(); }
    int FieldCount() const override { return inner_->FieldCount(); }
    const std::string& FieldName(int column) const override { return inner_->FieldName(column); }
    int FieldIndex(std::string_view name) const override { return inner_->FieldIndex(name); }
    using Recordset::Field;
    const Value& Field(int column) const override { return inner_->Field(column); }
    void AddNew() override { inner_->AddNew(); }
    void SetField(std::string_view name, Value value) override {
        inner_->SetField(name, std::move(value));
    }
    void Update() override {
        observer_.OnRowUpdate();
        inner_->Update();
    }
    void Close() override { inner_->Close(); }

 private:
    std::unique_ptr<Recordset> inner_;
    StatementObserver& observer_;
};

class ObservedConnection final : public Connection {
 public:
    ObservedConnection(std::unique_ptr<Connection> inner, StatementObserver& observer)
        : inner_(std::move(inner)), observer_(observer) {}

    int State() const override { return inner_->State(); }
    void Close() override { inner_->Close(); }
    int Execute(const std::string& sql) override {
        observer_.OnStatement(sql);
        return inner_->Execute(sql);
    }
    std::unique_ptr<Recordset> Open(const std::string& sql, CursorType cursor,
                                    LockType lock) override {
        observer_.OnStatement(sql);
        return std::make_unique<ObservedRecordset>(inner_->Open(sql, cursor, lock), observer_);
    }
    // Looks at the tables, and is no act of a window.
    bool HasTable(std::string_view table) override { return inner_->HasTable(table); }

 private:
    std::unique_ptr<Connection> inner_;
    StatementObserver& observer_;
};

}  // namespace

std::unique_ptr<Connection> ObserveStatements(std::unique_ptr<Connection> connection,
                                              StatementObserver& observer) {
    return std::make_unique<ObservedConnection>(std::move(connection), observer);
}

}  // namespace zv::store
