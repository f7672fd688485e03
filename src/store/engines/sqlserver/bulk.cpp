#include "store/engines/bulk.h"

#include "store/engines/parts.h"

namespace zv::store::engines::sqlserver {
namespace {

class SqlServerBulk final : public Bulk {
 public:
    std::string_view VersionQuestion() const override { return "select @@version"; }
    bool IsVersion(std::string_view answer) const override {
        return answer.starts_with("Microsoft");
    }
    std::string_view Prepare() const override { return "set xact_abort on"; }
    std::string_view Identity() const override {
        return "select @@servername+'/'+db_name()+'/'+schema_name()";
    }
    // It answers -1 for texts of any length.
    std::string_view Columns() const override {
        return "select c.table_name,c.column_name,c.character_maximum_length from "
               "information_schema.columns c "
               "join information_schema.tables t on t.table_schema=c.table_schema and "
               "t.table_name=c.table_name where t.table_type='BASE TABLE' and "
               "c.table_schema=schema_name() "
               "order by c.table_name,c.ordinal_position";
    }
    std::string_view Indexes() const override {
        return "select i.name,t.name,c.name,case when i.is_unique=1 then 1 else 0 end,"
               "case when k.is_descending_key=1 or k.is_included_column=1 or i.is_disabled=1 "
               "then 0 else 1 end from sys.indexes i join sys.tables t on "
               "t.object_id=i.object_id join sys.index_columns k on k.object_id=i.object_id and "
               "k.index_id=i.index_id join sys.columns c on c.object_id=k.object_id and "
               "c.column_id=k.column_id where t.schema_id=schema_id() "
               "order by i.name,t.name,k.key_ordinal";
    }
    std::string_view PresentSchema() const override { return "schema_name()"; }

    std::string Quoted(std::string_view name) const override {
        std::string quoted = "[";
        for (const char c : name) {
            quoted += c;
            if (c == ']') quoted += c;
        }
        return quoted + ']';
    }
    std::string_view TextPrefix() const override { return "N"; }
    std::string SelectPart(const std::string& columns, const std::string& table,
                           const std::string& key, const std::string& after,
                           std::size_t rows) const override {
        return "select top " + std::to_string(rows) + " " + columns + " from " + table +
               (after.empty() ? "" : " where " + key + ">" + after) + " order by " + key;
    }
    DateTime FirstDate() const override { return {1753, 1, 1}; }

    // Not every database has a snapshot to offer, so a check goes without.
    std::vector<std::string> BeginReading() const override {
        return {"set transaction isolation level serializable", "begin transaction"};
    }

    std::string_view Begin() const override { return "begin transaction"; }
    std::string_view LimitWaiting() const override { return "set lock_timeout 10000"; }
    std::string Lock(const std::string& table) const override {
        return "select count(*) from " + table + " with (tablockx, holdlock)";
    }
    std::string BeforeKeys(const std::string& table) const override {
        return "set identity_insert " + table + " on";
    }
    // Behind them it counts on from the greatest number by itself.
    std::string BehindKeys(const std::string& table) const override {
        return "set identity_insert " + table + " off";
    }
};

}  // namespace

const Bulk* TheBulk() {
    static const SqlServerBulk bulk;
    return &bulk;
}

}  // namespace zv::store::engines::sqlserver
