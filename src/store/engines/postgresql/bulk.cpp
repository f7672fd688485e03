#include "store/engines/bulk.h"

#include "store/engines/parts.h"

namespace zv::store::engines::postgresql {
namespace {

class PostgreSqlBulk final : public Bulk {
 public:
    std::string_view VersionQuestion() const override { return "select version()"; }
    bool IsVersion(std::string_view answer) const override {
        return answer.starts_with("PostgreSQL");
    }
    std::string_view Prepare() const override { return "set standard_conforming_strings=on"; }
    std::string_view Identity() const override {
        return "select coalesce(host(inet_server_addr()),'')||':'||"
               "coalesce(inet_server_port(),0)||'/'||current_database()||'/'||"
               "coalesce(current_schema(),'')";
    }
    // The server's own catalogue is asked by numbers: a table of somebody else that goes away
    // meanwhile is then merely not seen, while its name could not be looked up any more.
    std::string_view Columns() const override {
        return "select c.relname,a.attname,case when a.atttypid in "
               "('char'::regtype,'varchar'::regtype) and "
               "a.atttypmod>4 then a.atttypmod-4 end from pg_class c join pg_namespace n on "
               "n.oid=c.relnamespace join pg_attribute a on a.attrelid=c.oid where c.relkind in "
               "('r','p') and "
               "n.nspname not in ('pg_catalog','information_schema') and "
               "pg_table_is_visible(c.oid) and "
               "a.attnum>0 and not a.attisdropped order by c.relname,a.attnum";
    }
    std::string_view Indexes() const override {
        return "select c.relname,t.relname,a.attname,case when i.indisunique then 1 else 0 end,"
               "case when m.amname='btree' and i.indisvalid and i.indpred is null and "
               "i.indexprs is null and i.indnkeyatts=i.indnatts and k.direction=0 then 1 else 0 "
               "end from pg_index i "
               "join pg_class c on c.oid=i.indexrelid join pg_class t on t.oid=i.indrelid "
               "join pg_namespace n on n.oid=t.relnamespace join pg_am m on m.oid=c.relam "
               "cross join lateral unnest(i.indkey::int2[],i.indoption::int2[]) with ordinality "
               "as k(number,direction,position) left join pg_attribute a on "
               "a.attrelid=i.indrelid and a.attnum=k.number where "
               "n.nspname not in ('pg_catalog','information_schema','pg_toast') and "
               "pg_table_is_visible(t.oid) order by c.relname,t.relname,k.position";
    }
    std::string_view PresentSchema() const override { return "current_schema()"; }

    std::string Quoted(std::string_view name) const override {
        std::string quoted = "\"";
        for (const char c : name) {
            quoted += c;
            if (c == '"') quoted += c;
        }
        return quoted + '"';
    }
    std::string SelectPart(const std::string& columns, const std::string& table,
                           const std::string& key, const std::string& after,
                           std::size_t rows) const override {
        return "select " + columns + " from " + table +
               (after.empty() ? "" : " where " + key + ">" + after) + " order by " + key +
               " limit " + std::to_string(rows);
    }

    std::vector<std::string> BeginReading() const override {
        return {"begin isolation level repeatable read read only"};
    }
    std::vector<std::string> BeginInspecting() const override {
        return {"begin transaction isolation level repeatable read, read only"};
    }
    std::string CounterQuestion(const std::string& table, const std::string& key) const override {
        const std::string numbers = Counting(table, key);
        return "select " + numbers + ",coalesce(max(" + key + "),0)-coalesce(" +
               "pg_sequence_last_value(" + numbers + "),0) from " + table;
    }

    std::string_view BeforeSchema() const override {
        return "drop function if exists zv_take_key()";
    }
    std::string MayWriteQuestion(const std::string& table) const override {
        return "select case when has_table_privilege('" + table +
               "','insert') and has_table_privilege('" + table + "','delete') then 1 else 0 end";
    }
    std::string_view Begin() const override { return "begin"; }
    std::string_view LimitWaiting() const override { return "set local lock_timeout='10s'"; }
    std::string Lock(const std::string& table) const override {
        return "lock table " + table + " in exclusive mode";
    }
    // The triggers are those that count on behind rows which bring a key; the counter is set at the
    // end.
    std::string DisableTriggers(const std::string& table) const override {
        return "alter table " + table + " disable trigger user";
    }
    std::string EnableTriggers(const std::string& table) const override {
        return "alter table " + table + " enable trigger user";
    }
    std::string IndexesToMakeAgain(const std::string& table) const override {
        return "select indexrelid::regclass::text,pg_get_indexdef(indexrelid) from pg_index where "
               "indrelid='" +
               table + "'::regclass and not indisunique order by indexrelid";
    }
    std::string Counter(const std::string& table, const std::string& key) const override {
        return "select " + Counting(table, key);
    }
    std::string SetCounter(const std::string& table, const std::string& key) const override {
        const std::string greatest = "max(" + Quoted(key) + ")";
        return "select setval(" + Counting(table, key) + ",greatest(coalesce(" + greatest +
               ",1),1),coalesce(" + greatest + ",0)>=1) from " + Quoted(table);
    }
    std::string Analyze(const std::string& table) const override { return "analyze " + table; }

 private:
    static std::string Counting(const std::string& table, const std::string& key) {
        return "pg_get_serial_sequence('" + table + "','" + key + "')";
    }
};

}  // namespace

const Bulk* TheBulk() {
    static const PostgreSqlBulk bulk;
    return &bulk;
}

}  // namespace zv::store::engines::postgresql
