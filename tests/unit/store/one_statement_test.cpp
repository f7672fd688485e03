#include "store/one_statement.h"

#include <gtest/gtest.h>

#include <string>

#include "base/errors.h"

namespace zv::store {
namespace {

bool Passes(std::string_view sql) {
    try {
        RequireOneStatement(sql, "source");
        return true;
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
        EXPECT_NE(error.Text().find("character"), std::string::npos);
        return false;
    }
}

TEST(OneStatement, PassesWhatIsOne) {
    for (const char* sql : {
             "select 1",
             "select 1;",
             "select 1 ; \r\n",
             "Select * From [a;b] Where [it's]=1",
             "select * from t where a='x; delete from cards; --'",
             "select * from t where a='it''s' and b=\"a;b\"\"--\"",
             "select * from t where d=#03/07/2003# and e='03/07/2003'",
             "select a.[set],b.open from t where (select count(*) from cards)>0",
             "select a from t union select b from u",
             "select a from t union all select b from u",
             "insert into t(a) values('select')",
             "insert into t(a) select a from u where b in (select c from v)",
             "Update tTaskList Set tDone=1,tDoneMan = 'set' where fID =1",
             "delete from tTaskList where taskID =7 And (fType=0 Or fType is Null)",
             "select offset,settled,updated,selected from t",
             "create table t (a int)",
             "select 5-(-1),4/2 from t",
             "select '' from t",
             "select * from 表 where 名='一'",
         }) {
        EXPECT_TRUE(Passes(sql)) << sql;
    }
}

TEST(OneStatement, RefusesASecondOneAndWhatHidesOne) {
    for (const char* sql : {
             "",
             "   ",
             "select * from t where a='x'; delete from cards",
             "select * from t where a='x'; delete from cards; --'",
             "select 1;;",
             "select 1 -- rest",
             "select 1 --",
             "select /* x */ 1",
             "select 1 /*",
             "select * from t where a='x' delete from cards where b='y'",
             "select * from t where a='x'exec xp_cmdshell 'dir'",
             "select * from t where a='x' drop table cards",
             "select * from t where a='x' select * from cards",
             "select * from t where a='x' Update cards set Name='y'",
             "select * from t where a='x' SHUTDOWN",
             "update t set a=1 set b=2",
             "insert into t(a) select a from u select b from v",
             "delete from t where a=1 begin transaction",
             "select * from t where a='x",
             "select * from t where a=\"x",
             "select * from [t where a=1",
             "select * from [a]]; delete from cards --]",
             "select * from `a;b`",
             "select * from t where a='it''s",
             "select #; drop table cards; #",
             "select * from t where d=#03/07/2003# ; drop table cards",
         }) {
        EXPECT_FALSE(Passes(sql)) << sql;
    }
    EXPECT_FALSE(Passes(std::string("select 1\0", 9)));
}

}  // namespace
}  // namespace zv::store
