#include "zvdb/access/catalogue.h"

#include <algorithm>
#include <set>

#include "base/text.h"
#include "zvdb/access/access_value.h"
#include "zvdb/access/table_rows.h"

namespace zv::zvdb::access {
namespace {

constexpr std::uint32_t kCataloguePage = 2;
constexpr std::int64_t kTable = 1;
constexpr std::int64_t kLinkedByOdbc = 4;
constexpr std::int64_t kLinked = 6;
// Objects of the system, and those that are hidden because they wait for their end.
constexpr std::int64_t kSystemFlags = 0x80000002;

class CatalogueReader {
 public:
    explicit CatalogueReader(MdbFile& file)
        : file_(file), definition_(file.ReadTable("MSysObjects", kCataloguePage)) {}

    std::vector<CatalogueTable> Read() {
        std::vector<CatalogueTable> tables;
        ForEachRow(file_, definition_, [&](const AccessRow& row, const std::string&) {
            const std::int64_t type = Number(row, "Type");
            if (type != kTable && type != kLinked && type != kLinkedByOdbc) return;
            if ((Number(row, "Flags") & kSystemFlags) != 0) return;
            CatalogueTable table;
            table.name = Text(row, "Name");
            if (table.name.starts_with("MSys") || table.name.starts_with("~")) return;
            table.page = static_cast<std::uint32_t>(Number(row, "Id")) & 0xFFFFFF;
            if (type != kTable) {
                table.elsewhere = Text(row, "Database");
                if (table.elsewhere.empty()) table.elsewhere = "another data source";
            }
            if (table.name.empty()) throw Damage("a table has no name");
            if (!names_.insert(text::ToLower(table.name)).second) {
                throw Damage("there are two tables " + table.name);
            }
            tables.push_back(std::move(table));
        });
        return tables;
    }

 private:
    store::Value Field(const AccessRow& row, const char* name) {
        const auto column =
            std::find_if(definition_.columns.begin(), definition_.columns.end(),
                         [&](const AccessColumn& each) { return each.name == name; });
        if (column == definition_.columns.end()) {
            throw Damage(std::string("the catalogue has no column ") + name);
        }
        store::Value value;
        CellRemark remark;
        DecodeField(file_, row, *column, value, remark);
        if (remark.lost) throw Damage(std::string(name) + " " + remark.text);
        return value;
    }
    std::int64_t Number(const AccessRow& row, const char* name) {
        const store::Value value = Field(row, name);
        const auto* number = std::get_if<std::int64_t>(&value.Data());
        return number == nullptr ? 0 : *number;
    }
    std::string Text(const AccessRow& row, const char* name) { return Field(row, name).ToText(); }

    MdbFile& file_;
    TableDefinition definition_;
    std::set<std::string> names_;
};

}  // namespace

std::vector<CatalogueTable> ReadCatalogue(MdbFile& file) {
    return CatalogueReader(file).Read();
}

}  // namespace zv::zvdb::access
