#include "access_pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "base/text.h"
#include "target.h"
#include "zvdb/access/catalogue.h"
#include "zvdb/access/stream.h"
#include "zvdb/access/table_rows.h"

namespace zv::fuzz {
namespace {

using namespace zvdb::access;

// The first byte chooses the table. A change is which of the pages of rows, two bytes of a place in
// it, how many bytes, and the bytes.
constexpr std::size_t kChangeHead = 4;
constexpr std::size_t kMostBytes = 16;
// Of a table that is read twice each time.
constexpr std::size_t kFewRows = 50;
constexpr std::string_view kFile = ZV_FIXTURES "/access/taskAlert-2000.mdb";

/// In memory, under a name that can be opened.
class ChangedFile {
 public:
    explicit ChangedFile(std::string bytes)
        : bytes_(std::move(bytes)), file_(memfd_create("f", 0)) {
        Write(0, bytes_);
    }
    ~ChangedFile() { close(file_); }
    ChangedFile(const ChangedFile&) = delete;
    ChangedFile& operator=(const ChangedFile&) = delete;

    std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }
    void Change(std::size_t at, std::string_view bytes) {
        changes_.emplace_back(at, bytes.size());
        Write(at, bytes);
    }
    void Restore() {
        for (const auto& [at, size] : changes_)
            Write(at, std::string_view(bytes_).substr(at, size));
        changes_.clear();
    }

 private:
    void Write(std::size_t at, std::string_view bytes) const {
        if (pwrite(file_, bytes.data(), bytes.size(), static_cast<off_t>(at)) !=
            static_cast<ssize_t>(bytes.size())) {
            throw std::runtime_error("the file cannot be written");
        }
    }

    std::string bytes_;
    int file_;
    std::vector<std::pair<std::size_t, std::size_t>> changes_;
};

using Row = std::vector<store::Value>;

void HoldCell(const store::Value& value, const zvdb::CellRemark& remark, bool remarked) {
    Hold(remarked == !remark.text.empty(), "a remark without a text");
    Hold(!remark.lost || value.IsNull(), "a value that was lost is there");
    if (const std::string* text = value.TextIf()) {
        Hold(text::FromUtf16(text::ToUtf16(*text)) == *text, "a text is not UTF-8");
    }
    if (const auto* date = std::get_if<DateTime>(&value.Data())) {
        Hold(*date < DateTime(9999, 12, 31).AddDays(1) && *date >= DateTime(100, 1, 1).AddDays(-1),
             "a date outside of the calendar");
    }
}

std::vector<Row> RowsOf(MdbFile& file, const TableDefinition& table, const FieldReader& read) {
    std::vector<Row> rows;
    ForEachRow(file, table, [&](const AccessRow& row, const std::string& name) {
        Hold(!name.empty(), "a row has no name");
        Row& values = rows.emplace_back(table.columns.size());
        for (std::size_t i = 0; i < values.size(); i++) {
            zvdb::CellRemark remark;
            const bool remarked = read(file, row, table.columns[i], values[i], remark);
            HoldCell(values[i], remark, remarked);
        }
    });
    Hold(rows.size() == table.rows, "there are other rows than the table counts");
    return rows;
}

bool SameValue(const store::Value& a, const store::Value& b) {
    // What is no number is not even itself.
    const auto* x = std::get_if<double>(&a.Data());
    const auto* y = std::get_if<double>(&b.Data());
    return a == b || (x && y && *x != *x && *y != *y);
}

bool SameRows(const std::vector<Row>& a, const std::vector<Row>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Row& x, const Row& y) {
        return std::equal(x.begin(), x.end(), y.begin(), y.end(), SameValue);
    });
}

void HoldHandedOver(const std::vector<Row>& rows) {
    const int file = memfd_create("s", 0);
    StreamWriter out(file);
    for (const Row& row : rows) {
        for (const store::Value& value : row) out.Put(value);
    }
    out.Flush();
    lseek(file, 0, SEEK_SET);
    StreamReader in(file, 1);
    bool same = true;
    for (const Row& row : rows) {
        for (const store::Value& value : row) {
            store::Value arrived;
            in.Get(arrived);
            same = same && SameValue(value, arrived);
        }
    }
    close(file);
    Hold(same, "another value arrives at the other process");
}

/// The file of the fixtures and what it holds.
class Original {
 public:
    Original() : file_(Bytes()) {
        MdbFile mdb(file_.Path());
        for (const CatalogueTable& entry : ReadCatalogue(mdb)) {
            TableDefinition table = mdb.ReadTable(entry.name, entry.page);
            pages_.insert(pages_.end(), table.dataPages.begin(), table.dataPages.end());
            rows_.push_back(RowsOf(mdb, table, DecodeField));
            tables_.push_back(std::move(table));
        }
        // Memos, and the catalogue itself.
        for (std::uint32_t number = 0; number < mdb.PageCount(); number++) {
            Page page;
            mdb.ReadPage(number, page);
            if (page.IsData() && page.Owner() == kMemos) pages_.push_back(number);
        }
        const TableDefinition catalogue = mdb.ReadTable("MSysObjects", 2);
        pages_.insert(pages_.end(), catalogue.dataPages.begin(), catalogue.dataPages.end());
    }

