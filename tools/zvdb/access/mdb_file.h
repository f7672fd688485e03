// An Access file through the library libmdb: its pages, the definitions of its tables and the lists
// of their pages. The library trusts what it reads; what can be checked is checked here first, and
// the rest is why all this runs in a process of its own (isolated_reader.h).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zvdb/access/access_row.h"
#include "zvdb/access/page.h"

struct S_MdbTableDef;

namespace zv::zvdb::access {

struct TableDefinition {
    std::string name;
    std::uint32_t page = 0;
    std::uint32_t rows = 0;
    bool hasVariableColumns = false;
    std::vector<AccessColumn> columns;
    /// In the order of the table.
    std::vector<std::uint32_t> dataPages;
};

class MdbFile {
 public:
    /// Throws Damage when this is no file of Access 2000 or later, or is cut short.
    explicit MdbFile(const std::string& path);
    ~MdbFile();

    /// "Jet 4" or "ACE 14".
    const std::string& Version() const { return version_; }
    std::uint32_t PageCount() const { return pageCount_; }
    /// Throws Damage for a page that is not in the file.
    void ReadPage(std::uint32_t number, Page& page);
    /// Throws Damage, naming the table.
    TableDefinition ReadTable(const std::string& name, std::uint32_t page);

 private:
    struct Handle;
    void CheckDefinition(const Page& first, std::uint32_t page);
    static void ReadColumns(S_MdbTableDef& table, TableDefinition& definition);
    void CheckPageList(Bytes list) const;
    void ReadPageList(S_MdbTableDef& table, TableDefinition& definition);

    std::unique_ptr<Handle> handle_;
    std::string version_;
    std::uint32_t pageCount_ = 0;
};

}  // namespace zv::zvdb::access
