#include <sstream>

#include "base/text.h"
#include "store/engines/engines.h"
#include "store/sqlite/database_file.h"
#include "zvdb/inspected.h"

namespace zv::zvdb {
namespace {

class EmbeddedInspectedRows final : public InspectedRows {
 public:
    EmbeddedInspectedRows(Engine& engine, const std::string& sql) : statement_(engine, sql) {}

    bool Next() override { return statement_.Step(); }
    bool IsNull(int column) const override { return statement_.IsNull(column); }
    std::int64_t Number(int column) const override { return statement_.Number(column); }
    std::string Text(int column) const override { return statement_.Text(column); }

 private:
    Statement statement_;
};

class EmbeddedInspected final : public Inspected {
 public:
    explicit EmbeddedInspected(Engine& engine) : engine_(engine) {}

    std::unique_ptr<InspectedRows> Select(const std::string& sql) override {
        return std::make_unique<EmbeddedInspectedRows>(engine_, sql);
    }

    std::set<std::string> Columns(const std::string& table) override {
        std::set<std::string> names;
        Statement columns(engine_, "select name from pragma_table_info(?,'main')");
        columns.Bind(table);
        while (columns.Step()) names.insert(text::ToLower(columns.Text(0)));
        return names;
    }

    std::string IndexMaking(const std::string& index) override {
        Statement parts(
            engine_,
            "select m.tbl_name,l.\"unique\",x.\"desc\",x.name,x.coll,"
            "case when l.partial then m.sql end "
            "from main.sqlite_master m,pragma_index_list(m.tbl_name,'main') l,"
            "pragma_index_xinfo(m.name,'main') x where m.type='index' and l.name=m.name and "
            "lower(m.name)=lower(?) and x.key=1 order by x.seqno");
        parts.Bind(index);
        std::string making;
        std::string condition;
        bool plain = true;
        while (parts.Step()) {
            const std::string table = parts.Text(0);
            making += making.empty() ? (parts.Number(1) != 0 ? "unique " : "") + table + '(' : ",";
            making += parts.Text(3);
            condition = ConditionOf(parts.Text(5));
            plain = plain && parts.Number(2) == 0 &&
                    text::EqualsIgnoreCase(parts.Text(4), Collation(table, parts.Text(3)));
        }
        if (making.empty()) return making;
        return text::ToLower(making) + ')' + condition + (plain ? "" : " otherwise");
    }

    std::string_view SideTables() const override {
        return store::sqlite::EmbeddedEngine().sideTables;
    }

    // A text such as "2003-02-30" is turned into another day by the engine, which gives it away.
    std::string NotADate(const std::string& column) const override {
        return column + " is not null and (typeof(" + column + ")<>'text' or datetime(" + column +
               ") is null or datetime(" + column + ")<>" + column + ")";
    }

    std::vector<std::string> Damage() override {
        std::vector<std::string> damage;
        Statement check(engine_, "pragma integrity_check(20)");
        while (check.Step()) {
            const std::string text = check.Text(0);
            if (text != "ok") damage.push_back("damaged file: " + text);
        }
        return damage;
    }

 private:
    /// Of the statement that makes an index: from the word "where" on, in lower case and with one
    /// blank in front of each word.
    static std::string ConditionOf(const std::string& making) {
        std::istringstream words(text::ToLower(making));
        std::string condition;
        for (std::string word; words >> word;) {
            if (word == "where" || !condition.empty()) condition += ' ' + word;
        }
        return condition;
    }

    /// Of a column; empty for an expression, which has no name.
    std::string Collation(const std::string& table, const std::string& column) {
        const char* collation = nullptr;
        if (column.empty() || sqlite3_table_column_metadata(
                                  engine_.Handle(), "main", table.c_str(), column.c_str(), nullptr,
                                  &collation, nullptr, nullptr, nullptr) != SQLITE_OK) {
            return {};
        }
        return collation;
    }

    Engine& engine_;
};

}  // namespace

std::unique_ptr<Inspected> InspectEmbedded(Engine& engine) {
    return std::make_unique<EmbeddedInspected>(engine);
}

}  // namespace zv::zvdb
