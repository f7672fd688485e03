// Every form of statement that the system sends, with its exact text, against the real tables.
#include <gtest/gtest.h>

#include <random>

#include "database_fixture.h"
#include "store/dialect/translator.h"
#include "store/engines/engines.h"

namespace zv::store {
namespace {

class DialectTest : public DatabaseTest {
 protected:
    DialectTest() {
        Execute(
            "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,SetMan,DoneMan,Content) values"
            "(1,'月报','01/01/2003','12/31/2003','张三','李四','c1'),"
            "(7,'Audit',#02/01/2003#,#02/28/2003#,'','','c7')");
        Execute(
            "insert into tTaskList(fID,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,"
            "tDoneMan,fUser,fType,fGuest) values"
            "(1,7,'Report','about it','2003-03-07 00:00:00','2003-03-05 00:00:00',"
            "'2003-03-07 00:00:00',0,'','wang',0,''),"
            "(2,7,'Audit','more','2003-03-08 10:00:00','2003-03-08 10:00:00',"
            "'2003-03-08 10:00:00',1,'li','wang',0,''),"
            "(3,1,'Visit','','2003-03-09 00:00:00','2003-03-09 00:00:00',"
            "'2003-03-09 00:00:00',2,'','li',1,'Smith')");
        Execute(
            "insert into cards(fID,CompCode,CompName,Name,Birthday,BoxID) values"
            "(1,'AB1','Acme','Smith',#03/09/1970#,3),(2,'AB2','Beta','Jones',#01/02/1980#,0),"
            "(3,'C','','Leap',#02/29/1976#,0),(4,'D','Delta','None',null,0)");
        Execute(
            "insert into "
            "tSysFunc(SerialNo,model_Name,Model_Name_0,Model_Name_1,SecondPass,password,"
            "NoUse_) values(12,'mnuCardPlan','计划','計劃','2','pw',0),"
            "(13,'old','Old','Old',null,null,1)");
        Execute("insert into tRsBasic(fCode,fName) values('02','b'),('01','a')");
        Execute("insert into Employees(employcode,employee) values('2','B'),('1','A')");
        Execute(
            "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldType,fieldID) values"
            "('ttasklist','fOther0','Other',0,2),('ttasklist','fUser','User',1,1),"
            "('ttasklist','fWay','Way',-1,3)");
    }