    ChangedFile& File() { return file_; }
    const std::vector<std::uint32_t>& Pages() const { return pages_; }
    const std::vector<TableDefinition>& Tables() const { return tables_; }
    const std::vector<Row>& Rows(std::size_t table) const { return rows_[table]; }
    /// Whether no other table can be any different after changes of these pages.
    bool IsWithin(std::size_t table, const std::set<std::uint32_t>& changed) const {
        const auto& own = tables_[table].dataPages;
        return std::all_of(changed.begin(), changed.end(), [&](std::uint32_t page) {
            return std::find(own.begin(), own.end(), page) != own.end();
        });
    }

 private:
    static constexpr std::uint32_t kMemos = 0x4C41564C;  // "LVAL"
    static std::string Bytes() {
        std::ifstream stream(std::string(kFile), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    ChangedFile file_;
    std::vector<std::uint32_t> pages_;
    std::vector<TableDefinition> tables_;
    std::vector<std::vector<Row>> rows_;
};

std::set<std::uint32_t> Change(Original& original, std::string_view changes) {
    std::set<std::uint32_t> changed;
    const auto byte = [&](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(changes[at]));
    };
    while (changes.size() > kChangeHead) {
        const std::uint32_t page = original.Pages()[byte(0) % original.Pages().size()];
        const std::size_t at = (byte(1) * 256 + byte(2)) % kPageSize;
        const std::size_t size =
            std::min({1 + byte(3) % kMostBytes, changes.size() - kChangeHead, kPageSize - at});
        original.File().Change(page * kPageSize + at, changes.substr(kChangeHead, size));
        changed.insert(page);
        changes.remove_prefix(kChangeHead + size);
    }
    return changed;
}

void PlayTable(Original& original, std::size_t table, const std::set<std::uint32_t>& changed,
               const FieldReader& read) {
    const TableDefinition& known = original.Tables()[table];
    MdbFile file(original.File().Path());
    const auto catalogue = ReadCatalogue(file);
    const auto entry = std::find_if(catalogue.begin(), catalogue.end(),
                                    [&](const auto& each) { return each.name == known.name; });
    if (entry == catalogue.end() || !entry->elsewhere.empty()) return;
    const TableDefinition definition = file.ReadTable(entry->name, entry->page);
    const std::vector<Row> rows = RowsOf(file, definition, read);
    if (rows.size() <= kFewRows) {
        Hold(SameRows(rows, RowsOf(file, definition, read)),
             "read as something else the second time");
    }
    HoldHandedOver(rows);
    if (changed.empty()) {
        Hold(SameRows(rows, original.Rows(table)), "the file is read as another");
    }
}

}  // namespace

void PlayAccessPages(std::string_view input, const FieldReader& read) {
    static Original original;
    if (input.empty()) return;
    const std::size_t table = static_cast<unsigned char>(input.front()) % original.Tables().size();
    const std::set<std::uint32_t> changed = Change(original, input.substr(1));
    struct Restoring {
        ~Restoring() { original.File().Restore(); }
    } restoring;
    try {
        PlayTable(original, table, changed, read);
    } catch (const Damage& damage) {
        Hold(!changed.empty(), std::string("a sound file is called damaged: ") + damage.what());
        Hold(*damage.what() != '\0', "damaged, and not said how");
    }
    // The upper half of the numbers asks for another table besides.
    if (static_cast<unsigned char>(input.front()) < 0x80 || !original.IsWithin(table, changed)) {
        return;
    }
    const std::size_t other = (table + 1) % original.Tables().size();
    try {
        PlayTable(original, other, {}, read);
    } catch (const Damage& damage) {
        throw Finding(std::string("another table is called damaged: ") + damage.what());
    }
}

std::vector<std::string> AccessSeeds() {
    // The count of rows, an entry of the directory, the end of the page.
    constexpr std::size_t kPages = 40;
    const std::vector<std::string> changes{std::string("\x00\x0C\x01\x05\x00", 5),
                                           std::string("\x00\x0E\x01\xFF\x4F", 5),
                                           std::string("\x0F\xF0\x0F") + "0123456789ABCDEF"};
    std::vector<std::string> seeds;
    for (std::size_t page = 0; page < kPages; page++) {
        const char table = static_cast<char>(page % 8 + (page % 2 == 0 ? 0x80 : 0));
        seeds.push_back({table});
        for (const std::string& change : changes) {
            seeds.push_back({table, static_cast<char>(page)});
            seeds.back() += change;
        }
    }
    return seeds;
}

}  // namespace zv::fuzz
