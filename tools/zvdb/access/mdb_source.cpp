// Access files through libmdb.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "zvdb/access/access_source.h"
#include "zvdb/access/access_value.h"
#include "zvdb/access/catalogue.h"
#include "zvdb/access/file_state.h"
#include "zvdb/access/isolated_reader.h"
#include "zvdb/access/table_rows.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;
using namespace access;

/// In the child: sends the version, then each table with its columns and its count of rows.
void SendTables(const std::string& path, StreamWriter& out) {
    MdbFile file(path);
    out.Put(IsolatedReader::kMessage);
    out.Put(std::string_view(file.Version()));
    for (const CatalogueTable& entry : ReadCatalogue(file)) {
        TableDefinition table;
        if (entry.elsewhere.empty()) table = file.ReadTable(entry.name, entry.page);
        out.Put(IsolatedReader::kMessage);
        out.Put(std::string_view(entry.name));
        out.Put(std::string_view(entry.elsewhere));
        out.Put(std::uint64_t{table.rows});
        out.Put(std::uint64_t{table.columns.size()});
        for (const AccessColumn& column : table.columns) out.Put(std::string_view(column.name));
    }
}

/// In the child: sends the rows, each with its remarks.
void SendRows(const std::string& path, const std::string& name,
              const std::vector<std::string>& names, StreamWriter& out) {
    MdbFile file(path);
    const auto catalogue = ReadCatalogue(file);
    const auto entry = std::find_if(catalogue.begin(), catalogue.end(),
                                    [&](const CatalogueTable& each) { return each.name == name; });
    if (entry == catalogue.end()) throw Damage("table " + name + " is gone");
    const TableDefinition table = file.ReadTable(entry->name, entry->page);
    std::vector<const AccessColumn*> columns;
    for (const std::string& each : names) {
        const auto column =
            std::find_if(table.columns.begin(), table.columns.end(),
                         [&](const AccessColumn& candidate) { return candidate.name == each; });
        if (column == table.columns.end()) throw Damage("column " + each + " is gone");
        columns.push_back(&*column);
    }
    std::vector<store::Value> values(columns.size());
    std::vector<CellRemark> remarks;
    ForEachRow(file, table, [&](const AccessRow& row, const std::string&) {
        remarks.clear();
        // A message is begun only when nothing can fail any more.
        for (std::size_t i = 0; i < columns.size(); ++i) {
            CellRemark remark;
            remark.column = static_cast<int>(i);
            if (DecodeField(file, row, *columns[i], values[i], remark)) remarks.push_back(remark);
        }
        out.Put(IsolatedReader::kMessage);
        for (const store::Value& value : values) out.Put(value);
        out.Put(std::uint64_t{remarks.size()});
        for (const CellRemark& remark : remarks) {
            out.Put(static_cast<std::uint64_t>(remark.column));
            out.Put(std::uint64_t{remark.lost});
            out.Put(std::string_view(remark.text));
        }
    });
}

class MdbRowReader : public RowReader {
 public:
    MdbRowReader(const std::string& path, const std::string& table,
                 const std::vector<std::string>& columns)
        : columns_(columns.size()),
          reader_([&](StreamWriter& out) { SendRows(path, table, columns, out); }) {}

    bool Next(std::vector<store::Value>& row) override {
        remarks_.clear();
        if (!reader_.Next()) return false;
        row.resize(columns_);
        for (store::Value& value : row) reader_.Get(value);
        for (auto count = reader_.Number(); count > 0; --count) {
            CellRemark& remark = remarks_.emplace_back();
            remark.column = static_cast<int>(reader_.Number());
            remark.lost = reader_.Number() != 0;
            remark.text = reader_.Text();
        }
        return true;
    }
    const std::vector<CellRemark>& Remarks() const override { return remarks_; }

 private:
    std::size_t columns_;
    IsolatedReader reader_;
    std::vector<CellRemark> remarks_;
};

void RefuseWhenLocked(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) throw SourceError("the file cannot be read");
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    const bool locked = fcntl(file, F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK;
    close(file);
    if (locked) throw SourceError("another program has locked the file");
}

class MdbSource : public TableSource {
 public:
    explicit MdbSource(const std::string& path) : path_(path) {
        RefuseWhenLocked(path);
        state_ = StateOf(path);
        IsolatedReader reader([&](StreamWriter& out) { SendTables(path_, out); });
        reader.Next();
        version_ = reader.Text();
        while (reader.Next()) {
            SourceTable& table = tables_.emplace_back();
            table.name = reader.Text();
            table.elsewhere = reader.Text();
            table.rows = static_cast<std::int64_t>(reader.Number());
            for (auto count = reader.Number(); count > 0; --count) {
                table.columns.push_back(reader.Text());
            }
        }
    }

    std::string Kind() const override { return "Access file (" + version_ + ")"; }
    const std::vector<SourceTable>& Tables() override { return tables_; }
    std::unique_ptr<RowReader> Read(const SourceTable& table,
                                    const std::vector<std::string>& columns) override {
        return std::make_unique<MdbRowReader>(path_, table.name, columns);
    }
    std::vector<std::string> Warnings() override {
        fs::path lock(path_);
        const std::string extension = text::ToLower(lock.extension().string());
        lock.replace_extension(extension == ".accdb" ? ".laccdb" : ".ldb");
        std::error_code failed;
        if (!fs::exists(lock, failed)) return {};
        return {"somebody may have the file open: " + lock.filename().string() +
                " is beside it, and what they did last may be missing"};
    }
    void CheckUnchanged() override {
        if (StateOf(path_) != state_)
            throw SourceError("somebody changed the file while it was read");
    }

 private:
    std::string path_;
    std::string version_;
    FileState state_;
    std::vector<SourceTable> tables_;
};

}  // namespace

std::unique_ptr<TableSource> OpenAccessFile(const std::string& path) {
    return std::make_unique<MdbSource>(path);
}

}  // namespace zv::zvdb
