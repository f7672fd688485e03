#include "zvdb/access/mdb_file.h"

#include <mdbtools.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>

namespace zv::zvdb::access {
namespace {

// Places in the definition of a table.
constexpr std::size_t kNextAt = 4;
constexpr std::size_t kLengthAt = 8;
constexpr std::size_t kVariablesAt = 43;
constexpr std::size_t kColumnsAt = 45;
constexpr std::size_t kIndexesAt = 47;
constexpr std::size_t kRealIndexesAt = 51;
constexpr std::size_t kPageHead = 8;

constexpr std::uint8_t kDefinitionPage = 2;
constexpr std::uint32_t kMaxColumns = 255;
// Access itself takes 32 indexes a table, with those that relations make.
constexpr std::uint32_t kMaxIndexes = 1000;

struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};

std::string VersionName(std::uint32_t version) {
    switch (version) {
        case MDB_VER_JET4:
            return "Jet 4";
        case MDB_VER_ACCDB_2007:
            return "ACE 12";
        case MDB_VER_ACCDB_2010:
            return "ACE 14";
        case MDB_VER_ACCDB_2013:
            return "ACE 15";
        case MDB_VER_ACCDB_2016:
            return "ACE 16";
        default:
            return "ACE 17";
    }
}

}  // namespace

struct MdbFile::Handle {
    MdbHandle* mdb = nullptr;
    ~Handle() {
        if (mdb != nullptr) mdb_close(mdb);
    }
};

MdbFile::MdbFile(const std::string& path) : handle_(std::make_unique<Handle>()) {
    // The library lets the environment choose the characters of its names and its options.
    for (const char* name : {"MDBICONV", "MDB_JET3_CHARSET", "MDBOPTS", "MDBPATH"}) unsetenv(name);
    struct stat file {};
    if (stat(path.c_str(), &file) != 0) throw Damage("the file cannot be read");
    handle_->mdb = mdb_open(path.c_str(), MDB_NOFLAGS);
    if (handle_->mdb == nullptr) throw Damage("this is not an Access file, or its head is damaged");
    const std::uint32_t version = handle_->mdb->f->jet_version;
    if (version == MDB_VER_JET3) {
        throw Damage(
            "the file was made by Access 97 or older; convert it to Access 2000 or later first");
    }
    version_ = VersionName(version);
    const auto size = static_cast<std::uint64_t>(file.st_size);
    if (size % kPageSize != 0) {
        throw Damage("the file is cut short: " + std::to_string(size) +
                     " bytes are not whole pages");
    }
    if (size / kPageSize > 0xFFFFFF) throw Damage("the file is larger than Access files can be");
    pageCount_ = static_cast<std::uint32_t>(size / kPageSize);
}

MdbFile::~MdbFile() = default;

void MdbFile::ReadPage(std::uint32_t number, Page& page) {
    if (number >= pageCount_) {
        throw Damage("page " + std::to_string(number) + " is not in the file, which has " +
                     std::to_string(pageCount_));
    }
    if (mdb_read_alt_pg(handle_->mdb, number) != static_cast<ssize_t>(kPageSize)) {
        throw Damage("page " + std::to_string(number) + " cannot be read");
    }
    std::memcpy(page.Storage().data(), handle_->mdb->alt_pg_buf, kPageSize);
}

void MdbFile::CheckDefinition(const Page& first, std::uint32_t page) {
    const Bytes head = first.All();
    if (head.U16(kColumnsAt) == 0 || head.U16(kColumnsAt) > kMaxColumns ||
        head.U16(kVariablesAt) > kMaxColumns || head.U32(kIndexesAt) > kMaxIndexes ||
        head.U32(kRealIndexesAt) > kMaxIndexes) {
        throw Damage("counts more columns or indexes than a table has");
    }
    // The chain of its pages must end and be long enough.
    std::set<std::uint32_t> seen{page};
    std::size_t room = kPageSize;
    Page next = first;
    for (std::uint32_t number = head.U32(kNextAt); number != 0; number = next.All().U32(kNextAt)) {
        if (!seen.insert(number).second) throw Damage("comes back to its own page");
        ReadPage(number, next);
        if (next.All().U8(0) != kDefinitionPage) {
            throw Damage("goes on at page " + std::to_string(number) + ", which is something else");
        }
        room += kPageSize - kPageHead;
    }
    if (head.U32(kLengthAt) > room) throw Damage("is longer than its pages");
}

