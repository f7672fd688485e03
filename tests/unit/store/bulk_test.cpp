// The statements of moving many rows, as servers are sent them. That they do what is meant is
// tested on a server where one of the kind is at hand.
#include "store/engines/bulk.h"

#include <gtest/gtest.h>

#include "store/engines/engines.h"

namespace zv::store::engines {
namespace {

const Bulk& BulkOf(std::string_view engine) {
    return *Of(engine).bulk;
}

using Statements = std::vector<std::string>;

TEST(BulkOfPostgreSql, IsKnownByWhatTheServerSaysOfItself) {
    const Bulk& bulk = BulkOf("postgresql");
    EXPECT_EQ(bulk.VersionQuestion(), "select version()");
    EXPECT_TRUE(bulk.IsVersion("PostgreSQL 15.1"));
    EXPECT_FALSE(bulk.IsVersion("Microsoft SQL Server"));
    EXPECT_EQ(bulk.Prepare(), "set standard_conforming_strings=on");
    EXPECT_EQ(bulk.PresentSchema(), "current_schema()");
    EXPECT_FALSE(bulk.Identity().empty());
    EXPECT_FALSE(bulk.Columns().empty());
}
TEST(BulkOfPostgreSql, ReadsInPartsByKey) {
    const Bulk& bulk = BulkOf("postgresql");
    EXPECT_EQ(bulk.Quoted("a\"b"), "\"a\"\"b\"");
    EXPECT_EQ(bulk.SelectPart("c", "t", "k", "", 5), "select c from t order by k limit 5");
    EXPECT_EQ(bulk.SelectPart("c", "t", "k", "7", 5),
              "select c from t where k>7 order by k limit 5");
    EXPECT_EQ(bulk.BeginReading(), Statements{"begin isolation level repeatable read read only"});
    EXPECT_EQ(bulk.BeginInspecting(),
              Statements{"begin transaction isolation level repeatable read, read only"});
}
TEST(BulkOfPostgreSql, WritesBehindALockWithTriggersAndIndexesAside) {
    const Bulk& bulk = BulkOf("postgresql");
    EXPECT_EQ(bulk.BeforeSchema(), "drop function if exists zv_take_key()");
    EXPECT_EQ(bulk.MayWriteQuestion("t"),
              "select case when has_table_privilege('t','insert') and "
              "has_table_privilege('t','delete') then 1 else 0 end");
    EXPECT_EQ(bulk.Begin(), "begin");
    EXPECT_EQ(bulk.LimitWaiting(), "set local lock_timeout='10s'");
    EXPECT_FALSE(bulk.Indexes().empty());
    EXPECT_EQ(bulk.Lock("t"), "lock table t in exclusive mode");
    EXPECT_EQ(bulk.DisableTriggers("t"), "alter table t disable trigger user");
    EXPECT_EQ(bulk.EnableTriggers("t"), "alter table t enable trigger user");
    EXPECT_EQ(bulk.IndexesToMakeAgain("t"),
              "select indexrelid::regclass::text,pg_get_indexdef(indexrelid) from pg_index where "
              "indrelid='t'::regclass and not indisunique order by indexrelid");
    EXPECT_EQ(bulk.Analyze("t"), "analyze t");
}
TEST(BulkOfPostgreSql, CountsOnBehindTheGreatestKey) {
    const Bulk& bulk = BulkOf("postgresql");
    const std::string numbers = "pg_get_serial_sequence('t','k')";
    EXPECT_EQ(bulk.Counter("t", "k"), "select " + numbers);
    EXPECT_EQ(bulk.SetCounter("t", "k"),
              "select setval(" + numbers +
                  ",greatest(coalesce(max(\"k\"),1),1),coalesce(max(\"k\"),0)>=1) from \"t\"");
    EXPECT_EQ(bulk.CounterQuestion("t", "k"),
              "select " + numbers + ",coalesce(max(k),0)-coalesce(pg_sequence_last_value(" +
                  numbers + "),0) from t");
}
TEST(BulkOfSqlServer, SaysTheSameInItsOwnWords) {
    const Bulk& bulk = BulkOf("sqlserver");
    EXPECT_EQ(bulk.VersionQuestion(), "select @@version");
    EXPECT_TRUE(bulk.IsVersion("Microsoft SQL Server 2019"));
    EXPECT_FALSE(bulk.IsVersion("PostgreSQL 15.1"));
    EXPECT_EQ(bulk.Prepare(), "set xact_abort on");
    EXPECT_EQ(bulk.Identity(), "select @@servername+'/'+db_name()+'/'+schema_name()");
    EXPECT_FALSE(bulk.Columns().empty());
    EXPECT_EQ(bulk.PresentSchema(), "schema_name()");
    EXPECT_EQ(bulk.Quoted("a]b"), "[a]]b]");
    EXPECT_EQ(bulk.TextPrefix(), "N");
    EXPECT_EQ(bulk.SelectPart("c", "t", "k", "", 5), "select top 5 c from t order by k");
    EXPECT_EQ(bulk.SelectPart("c", "t", "k", "7", 5), "select top 5 c from t where k>7 order by k");
    EXPECT_EQ(bulk.FirstDate(), DateTime(1753, 1, 1));
    EXPECT_EQ(bulk.BeginReading(),
              (Statements{"set transaction isolation level serializable", "begin transaction"}));
    EXPECT_EQ(bulk.Begin(), "begin transaction");
    EXPECT_EQ(bulk.LimitWaiting(), "set lock_timeout 10000");
    EXPECT_FALSE(bulk.Indexes().empty());
    EXPECT_EQ(bulk.Lock("t"), "select count(*) from t with (tablockx, holdlock)");
    EXPECT_EQ(bulk.BeforeKeys("t"), "set identity_insert t on");
    EXPECT_EQ(bulk.BehindKeys("t"), "set identity_insert t off");
}

}  // namespace
}  // namespace zv::store::engines