    RuntimeError Refused(const std::string& sql) {
        return ErrorOf([&] { Read(sql); });
    }
};

using ListStatement = DialectTest;
using ScheduleStatement = DialectTest;
using CardStatement = DialectTest;
using BirthdayStatement = DialectTest;
using OtherStatement = DialectTest;
using DialectRule = DialectTest;
using DialectError = DialectTest;

const std::string kList =
    "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from tTaskList a ";

TEST_F(ListStatement, RunsInAllThreeOrders) {
    const std::string all = kList + " Where 1=1";
    EXPECT_EQ(Rows(all + " Order by a.fType,a.taskTime desc,a.taskTitle"),
              "2|0|2003-03-08 10:00:00|Audit|1|7\n1|0|2003-03-07 00:00:00|Report|0|7\n"
              "3|1|2003-03-09 00:00:00|Visit|2|1");
    EXPECT_EQ(Rows(all + " Order by a.fType,a.taskTitle,a.taskTime desc").substr(0, 2), "2|");
    EXPECT_EQ(Rows(all + " Order by a.fType,a.taskID,a.taskTime desc,a.taskTitle").substr(0, 2),
              "2|");
    EXPECT_EQ(Rows(kList + " Order by a.fType,a.taskTime desc,a.taskTitle").substr(0, 2), "2|");
}
TEST_F(ListStatement, FiltersByEveryField) {
    const auto ids = [&](const std::string& condition) {
        std::string result;
        const auto rows = Read(kList + " Where 1=1" + condition +
                               " Order by a.fType,a.taskTime desc,a.taskTitle");
        for (; !rows->Eof(); rows->MoveNext()) result += rows->Field("fID").ToText();
        return result;
    };
    EXPECT_EQ(ids(" And a.fType<>1"), "21");
    EXPECT_EQ(ids(" And a.fType<>0 And a.fType<>1 And a.fType<>2"), "");
    EXPECT_EQ(ids(" And a.tDuring1<=#03/08/2003# and a.tDuring2>=#03/06/2003#"), "1");
    EXPECT_EQ(ids(" And a.tDuring1<='03/09/2003' and a.tDuring2>='03/06/2003'"), "213");
    EXPECT_EQ(ids(" And a.tDuring1<=#03/08/2003#"), "1");
    EXPECT_EQ(ids(" And a.taskTitle like '%PORT%'"), "1");
    EXPECT_EQ(ids(" And a.taskTitle like '_udit'"), "2");
    EXPECT_EQ(ids(" And a.fContent like '%'"), "213");
    EXPECT_EQ(ids(" And a.tDoneMan ='LI'"), "2");
    EXPECT_EQ(ids(" And a.tDoneMan ='li '"), "");
    EXPECT_EQ(ids(" And a.fUser ='wang'"), "21");
    EXPECT_EQ(ids(" And a.fGuest like '%smith%'"), "3");
    EXPECT_EQ(ids(" And a.tDone=2"), "3");
}
TEST_F(ListStatement, JoinsTheCardsForTheCompany) {
    EXPECT_EQ(Rows(kList + " Left Join cards b on a.taskID=b.fID  Where 1=1 And b.CompName like "
                           "'%acme%' Order by a.fType,a.taskTime desc,a.taskTitle"),
              "3|1|2003-03-09 00:00:00|Visit|2|1");
    EXPECT_EQ(Rows(kList + " Left Join cards b on a.taskID=b.fID  Where 1=1 And "
                           "a.tDuring1<=#03/09/2003# and a.tDuring2>=#03/09/2003# And b.CompName "
                           "like '%' Order by a.fType,a.taskTime desc,a.taskTitle"),
              "3|1|2003-03-09 00:00:00|Visit|2|1");
}
TEST_F(ListStatement, ListsPlans) {
    const auto rows =
        Read("select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by taskTitle");
    EXPECT_EQ(rows->Field("fID").ToInt32(), 7);
    rows->MoveNext();
    EXPECT_EQ(rows->Field("taskTitle").ToText(), "月报");
}

TEST_F(ScheduleStatement, FindsCompletedInstances) {
    EXPECT_EQ(Edit("select * from tTaskList where taskID =7 And tDone=1")->Field("fID").ToInt32(),
              2);
}
TEST_F(ScheduleStatement, DeletesAllOrOnlyOpenInstances) {
    EXPECT_EQ(connection_->Execute("delete from tTaskList where taskID =7 And tDone=0"), 1);
    EXPECT_EQ(connection_->Execute("delete from tTaskList where taskID =7"), 1);
}
TEST_F(ScheduleStatement, OpensThePlan) {
    EXPECT_EQ(Edit("select * from tTaskSet where taskID=7")->Field("tEnd"),
              Value(DateTime(2003, 2, 28)));
    EXPECT_TRUE(Edit("select * from tTaskSet where taskID =8")->Eof());
    EXPECT_FALSE(Read("select * from tTaskSet where taskID=7 order by taskID")->Eof());
}
TEST_F(ScheduleStatement, OpensTheTargetUnderAnotherSpelling) {
    EXPECT_FALSE(Edit("select * from tTasklist")->Eof());
}
TEST_F(ScheduleStatement, StampsThePlan) {
    EXPECT_EQ(connection_->Execute("Update tTaskSet Set DoneMan='王五' where taskID=7"), 1);
    EXPECT_EQ(Rows("select DoneMan from tTaskSet where taskID=7"), "王五");
}
TEST_F(ScheduleStatement, FindsTheInstanceOfADate) {
    for (const char* date : {"#03/07/2003#", "'03/07/2003'"}) {
        EXPECT_EQ(Edit("select * from tTasklist where taskID =7 And taskTime = " +
                       std::string(date) + " and tDone=0")
                      ->Field("fID")
                      .ToInt32(),
                  1);
    }
}
TEST_F(ScheduleStatement, FindsTheGreatestPlanNumber) {
    EXPECT_EQ(Read("select max(TaskID) as  MaxID from tTaskSet")->Field("maxID").ToInt32(), 7);
    Execute("delete from tTaskSet");
    EXPECT_TRUE(Read("select max(TaskID) as  MaxID from tTaskSet")->Field("maxID").IsNull());
}
TEST_F(ScheduleStatement, FindsATitle) {
    EXPECT_FALSE(Read("select * from tTaskSet Where taskTitle='audit'")->Eof());
    EXPECT_FALSE(Read("select * from tTaskSet Where taskID=1")->Eof());
}
TEST_F(ScheduleStatement, DeletesAPlanWithItsItems) {
    EXPECT_EQ(connection_->Execute("Delete from tTaskList where taskID =7"), 2);
    EXPECT_EQ(connection_->Execute("Delete from tTaskSet where taskID =7"), 1);
    EXPECT_EQ(connection_->Execute("Delete from tTaskList where fID =3"), 1);
}
TEST_F(ScheduleStatement, ShowsAPlan) {
    EXPECT_EQ(Rows("select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=1"),
              "月报|c1|李四|张三");
}

TEST_F(CardStatement, ShowsACard) {
    EXPECT_EQ(Read("select fID,name,compname,province,cityname,CompAdd,CompCode,telphone,homephone,"
                   "handphone,fax,E_mail,HomeEmail,http,HomeHttp from cards where fID=1")
                  ->Field("E_Mail")
                  .ToText(),
              "");
    EXPECT_FALSE(Read("select * from tTaskList where fID=1")->Eof());
}
TEST_F(CardStatement, ListsCards) {
    const std::string head =
        "select fID,CompCode,compname,name,telphone,homephone,handphone,fax,E_mail,HomeEmail,http,"
        "HomeHttp from cards ";
    const auto first = [&](const std::string& filter) {
        const auto rows = Read(head + filter + " Order by compname,name");
        return rows->Eof() ? std::string("none") : rows->Field("fID").ToText();
    };
    EXPECT_EQ(first(""), "3");
    EXPECT_EQ(first(" Where fid=2"), "2");
    EXPECT_EQ(first(" Where CompCode = 'AB2'"), "2");
    EXPECT_EQ(first(" Where CompCode = 'AB2' And BoxID=3"), "none");
    EXPECT_EQ(first(" Where (CompCode like '%B%' or CompName like '%B%') And CompName <> ''"), "1");
    EXPECT_EQ(first(" Where (CompCode like '%B%' or CompName like '%B%') And CompName <> '' And "
                    "BoxID=3"),
              "1");
    EXPECT_EQ(Rows("select count(*) from cards Where CompCode = 'ab1'"), "1");
}

std::string Anniversary(const std::string& year) {
    return "'" + year +
           "-'+Right('0'+Ltrim(Month(Birthday)),2)+'-'+Right('0'+Ltrim(Day(Birthday)),2)";
}
std::string Birthdays(const std::string& from, const std::string& to) {
    const std::string year = from.substr(0, 4);
    const std::string next = to.substr(0, 4);
    std::string sql = "select CompCode,name,compname,Birthday,fID from cards Where (" +
                      Anniversary(year) + " >= '" + from + "'   AND  " + Anniversary(year) +
                      " <= '" + to + "')";
    if (next > year) {
        sql += " Or (" + Anniversary(next) + " >= '" + from + "' AND " + Anniversary(next) +
               " <= '" + to + "')";
    }
    return sql;
}
TEST_F(BirthdayStatement, FindsTheBirthdaysOfTheComingDays) {
    EXPECT_EQ(Rows(Birthdays("2003-03-07", "2003-03-12")), "AB1|Smith|Acme|1970-03-09 00:00:00|1");
    EXPECT_EQ(Rows(Birthdays("2003-03-09", "2003-03-09")), "AB1|Smith|Acme|1970-03-09 00:00:00|1");
    EXPECT_EQ(Rows(Birthdays("2003-03-10", "2003-03-12")), "");
}
TEST_F(BirthdayStatement, RunsOverNewYear) {
    EXPECT_EQ(Rows(Birthdays("2003-12-28", "2004-01-04")), "AB2|Jones|Beta|1980-01-02 00:00:00|2");
}
TEST_F(BirthdayStatement, TakesTheLeapDayAsItsText) {
    EXPECT_EQ(Rows(Birthdays("2003-02-27", "2003-03-01")), "C|Leap||1976-02-29 00:00:00|3");
}

TEST_F(OtherStatement, LooksAModuleUp) {
    const auto rows = Read(
        "select SerialNo,model_Name,Model_Name_0,SecondPass,password from tSysFunc Where NoUse_=0 "
        "And Model_Name = 'MNUCARDPLAN' or Model_Name_0 = 'mnuCardPlan'");
    EXPECT_EQ(rows->Field("SerialNo").ToInt16(), 12);
    EXPECT_EQ(rows->Field("Model_Name_0").ToText(), "计划");
    EXPECT_EQ(rows->Field("password").ToText(), "pw");
    EXPECT_EQ(
        Rows("select SerialNo,model_Name,Model_Name_1,SecondPass,password from tSysFunc Where "
             "NoUse_=0 And Model_Name = 'old' or Model_Name_1 = 'old'"),
        "13|old|Old||");
}
TEST_F(OtherStatement, ListsStaff) {
    EXPECT_EQ(Rows("select fCode,fName from tRsBasic Order By fName"), "01|a\n02|b");
    EXPECT_EQ(Read("select * from employees order by employcode")->Field("employee").ToText(), "A");
}
TEST_F(OtherStatement, AsksByAllCriteria) {
    EXPECT_EQ(Rows("select taskTitle from tTaskList where 1=1 And fUser like '%wang%' And fType =0 "
                   "and taskTitle like '%rep%' and taskTime between #03/07/2003# and #03/07/2003# "
                   "and tDone= 0 and tDoneMan like '%%' order by taskTime desc,taskTitle"),
              "Report");
    EXPECT_EQ(Rows("select count(*) from tTaskList where 1=1 and taskTime between '03/07/2003' and "
                   "'03/08/2003'"),
              "1");
    EXPECT_FALSE(Read("select * from tTaskList where 1=1 order by taskTime desc,taskTitle")->Eof());
}
TEST_F(OtherStatement, LooksWhetherThereIsSomethingToPrint) {
    const auto rows =
        Read("select top 1 * from tTaskList a Order By a.fType,a.taskTitle,a.taskTime");
    EXPECT_EQ(rows->Field("taskTitle").ToText(), "Audit");
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_FALSE(Read("select top 1 * from tTaskList a where fType=1Order By a.fType")->Eof());
}
TEST_F(OtherStatement, AnOrderMayFollowItsConditionWithoutABlank) {
    const auto first = [&](const std::string& condition) {
        const auto rows = Read("select top 1 * from tTaskList a where " + condition +
                               "Order By a.fType,a.taskTitle");
        return rows->Eof() ? std::string() : rows->Field("fID").ToText();
    };
    EXPECT_EQ(first("fType=0"), "2");
    EXPECT_EQ(first("1=1"), "2");
    EXPECT_EQ(first("a.tDone<>1.0"), "1");
    EXPECT_EQ(first("taskTitle='Visit'"), "3");
    EXPECT_EQ(first("taskTime=#03/09/2003#"), "3");
    EXPECT_EQ(first("(fType=1)"), "3");
    EXPECT_EQ(first("fType=9"), "");
    // Behind a name nothing shows where it ends, there as here.
    EXPECT_EQ(ErrorOf([&] { first("fUser=tDoneMan"); }).Number(), ErrorNumber::DatabaseStatement);
}
TEST_F(OtherStatement, AListOfACompanysItemsNeedsNoJoinOfItsOwn) {
    EXPECT_EQ(Rows("select fID from tTaskList a where a.fID in (select a.fID from tTaskList a  "
                   "Left Join cards b on a.taskID=b.fID  Where 1=1 And b.CompName like '%acm%') "
                   "Order By a.fType,a.taskTime desc,a.taskTitle"),
              "3");
}
TEST_F(OtherStatement, ReadsTheFieldCaptions) {
    EXPECT_EQ(Rows("select FieldName,FieldName_0 from rptListDetail Where fTable='ttasklist' And "
                   "FieldType>-1 Order by fieldID"),
              "fUser|User\nfOther0|Other");
}
TEST_F(OtherStatement, CountsWithAndWithoutFilter) {
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "3");
    EXPECT_EQ(Rows("select count(*) from tTaskList Where tDone=1"), "1");
}

TEST_F(DialectRule, JoinsTextsAndAddsNumbers) {
    EXPECT_EQ(Rows("select 'a'+'b'+'c',1+2,taskTitle+'!',fID+10 from tTaskList where fID=1"),
              "abc|3|Report!|11");
    EXPECT_EQ(Rows("select 'x'+2*3+'y'"), "x6y");
    EXPECT_EQ(Rows("select fContent+null from tTaskList where fID=1"), "");
}
TEST_F(DialectRule, CutsTextsAsTheDialectDoes) {
    EXPECT_EQ(
        Rows("select Right('abc',2),Right('abc',5),Right('abc',0),Left('abc',2),Left('abc',0),"
             "Mid('abc',2),Mid('abc',2,1),substring('abc',1,2),Len('报表')"),
        "bc|abc||ab||bc|b|ab|2");
}
TEST_F(DialectRule, TakesDatesApart) {
    EXPECT_EQ(Rows("select Year(t.taskTime),Month(t.taskTime),Day(t.taskTime),Hour(taskTime),"
                   "Weekday(taskTime),Format(taskTime,'yyyy-mm-dd hh:mm'),Month(#12/31/2003#) from "
                   "tTaskList t where fID=2"),
              "2003|3|8|10|7|2003-03-08 10:00|12");
    EXPECT_EQ(Rows("select Format(7,'000')"), "007");
}
TEST_F(DialectRule, TakesNamesInBrackets) {
    EXPECT_EQ(Rows("select [a].[taskTitle] as [the title] from [tTaskList] as [a] where [fID]=1"),
              "Report");
}
TEST_F(DialectRule, ComparesComputedTextsWithoutRegardToCase) {
    EXPECT_EQ(Rows("select fID from tTaskList where Left(taskTitle,2)='RE'"), "1");
}
TEST_F(DialectRule, ResolvesDoubledApostrophes) {
    EXPECT_EQ(Rows("select 'it''s'"), "it's");
}
TEST_F(DialectRule, StoresDatesOfStatementsInFull) {
    Execute("Update tTaskList Set taskTime='2003-4-5',tDuring1=#4/5/2003 7:08# where fID=1");
    EXPECT_EQ(Rows("select taskTime,tDuring1 from tTaskList where fID=1"),
              "2003-04-05 00:00:00|2003-04-05 07:08:00");
}
TEST_F(DialectRule, UnderstandsSubqueriesAndGroups) {
    EXPECT_EQ(Rows("select fType,count(*) as n from tTaskList group by fType having count(*)>1"),
              "0|2");
    EXPECT_EQ(Rows("select taskTitle from tTaskSet s where exists (select * from tTaskList a where "
                   "a.TaskID=s.TaskID and a.tDone=1) and TaskID in (select TaskID from tTaskList)"),
              "Audit");
    EXPECT_EQ(Rows("select x.n from (select count(*) as n from cards) x"), "4");
    EXPECT_EQ(Rows("select fID from tTaskList where fID in (1,3) and not taskTime in "
                   "(#03/07/2003#) union all select 9"),
              "3\n9");
    EXPECT_EQ(Rows("select case tDone when 1 then 'x' else 'y' end from tTaskList where not tDone=0"
                   " and fGuest is not null order by fID desc"),
              "y\nx");
}

TEST_F(DialectError, NamesThePlaceOfASyntaxError) {
    const auto error = Refused("select fID frm tTaskList");
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
    EXPECT_EQ(error.Text(), "syntax error near \"tTaskList\" at character 16");
    EXPECT_EQ(error.Source(), "SQLite");
    EXPECT_EQ(Refused("select 报表 frm x").Text(), "syntax error near \"x\" at character 15");
    EXPECT_EQ(Refused("select fID from").Text(), "the statement ends too early at character 16");
    EXPECT_EQ(Refused("").Text(), "the statement ends too early at character 1");
}
TEST_F(DialectError, RefusesAnApostropheInsideAName) {
    const auto error = Refused(kList + " Where 1=1 And a.tDoneMan ='O'Brien'");
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
    EXPECT_EQ(error.Text(), "the text that begins here is not closed at character 123");
    EXPECT_EQ(Refused("select * from cards where Name='O'Brien").Text(),
              "syntax error near \"Brien\" at character 35");
    EXPECT_EQ(Refused("select * from cards where Name='D''").Text(),
              "the text that begins here is not closed at character 32");
}
TEST_F(DialectError, RefusesWhatIsNoDate) {
    EXPECT_EQ(Refused("select * from tTaskList a Where a.tDuring1<=##").Text(),
              "\"##\" is not a date at character 45");
    EXPECT_EQ(Refused("select * from tTaskList a Where a.tDuring1<=''").Text(),
              "\"\" is not a date at character 45");
    EXPECT_EQ(Refused("select * from tTaskList Where taskTime=#02/30/2003#").Number(),
              ErrorNumber::DatabaseStatement);
    EXPECT_EQ(Refused("select * from tTaskList Where taskTime='soon'").Number(),
              ErrorNumber::DatabaseStatement);
}
TEST_F(DialectError, RefusesUnknownFunctionsAndWrongArguments) {
    EXPECT_EQ(Refused("select Choose(1,2) from cards").Text(),
              "unknown function \"Choose\" at character 8");
    EXPECT_EQ(Refused("select Right('a') from cards").Text(),
              "wrong number of arguments of \"Right\" at character 8");
}
TEST_F(DialectError, ReportsMissingTablesAndColumns) {
    const auto table = Refused("select * from nowhere");
    EXPECT_EQ(table.Number(), ErrorNumber::DatabaseTable);
    EXPECT_EQ(table.Text(), "no such table: nowhere at character 15");
    const auto column = Refused("select a.fID,a.nothing from tTaskList a");
    EXPECT_EQ(column.Number(), ErrorNumber::DatabaseColumn);
    EXPECT_EQ(column.Text(), "no such column: a.nothing at character 16");
    EXPECT_EQ(ErrorOf([&] { Execute("insert into cards(nothing) values(1)"); }).Number(),
              ErrorNumber::DatabaseColumn);
}
TEST_F(DialectError, RefusesASecondStatement) {
    EXPECT_EQ(ErrorOf([&] { Execute("delete from cards; delete from tTaskSet"); }).Text(),
              "syntax error near \"delete\" at character 20");
    EXPECT_EQ(connection_->Execute("delete from cards;"), 4);
}
TEST_F(DialectError, RefusesStatementsOfTheEngineItself) {
    for (const char* sql : {"pragma journal_mode=delete", "attach 'x' as y", "select 1 /* x */",
                            "select \"fID\" from cards", "vacuum", "begin"}) {
        EXPECT_EQ(ErrorOf([&] { Execute(sql); }).Number(), ErrorNumber::DatabaseStatement) << sql;
    }
}
TEST(DialectFuzz, SurvivesArbitraryBytes) {
    const std::string statements[] = {
        Birthdays("2003-12-28", "2004-01-04"),
        kList +
            " Left Join cards b on a.taskID=b.fID  Where 1=1 And a.tDuring1<=#03/09/2003# and "
            "a.tDuring2>=#03/07/2003# And b.CompName like '%x%' Order by a.fType",
        "insert into tTaskList([taskTitle],taskTime) values('it''s',#03/07/2003#),(null,-1.5e3)",
        "Update tTaskSet Set DoneMan='x',tEnd='03/07/2003' where not taskID in (1,2) or x is null"};
    dialect::SchemaInfo schema;
    schema.windowIndex = engines::Of("sqlite").facts->WindowIndex();
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) {
        return static_cast<std::size_t>(random() % limit);
    };
    int understood = 0;
    for (int i = 0; i < 3000; i++) {
        std::string sql = statements[below(std::size(statements))];
        for (std::size_t n = below(4); n > 0; n--) {
            const std::size_t at = below(sql.size());
            const std::string& other = statements[below(std::size(statements))];
            switch (below(4)) {
                case 0:
                    sql[at] = static_cast<char>(below(256));
                    break;
                case 1:
                    sql.erase(at, below(9));
                    break;
                case 2:
                    sql.insert(at, other.substr(below(other.size()), below(20)));
                    break;
                default:
                    sql.resize(at);
                    break;
            }
            if (sql.empty()) sql = "'";
        }
        try {
            dialect::Translate(sql, schema, *engines::Of("sqlite").dialect);
            understood++;
        } catch (const RuntimeError& error) {
            ASSERT_EQ(error.Number(), ErrorNumber::DatabaseStatement) << sql;
            ASSERT_NE(error.Text().find(" at character "), std::string::npos) << error.Text();
        }
    }
    EXPECT_GT(understood, 600);
    EXPECT_LT(understood, 2900);
}
TEST_F(DialectError, SurvivesDeepNesting) {
    const std::string deep = "select " + std::string(100000, '(') + "1";
    EXPECT_EQ(Refused(deep).Number(), ErrorNumber::DatabaseStatement);
    EXPECT_EQ(Refused("select " + std::string(100000, '-') + "1").Number(),
              ErrorNumber::DatabaseStatement);
    std::string nots = "select 1 where ";
    for (int i = 0; i < 50000; i++) nots += "not ";
    EXPECT_EQ(Refused(nots + "1=1").Number(), ErrorNumber::DatabaseStatement);
}

// The ODBC driver for the embedded engine has two weaknesses that the translation makes up for.
TEST(DialectOverOdbc, NamesCannotBeTakenForTexts) {
    EXPECT_EQ(dialect::Translate("select fID from tTaskList a where a.fID=1", {},
                                 *engines::Of("sqlite").driverDialect)
                  .sql,
              "select [fID] from [tTaskList] as [a] where [a].[fID]=1");
}

TEST(DialectOverOdbc, TextsBeyondTheBasicPlaneAreMadeFromTheirCodes) {
    const auto where = [](const std::string& literal) {
        return dialect::Translate("select fID from t where a='" + literal + "'", {},
                                  *engines::Of("sqlite").driverDialect)
            .sql;
    };
    EXPECT_EQ(where("a😀"), "select [fID] from [t] where [a]=char(97,128512)");
    EXPECT_EQ(where("任务"), "select [fID] from [t] where [a]='任务'");
}

}  // namespace
}  // namespace zv::store
