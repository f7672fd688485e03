// The rules of the dialect, the same on every engine, whatever it thinks of types.
#include <gtest/gtest.h>

#include "engines.h"
#include "fixture.h"

namespace zv::store {
namespace {

class DialectRules : public EngineTest {
 protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (IsSkipped()) return;
        for (const std::string& sql : ReadDataStatements()) Execute(sql);
    }
    /// First column of the rows, joined.
    std::string Column(const std::string& sql) {
        std::string text;
        for (const auto rows = Read(sql); !rows->Eof(); rows->MoveNext()) {
            text += (text.empty() ? "" : ",") + rows->Field(0).ToText();
        }
        return text;
    }
    std::string ItemsWhere(const std::string& condition) {
        return Column("select fID from tTaskList where " + condition + " order by fID");
    }
};

TEST_P(DialectRules, TextsJoinWithNumbersAndDates) {
    EXPECT_EQ(Rows("select 'x'+2*3+'y',fID+1,taskTitle+'!',fID+taskTitle,taskTime+'' from "
                   "tTaskList where fID=1"),
              "x6y|2|Report!|1Report|2003-03-07 00:00:00");
    EXPECT_EQ(Rows("select fContent+null,'a'+'b'+'c' from tTaskList where fID=1"), "|abc");
}
TEST_P(DialectRules, TextsAreCutOfAnything) {
    EXPECT_EQ(Rows("select Right('abc',2),Right('abc',5),Right('abc',0),Left('abc',2),Left('abc',0)"
                   ",Mid('abc',2),Mid('abc',2,1),substring('abc',1,2),Len('报表')"),
              "bc|abc||ab||bc|b|ab|2");
    EXPECT_EQ(Rows("select Left(fID+100,2),Right(taskTime,8),Mid(taskTitle,2,3),Left(taskTitle,"
                   "Len(taskTitle)-8) from tTaskList where fID=2"),
              "10|10:00:00|udi|");
    EXPECT_EQ(Rows("select Ltrim(Month(taskTime)),Trim(' a '),UCase(taskTitle),LCase(fUser),"
                   "Replace(taskTitle,'t','T'),InStr(taskTitle,'DIT') from tTaskList where fID=2"),
              "3|a|AUDIT|wang|AudiT|3");
}
TEST_P(DialectRules, DatesAreTakenApart) {
    EXPECT_EQ(
        Rows("select Year(t.taskTime),Month(t.taskTime),Day(t.taskTime),Hour(taskTime),"
             "Minute(taskTime),Second(taskTime),Weekday(taskTime),Format(taskTime,'yyyy-mm-dd "
             "hh:mm'),Month(#12/31/2003#),Year('2003-01-01') from tTaskList t where fID=2"),
        "2003|3|8|10|0|0|7|2003-03-08 10:00|12|2003");
    EXPECT_EQ(Rows("select Format(7,'000'),Format(fID,'00'),Format(taskTime,'mm/dd') from "
                   "tTaskList where fID=2"),
              "007|02|03/08");
}
TEST_P(DialectRules, TextLiteralsAreReadWhereTheyMeetNumbersAndDates) {
    EXPECT_EQ(ItemsWhere("fID='2'"), "2");
    EXPECT_EQ(ItemsWhere("fID in ('1',3)"), "1,3");
    EXPECT_EQ(ItemsWhere("fID between '2' and '3'"), "2,3");
    EXPECT_EQ(ItemsWhere("taskTime='2003-03-07' or taskTime in (#03/09/2003#)"), "1,3");
    EXPECT_EQ(ItemsWhere("taskTime between '03/06/2003' and '3/7/2003'"), "1,8");
}
TEST_P(DialectRules, TextsCompareWithNumbersAndDatesAsTexts) {
    Execute("Update tTaskList Set fOther0=5,fOther1=taskTime where fID=5");
    EXPECT_EQ(ItemsWhere("fOther0=5"), "5");
    EXPECT_EQ(ItemsWhere("fOther0=fID"), "5");
    EXPECT_EQ(ItemsWhere("5=fOther0 and fOther1=taskTime"), "5");
    EXPECT_EQ(ItemsWhere("Left(taskTime,10)='2003-03-07'"), "1");
}
TEST_P(DialectRules, NumbersAndDatesMatchPatterns) {
    EXPECT_EQ(ItemsWhere("fID like '%3'"), "3");
    EXPECT_EQ(ItemsWhere("taskTime like '2003-03-08 10%'"), "2,6");
    EXPECT_EQ(ItemsWhere("taskTitle not like '%e%' and fID<4"), "2,3");
}
TEST_P(DialectRules, PatternsHaveNoEscapeCharacter) {
    EXPECT_EQ(ItemsWhere("fContent like 'A\\B'"), "4");
    EXPECT_EQ(ItemsWhere("fContent like '%\\%'"), "4");
    EXPECT_EQ(ItemsWhere("taskTitle like 'rep_rt' and fContent like '%' + 'IT'"), "1");
}
TEST_P(DialectRules, ComputedTextsCompareWithoutRegardToCase) {
    EXPECT_EQ(ItemsWhere("Left(taskTitle,2)='RE'"), "1,6");
    EXPECT_EQ(ItemsWhere("'RE'=Left(taskTitle,2) and 'a'='A'"), "1,6");
    EXPECT_EQ(ItemsWhere("Left(taskTitle,2) in ('RE','VI')"), "1,3,6");
    EXPECT_EQ(ItemsWhere("fUser+'x' between 'WANGX' and 'wangy' and fID<3"), "1,2");
    EXPECT_EQ(Column("select distinct Left(fUser,1) from tTaskList where fUser='wang' and fID<3"),
              "w");
    EXPECT_EQ(Rows("select case UCase(fUser) when 'wang' then 'x' else 'y' end from tTaskList "
                   "where fID=1"),
              "x");
}
TEST_P(DialectRules, ConditionsAreNumbersWhereValuesAreExpected) {
    EXPECT_EQ(Rows("select fID=1,fID<>1,(fID=1)+1,not fID=1 from tTaskList where fID=1"),
              "1|0|2|0");
    EXPECT_EQ(Rows("select sum(tDone=1),max(fType=2) from tTaskList where fID<7"), "2|1");
    EXPECT_EQ(ItemsWhere("(tDone=1)=1"), "2,6,8");
    Execute("Update tTaskList Set tDone=(fType=1) where fID=3");
    EXPECT_EQ(Rows("select tDone from tTaskList where fID=3"), "1");
}
TEST_P(DialectRules, NumbersAreConditionsWhereThoseAreExpected) {
    EXPECT_EQ(ItemsWhere("tDone"), "2,3,6,8");
    EXPECT_EQ(ItemsWhere("not tDone and fID<5"), "1,4");
    EXPECT_EQ(ItemsWhere("tDone and fType or fID-1 and fID<3"), "2,3");
    EXPECT_EQ(Rows("select iif(tDone,'x','y') from tTaskList where fID=1"), "y");
}
TEST_P(DialectRules, AlternativesMayBeOfSeveralKinds) {
    EXPECT_EQ(Rows("select iif(fID=4,'none',fID),Nz(TaskID),Nz(taskTitle),Nz(TaskID,0),"
                   "IsNull(taskTitle,'-'),IsNull(taskTitle),coalesce(taskTitle,fContent) from "
                   "tTaskList where fID=4"),
              "none|||0|-|1|a\\b");
    EXPECT_EQ(Rows("select case when fID=4 then taskTime else 'x' end,case fID when 4 then 1 end "
                   "from tTaskList where fID=4"),
              "2003-03-08 00:00:00|1");
}
TEST_P(DialectRules, NumbersDivideAndRoundAlike) {
    EXPECT_EQ(Rows("select 7/2,7%4,Round(2.5),Round(2.345,2),CInt(2.5),CLng('-2.5'),Abs(-3),"
                   "CDbl('1.5')*2,Val('12 pieces'),Val('x') "),
              "3|3|3|2.35|3|-3|3|3|12|0");
    EXPECT_EQ(Rows("select avg(fID) from tTaskList where fID<3"), "1.5");
    EXPECT_EQ(Rows("select CStr(12)+CStr(#03/07/2003#),- -1,-fID from tTaskList where fID=1"),
              "122003-03-07 00:00:00|1|-1");
}
TEST_P(DialectRules, NothingSortsBeforeEverything) {
    EXPECT_EQ(Column("select fID from tTaskList where fID in (1,4,7) order by taskTitle"), "4,7,1");
    EXPECT_EQ(Column("select fID from tTaskList where fID in (1,4,7) order by taskTime desc"),
              "4,1,7");
    EXPECT_EQ(Column("select fID from tTaskList where fID in (1,7,3) order by taskTime"), "7,1,3");
}
TEST_P(DialectRules, OrdersMayNameAliasesAndPlaces) {
    EXPECT_EQ(Column("select fID as n from tTaskList where fID<4 order by n desc"), "3,2,1");
    EXPECT_EQ(Column("select taskTitle as fUser from tTaskList where fID<4 order by fUser"),
              "Audit,Report,Visit");
    EXPECT_EQ(Column("select fID,taskTitle from tTaskList where fID<4 order by 2 desc"), "3,1,2");
    EXPECT_EQ(Column("select fID from tTaskList where fID<4 order by Right(taskTitle,1)+'x',fID"),
              "1,2,3");
    EXPECT_EQ(Column("select distinct fUser from tTaskList where fID in (2,3) order by fUser"),
              "li,wang");
}
TEST_P(DialectRules, SelectsNest) {
    EXPECT_EQ(Rows("select fType,count(*) as n from tTaskList where fID<4 group by fType having "
                   "count(*)>1"),
              "0|2");
    EXPECT_EQ(Column("select taskTitle from tTaskSet s where exists (select * from tTaskList a "
                     "where a.TaskID=s.TaskID and a.tDone=1) and TaskID in (select TaskID from "
                     "tTaskList) and TaskID=7"),
              "Audit");
    EXPECT_EQ(Column("select x.n from (select count(*) as n from cards) x"), "6");
    EXPECT_EQ(Column("select n from (select count(*) as n from cards)"), "6");
    EXPECT_EQ(Column("select fID from tTaskList where fID in (1,3) and not taskTime in "
                     "(#03/07/2003#) union all select 9 order by 1"),
              "3,9");
    EXPECT_EQ(Column("select a.fID from (tTaskList a inner join cards b on a.TaskID=b.fID) where "
                     "b.CompName='ACME' order by a.fID"),
              "3,6");
    EXPECT_EQ(Column("select top 2 fID from dbo.tTaskList order by fID desc"), "9,8");
}
TEST_P(DialectRules, RowsOfAnInsertTakeAnyKind) {
    EXPECT_EQ(connection_->Execute("insert into tTaskList([taskTitle],taskTime,tDone,fOther0) "
                                   "values('it''s',#03/07/2003#,'2',7),(null,null,null,null)"),
              2);
    EXPECT_EQ(Rows("select fID,taskTitle,taskTime,tDone,fOther0 from tTaskList where fID>9 order "
                   "by fID"),
              "10|it's|2003-03-07 00:00:00|2|7\n11||||");
    EXPECT_EQ(connection_->Execute("insert into tRsBasic(fCode,fName) select employcode,employee "
                                   "from Employees where employcode='1'"),
              1);
    EXPECT_EQ(connection_->Execute("delete * from tTaskList where fID>9"), 2);
}
TEST_P(DialectRules, KeysThatComeWithRowsAreNotGivenAgain) {
    Execute("insert into tTaskList(fID,taskTitle) values(500,'a'),(20,'b')");
    Execute("insert into tTaskList(taskTitle) values('c')");
    EXPECT_EQ(Rows("select fID from tTaskList where taskTitle='c'"), "501");
    Execute("insert into cards(fID,Name) values(30,'a')");
    Execute("insert into cards(Name) values('new')");
    EXPECT_EQ(Rows("select fID from cards where Name='NEW'"), "31");
}
TEST_P(DialectRules, WhatIsNoNumberOrDateIsRefusedOrFindsNothing) {
    EXPECT_EQ(ErrorOf([&] { Read("select fID from tTaskList where taskTime='soon'"); }).Number(),
              ErrorNumber::DatabaseStatement);
    if (GetParam() == EngineKind::PostgreSql) {
        const RuntimeError error =
            ErrorOf([&] { Read("select fID from tTaskList where fID='soon'"); });
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
        EXPECT_EQ(error.Text(), "\"soon\" is not a number at character 37");
        EXPECT_EQ(error.Source(), "PostgreSQL");
    } else {
        EXPECT_EQ(ItemsWhere("fID='soon'"), "");
    }
}

ZV_ON_EVERY_ENGINE(DialectRules);

}  // namespace
}  // namespace zv::store