void MdbFile::ReadColumns(MdbTableDef& table, TableDefinition& definition) {
    if (mdb_read_columns(&table) == nullptr || table.columns->len != table.num_cols) {
        throw Damage("has columns that cannot be read");
    }
    for (guint i = 0; i < table.columns->len; ++i) {
        const auto& from = *static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, i));
        AccessColumn column;
        column.name = from.name;
        column.type = static_cast<FieldType>(from.col_type);
        if (column.name.empty() || from.col_size < 0 || from.fixed_offset < 0 ||
            from.row_col_num < 0) {
            throw Damage("has a column without a name or a place");
        }
        column.size = static_cast<std::size_t>(from.col_size);
        column.scale = static_cast<std::size_t>(std::max(0, from.col_scale));
        column.fixed = from.is_fixed != 0;
        column.fixedOffset = static_cast<std::size_t>(from.fixed_offset);
        column.variable = from.var_col_num;
        column.number = static_cast<std::size_t>(from.row_col_num);
        definition.columns.push_back(std::move(column));
    }
}

// The library looks for the pages of a list where the list says, whatever its length.
void MdbFile::CheckPageList(Bytes list) const {
    constexpr std::uint8_t kInPlace = 0;  // a number of the first page, then a bit for each
    constexpr std::uint8_t kInPages = 1;  // numbers of pages that hold the bits
    const std::uint8_t form = list.U8(0);
    if (form > kInPages || (form == kInPlace && list.Size() < 5)) {
        throw Damage("has a list of pages that cannot be read");
    }
    for (std::size_t at = 1; form == kInPages && at + 4 <= list.Size(); at += 4) {
        if (list.U32(at) >= pageCount_) {
            throw Damage("has a list of pages that goes on behind the end of the file");
        }
    }
}

void MdbFile::ReadPageList(MdbTableDef& table, TableDefinition& definition) {
    if (table.usage_map == nullptr) throw Damage("has no list of pages");
    CheckPageList(Bytes(table.usage_map, table.map_sz));
    std::set<std::uint32_t> seen;
    std::uint32_t last = 0;
    while (true) {
        const gint32 next = mdb_map_find_next(handle_->mdb, table.usage_map,
                                              static_cast<unsigned int>(table.map_sz), last);
        if (next == 0) return;
        if (next < 0) throw Damage("has a list of pages that cannot be read");
        last = static_cast<std::uint32_t>(next);
        if (last >= pageCount_) {
            throw Damage("has page " + std::to_string(last) + ", the file ends at " +
                         std::to_string(pageCount_));
        }
        if (!seen.insert(last).second) throw Damage("has a page twice");
        definition.dataPages.push_back(last);
    }
}

TableDefinition MdbFile::ReadTable(const std::string& name, std::uint32_t page) {
    TableDefinition definition;
    definition.name = name;
    definition.page = page;
    try {
        Page first;
        ReadPage(page, first);
        if (first.All().U8(0) != kDefinitionPage) {
            throw Damage("is not where the catalogue says (page " + std::to_string(page) + ")");
        }
        CheckDefinition(first, page);
        MdbCatalogEntry entry{};
        entry.mdb = handle_->mdb;
        std::strncpy(entry.object_name, name.c_str(), MDB_MAX_OBJ_NAME);
        entry.object_type = MDB_TABLE;
        entry.table_pg = page;
        const std::unique_ptr<MdbTableDef, FreeTable> table(mdb_read_table(&entry));
        if (table == nullptr) throw Damage("cannot be read");
        definition.rows = table->num_rows;
        definition.hasVariableColumns = table->num_var_cols > 0;
        ReadColumns(*table, definition);
        ReadPageList(*table, definition);
    } catch (const Damage& damage) {
        throw Damage("the file is damaged: the definition of table " + name + " " + damage.what());
    }
    return definition;
}

}  // namespace zv::zvdb::access
