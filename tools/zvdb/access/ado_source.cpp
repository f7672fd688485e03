// Access files through the system's own data access, as the control itself reads them.
#include <filesystem>
#include <utility>

#include "base/errors.h"
#include "store/ado/ado_connection.h"
#include "store/ado/ado_recordset.h"
#include "store/ado/calls.h"
#include "zvdb/access/access_source.h"
#include "zvdb/access/file_state.h"

namespace zv::zvdb {
namespace {

using store::Connection;
using store::CursorType;
using store::LockType;
using store::Recordset;
using win32::ComPtr;
using win32::Variant;

constexpr std::int32_t kSchemaTables = 20;
// The newest first; which of them is there depends on the system and its width.
constexpr const char* kProviders[] = {"Microsoft.ACE.OLEDB.16.0", "Microsoft.ACE.OLEDB.12.0",
                                      "Microsoft.Jet.OLEDB.4.0"};

class Apartment {
 public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

std::string Bracketed(const std::string& name) {
    return "[" + name + "]";
}

ComPtr<IDispatch> NewConnection() {
    ComPtr<IDispatch> connection;
    if (FAILED(automation::Create(L"ADODB.Connection", connection))) {
        throw SourceError("this system has no data access (ADODB.Connection)");
    }
    return connection;
}

/// A connection that only reads, by the first provider that takes the file.
ComPtr<IDispatch> Open(const std::string& path, std::string& provider) {
    std::string reason;
    for (const char* name : kProviders) {
        ComPtr<IDispatch> connection = NewConnection();
        store::ado::Member open(L"Open");
        try {
            const std::string text =
                "Provider=" + std::string(name) + ";Data Source=\"" + path + "\";Mode=Read";
            store::ado::Call(*connection, open, {Variant(std::string_view(text)).Get()});
            provider = name;
            return connection;
        } catch (const RuntimeError& error) {
            reason += (reason.empty() ? "" : "; ") + std::string(name) + ": " + error.Text();
        }
    }
    throw SourceError("no provider for Access files opens it (" + reason + ")");
}

class AdoRows : public RowReader {
 public:
    explicit AdoRows(std::unique_ptr<Recordset> rows) : rows_(std::move(rows)) {}

    bool Next(std::vector<store::Value>& row) override {
        remarks_.clear();
        try {
            if (!isFirst_) rows_->MoveNext();
            isFirst_ = false;
            if (rows_->Eof()) return false;
            row.resize(static_cast<std::size_t>(rows_->FieldCount()));
        } catch (const RuntimeError& error) {
            throw SourceError(error.Text());
        }
        for (std::size_t i = 0; i < row.size(); ++i) Read(static_cast<int>(i), row[i]);
        return true;
    }
    const std::vector<CellRemark>& Remarks() const override { return remarks_; }

 private:
    void Read(int column, store::Value& value) {
        try {
            value = rows_->Field(column);
        } catch (const RuntimeError& error) {
            value = {};
            remarks_.push_back({column, true,
                                error.Number() == ErrorNumber::TypeMismatch
                                    ? "binary values are not copied"
                                    : "cannot be read: " + error.Text()});
        }
    }

    std::unique_ptr<Recordset> rows_;
    bool isFirst_ = true;
    std::vector<CellRemark> remarks_;
};

class AdoSource : public TableSource {
 public:
    explicit AdoSource(const std::string& path) : path_(path), state_(access::StateOf(path)) {
        ComPtr<IDispatch> object = Open(path, provider_);
        try {
            connection_ = store::ado::WrapConnection(object);
            ListTables(*object);
            for (SourceTable& table : tables_) {
                if (table.elsewhere.empty()) Describe(table);
            }
        } catch (const RuntimeError& error) {
            throw SourceError(error.Text());
        }
    }

    std::string Kind() const override { return "Access file (" + provider_ + ")"; }
    const std::vector<SourceTable>& Tables() override { return tables_; }
    std::unique_ptr<RowReader> Read(const SourceTable& table,
                                    const std::vector<std::string>& columns) override {
        std::string list;
        for (const std::string& column : columns) {
            list += (list.empty() ? "" : ",") + Bracketed(column);
        }
        try {
            return std::make_unique<AdoRows>(Select(list, table.name, ""));
        } catch (const RuntimeError& error) {
            throw SourceError(error.Text());
        }
    }
    void CheckUnchanged() override {
        if (access::StateOf(path_) != state_) {
            throw SourceError("somebody changed the file while it was read");
        }
    }

 private:
    std::unique_ptr<Recordset> Select(const std::string& what, const std::string& table,
                                      const std::string& where) {
        return connection_->Open("select " + what + " from " + Bracketed(table) + where,
                                 CursorType::ForwardOnly, LockType::ReadOnly);
    }
    void ListTables(IDispatch& object) {
        store::ado::Member openSchema(L"OpenSchema");
        auto schema = store::ado::Call(object, openSchema, {Variant(kSchemaTables).Get()}).Object();
        if (!schema) throw SourceError("the provider does not list the tables");
        store::ado::AdoRecordset rows(win32::ComPtr<IDispatch>(&object), std::move(schema),
                                      CursorType::ForwardOnly, LockType::ReadOnly);
        const int name = rows.FieldIndex("TABLE_NAME");
        const int type = rows.FieldIndex("TABLE_TYPE");
        for (; !rows.Eof(); rows.MoveNext()) {
            const std::string kind = rows.Field(type).ToText();
            const bool linked = kind == "LINK" || kind == "PASS-THROUGH";
            if (kind != "TABLE" && !linked) continue;
            SourceTable& table = tables_.emplace_back();
            table.name = rows.Field(name).ToText();
            if (linked) table.elsewhere = "another data source";
        }
    }
    void Describe(SourceTable& table) {
        const auto columns = Select("*", table.name, " where 1=0");
        for (int i = 0; i < columns->FieldCount(); ++i) {
            table.columns.push_back(columns->FieldName(i));
        }
        table.rows =
            static_cast<std::int64_t>(Select("count(*)", table.name, "")->Field(0).ToDouble());
    }

    Apartment apartment_;
    std::string path_;
    access::FileState state_;
    std::string provider_;
    std::unique_ptr<Connection> connection_;
    std::vector<SourceTable> tables_;
};

}  // namespace

std::unique_ptr<TableSource> OpenAccessFile(const std::string& path) {
    return std::make_unique<AdoSource>(path);
}

}  // namespace zv::zvdb
