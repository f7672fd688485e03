// What the functions and operators of the dialect become in the words of each engine. That these
// mean the same is tested on the engines.
#include <gtest/gtest.h>

#include "base/errors.h"
#include "store/dialect/translator.h"
#include "store/engines/engines.h"

namespace zv::store::dialect {
namespace {

/// A number, a text, a date, and a column of which nothing is known.
SchemaInfo Columns() {
    SchemaInfo schema;
    schema.AddColumn("n", "int");
    schema.AddColumn("t", "citext");
    schema.AddColumn("d", "timestamp");
    return schema;
}

/// Without the quotes of names.
std::string Written(const char* engine, const std::string& sql) {
    std::string text = Translate(sql, Columns(), *engines::Of(engine).dialect).sql;
    std::erase(text, '"');
    return text;
}

std::string Refusal(const char* engine, const std::string& sql) {
    try {
        return "none: " + Written(engine, sql);
    } catch (const RuntimeError& error) {
        return error.Text();
    }
}

struct Case {
    const char* dialect;
    const char* sqlite;
    const char* postgresql;
};

void ExpectShown(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        const std::string sql = std::string("select ") + each.dialect;
        EXPECT_EQ(Written("sqlite", sql), std::string("select ") + each.sqlite) << each.dialect;
        EXPECT_EQ(Written("postgresql", sql), std::string("select ") + each.postgresql)
            << each.dialect;
    }
}

void ExpectAsked(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        const std::string sql = std::string("select 1 where ") + each.dialect;
        EXPECT_EQ(Written("sqlite", sql), std::string("select 1 where ") + each.sqlite)
            << each.dialect;
        EXPECT_EQ(Written("postgresql", sql), std::string("select 1 where ") + each.postgresql)
            << each.dialect;
    }
}

TEST(WrittenFunctions, TakeDatesApart) {
    ExpectShown({
        {"Year(d)", "cast(substr(d,1,4) as integer)", "extract(year from d)::integer"},
        {"Month(d)", "cast(substr(d,6,2) as integer)", "extract(month from d)::integer"},
        {"Day(d)", "cast(substr(d,9,2) as integer)", "extract(day from d)::integer"},
        {"Hour(d)", "cast(substr(d,12,2) as integer)", "extract(hour from d)::integer"},
        {"Minute(d)", "cast(substr(d,15,2) as integer)", "extract(minute from d)::integer"},
        {"Second(d)", "cast(substr(d,18,2) as integer)", "trunc(extract(second from d))::integer"},
        {"Weekday(d)", "(cast(strftime('%w',d) as integer)+1)", "(extract(dow from d)::integer+1)"},
        {"Year(t)", "cast(substr(t,1,4) as integer)", "extract(year from t::timestamp)::integer"},
        {"Year(u)", "cast(substr(u,1,4) as integer)", "extract(year from u::timestamp)::integer"},
    });
}
TEST(WrittenFunctions, ReadALiteralWhereADateIsMeant) {
    ExpectShown({
        {"Month('3/7/2003')", "cast(substr('2003-03-07 00:00:00',6,2) as integer)",
         "extract(month from timestamp '2003-03-07 00:00:00')::integer"},
        {"Weekday('3/7/2003')", "(cast(strftime('%w','2003-03-07 00:00:00') as integer)+1)",
         "(extract(dow from timestamp '2003-03-07 00:00:00')::integer+1)"},
        {"CDate('3/7/2003')", "datetime('2003-03-07 00:00:00')",
         "timestamp '2003-03-07 00:00:00'::timestamp(0)"},
        {"Format('3/7/2003','dd')", "(substr('2003-03-07 00:00:00',9,2))",
         "to_char(timestamp '2003-03-07 00:00:00','DD')::citext"},
    });
    for (const char* engine : {"sqlite", "postgresql"}) {
        for (const char* call :
             {"Day('soon')", "Weekday('soon')", "CDate('soon')", "Format('soon','yyyy')"}) {
            EXPECT_EQ(Refusal(engine, std::string("select ") + call).substr(0, 20),
                      "\"soon\" is not a date")
                << call;
        }
    }
}
TEST(WrittenFunctions, CutTextsOfAnything) {
    ExpectShown({
        {"Left(t,2)", "substr(t,1,max(0,2))", "left(t::text,2)::citext"},
        {"Left(u,2)", "substr(u,1,max(0,2))", "left(u,2)::citext"},
        {"Left(n,n)", "substr(n,1,max(0,n))",
         "left(n::text,greatest(n::integer,0*n::integer))::citext"},
        {"Left(t,'2')", "substr(t,1,max(0,'2'))",
         "left(t::text,greatest((2)::integer,0*(2)::integer))::citext"},
        {"Right(t,2)", "substr(t,-max(0,2),max(0,2))", "right(t::text,2)::citext"},
        {"Right(d,'2')", "substr(d,-max(0,'2'),max(0,'2'))",
         "right(to_char(d,'YYYY-MM-DD HH24:MI:SS'),greatest((2)::integer,0*(2)::integer))"
         "::citext"},
        {"Mid(t,2)", "substr(t,2)", "substr(t::text,2)::citext"},
        {"Mid(n,n,'1')", "substr(n,n,'1')", "substr(n::text,n,(1))::citext"},
        {"substring(t,'2',3)", "substr(t,'2',3)", "substr(t::text,(2),3)::citext"},
        {"Trim(n)", "trim(n)", "trim(n::text)::citext"},
        {"LTrim(t)", "ltrim(t)", "ltrim(t::text)::citext"},
        {"RTrim(t)", "rtrim(t)", "rtrim(t::text)::citext"},
        {"UCase(t)", "upper(t)", "upper(t::text)::citext"},
        {"Upper(t)", "upper(t)", "upper(t::text)::citext"},
        {"LCase(t)", "lower(t)", "lower(t::text)::citext"},
        {"Lower(t)", "lower(t)", "lower(t::text)::citext"},
        {"Replace(t,n,'b')", "replace(t,n,'b')", "replace(t::text,n::text,'b')::citext"},
        {"Len(t)", "length(t)", "length(t::text)"},
        {"Len(n)", "length(n)", "length(n::text)"},
        {"InStr(t,'x')", "instr(lower(t),lower('x'))", "strpos(lower(t::text),lower('x'))"},
        {"InStr('x',n)", "instr(lower('x'),lower(n))", "strpos(lower('x'),lower(n::text))"},
    });
}
TEST(WrittenFunctions, ConvertValues) {
    ExpectShown({
        {"CStr(n)", "cast(n as text)", "n::text::citext"},
        {"CStr('x')", "cast('x' as text)", "'x'::text::citext"},
        {"CStr(u)", "cast(u as text)", "u::text::citext"},
        {"CInt(n)", "cast(round(n) as integer)", "round(n::numeric)::integer"},
        {"CLng('2')", "cast(round('2') as integer)", "round((2)::numeric)::integer"},
        {"CDbl(t)", "cast(t as real)", "t::numeric::double precision"},
        {"CDbl(n)", "cast(n as real)", "n::double precision"},
        {"Val(t)", "cast(t as real)",
         R"(coalesce(substring(t::text from '^ *([-+]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))')::double )"
         R"(precision,0))"},
        {"Val('12 a')", "cast('12 a' as real)",
         R"(coalesce(substring('12 a'::text from '^ *([-+]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))'))"
         R"(::double precision,0))"},
        {"CDate(d)", "datetime(d)", "d::timestamp(0)"},
        {"CDate(t)", "datetime(t)", "t::timestamp::timestamp(0)"},
        {"Abs(n)", "abs(n)", "abs(n)"},
        {"Abs('-3')", "abs('-3')", "abs((-3))"},
        {"Round(n)", "round(n)", "round(n::numeric)::double precision"},
        {"Round('1.25','1')", "round('1.25','1')",
         "round((1.25)::numeric,(1)::integer)::double precision"},
        {"Now()", "datetime('now','localtime')", "localtimestamp(0)"},
        {"GetDate()", "datetime('now','localtime')", "localtimestamp(0)"},
        {"Date()", "datetime('now','localtime','start of day')", "current_date::timestamp"},
    });
}
TEST(WrittenFunctions, ChooseAmongValuesOfOneKind) {
    ExpectShown({
        {"IsNull(t)", "(t is null)", "(t is null)::integer"},
        {"IsNull(n+1)", "(n + 1 is null)", "(n + 1 is null)::integer"},
        {"IsNull(t,'-')", "ifnull(t,'-')", "coalesce(t,'-')::citext"},
        {"IsNull(n,'-')", "ifnull(n,'-')", "coalesce(n::text,'-')::citext"},
        {"Nz(t)", "ifnull(t,'')", "coalesce(t,'')::citext"},
        {"Nz(n)", "ifnull(n,'')", "coalesce(n::text,'')::citext"},
        {"Nz(n,0)", "ifnull(n,0)", "coalesce(n,0)"},
        {"Nz(u,0)+1", "ifnull(u,0) + 1", "coalesce(u,0) + 1"},
        {"coalesce(n,t,t)", "coalesce(n,t,t)", "coalesce(n::text,t::text,t::text)::citext"},
        {"coalesce(u,u)", "coalesce(u,u)", "coalesce(u,u)"},
        {"IIf(n,u,'x')", "iif(n,u,'x')", "case when n<>0 then u else 'x' end::citext"},
        {"coalesce(n,u,2)", "coalesce(n,u,2)", "coalesce(n,u,2)"},
        {"coalesce(t,n)", "coalesce(t,n)", "coalesce(t::text,n::text)::citext"},
        {"IIf(n,t,'x')", "iif(n,t,'x')", "case when n<>0 then t else 'x' end::citext"},
        {"IIf(n=1,n,'x')", "iif(n=1,n,'x')", "case when n=1 then n::text else 'x' end::citext"},
        {"IIf('1',n,2)", "iif('1',n,2)", "case when (1)<>0 then n else 2 end"},
        {"case when n=1 then n else t end", "case when n=1 then n else t end",
         "case when n=1 then n::text else t::text end::citext"},
        {"case n when '1' then 2 when 3 then 4 end", "case n when '1' then 2 when 3 then 4 end",
         "case n when (1) then 2 when 3 then 4 end"},
        {"case Left(t,1) when 'a' then 1 else 2 end",
         "case substr(t,1,max(0,1)) collate nocase when 'a' then 1 else 2 end",
         "case left(t::text,1)::citext when 'a' then 1 else 2 end"},
    });
}
TEST(WrittenFunctions, CountAndSum) {
    ExpectShown({
        {"count(*)", "count(*)", "count(*)"},
        {"count(distinct t)", "count(distinct t)", "count(distinct t)"},
        {"count(Left(t,1))", "count(substr(t,1,max(0,1)))", "count(left(t::text,1)::citext)"},
        {"sum(n=1)", "sum(n=1)", "sum((n=1)::integer)"},
        {"sum(t)", "sum(t)", "sum(t::numeric)"},
        {"avg(n)", "avg(n)", "avg(n)::double precision"},
        {"avg(t)", "avg(t)", "avg(t::numeric)::double precision"},
        {"max(t)", "max(t)", "max(t)::citext"},
        {"min(d)", "min(d)", "min(d)"},
    });
    EXPECT_EQ(Written("postgresql", "select 1 where max(d)='3/7/2003' and min(d)='3/8/2003'"),
              "select 1 where max(d)=timestamp '2003-03-07 00:00:00' and min(d)=timestamp "
              "'2003-03-08 00:00:00'");
}
TEST(WrittenFunctions, FormatDatesByTheLettersOfTheFormat) {
    ExpectShown({
        {"Format(d,'yyyy-mm-dd')", "(substr(d,1,4)||'-'||substr(d,6,2)||'-'||substr(d,9,2))",
         "to_char(d,'YYYY-MM-DD')::citext"},
        {"Format(d,'HH:MM:SS')", "(substr(d,12,2)||':'||substr(d,15,2)||':'||substr(d,18,2))",
         "to_char(d,'HH24:MI:SS')::citext"},
        {"Format(d,'mmdd')", "(substr(d,6,2)||substr(d,9,2))", "to_char(d,'MMDD')::citext"},
        {"Format(d,'hhnn')", "(substr(d,12,2)||substr(d,15,2))", "to_char(d,'HH24MI')::citext"},
        // Only right behind the hours do these letters stand for minutes.
        {"Format(d,'hh dd mm')", "(substr(d,12,2)||' '||substr(d,9,2)||' '||substr(d,6,2))",
         "to_char(d,'HH24 DD MM')::citext"},
        {"Format(d,'dd, ''1''/')", "(substr(d,9,2)||', ''1''/')",
         "to_char(d,'DD, ''1''/')::citext"},
    });
    // What stands between the fields is quoted, so that no letter of a format is taken for a field.
    EXPECT_EQ(Translate(R"(select Format(d,'{"\}yyyy') from t)", Columns(),
                        *engines::Of("postgresql").dialect)
                  .sql,
              R"(select to_char("d",'"{\"\\}"YYYY')::citext from "t")");
    for (const char* engine : {"sqlite", "postgresql"}) {
        EXPECT_EQ(Refusal(engine, "select Format(d,'yyyy q')"),
                  "unknown format \"yyyy q\" at character 17");
        EXPECT_EQ(Refusal(engine, "select Format(d,'a')"), "unknown format \"a\" at character 17");
        EXPECT_EQ(Refusal(engine, "select Format(d,'z')"), "unknown format \"z\" at character 17");
        EXPECT_EQ(Refusal(engine, "select Format(d,'')"), "the format is empty at character 17");
        EXPECT_EQ(Refusal(engine, "select Format(d,t)"), "a format must be a text at character 17");
    }
}
TEST(WrittenFunctions, PadNumbersWithAsManyNoughtsAsTheFormatHas) {
    ExpectShown({
        {"Format(n,'000')", "printf('%03d',n)",
         "to_char(n::numeric,'FM999999999999999999999999999000')::citext"},
        {"Format('7','0')", "printf('%01d','7')",
         "to_char((7)::numeric,'FM999999999999999999999999999990')::citext"},
        {"Format(n,'0000000000000000000')", "printf('%019d',n)",
         "to_char(n::numeric,'FM999999999990000000000000000000')::citext"},
        // Twenty are a text around no field.
        {"Format(d,'00000000000000000000')", "('00000000000000000000')",
         "to_char(d,'00000000000000000000')::citext"},
    });
}
TEST(WrittenFunctions, RefuseWhatIsNoNumberWhereTheEngineInsistsOnOne) {
    for (const char* call :
         {"Left(t,'x')", "Right(t,'x')", "Mid(t,'x')", "Mid(t,1,'x')", "CInt('x')", "CDbl('x')",
          "Abs('x')", "Round('x')", "Round(1,'x')", "sum('x')", "avg('x')", "IIf('x',1,2)",
          "Format('x','00')", "-'x'", "1*'x'", "'x'/2", "1-'x'", "'x'-1"}) {
        EXPECT_EQ(Refusal("postgresql", std::string("select ") + call).substr(0, 19),
                  "\"x\" is not a number")
            << call;
    }
    // What a program reads as a number need not be one for a server.
    EXPECT_EQ(Refusal("postgresql", "select Abs('1-2')").substr(0, 21), "\"1-2\" is not a number");
    EXPECT_EQ(Refusal("postgresql", "select Abs('')").substr(0, 18), "\"\" is not a number");
    EXPECT_EQ(Refusal("postgresql", "select Abs('1,000')").substr(0, 23),
              "\"1,000\" is not a number");
    EXPECT_EQ(Written("postgresql", "select Abs(' +1.5E-3 ')"), "select abs((+1.5E-3))");
}
TEST(WrittenFunctions, AreKnownByNameAndNumberOfArguments) {
    for (const char* engine : {"sqlite", "postgresql"}) {
        EXPECT_EQ(Refusal(engine, "select 1,Choose(1)"),
                  "unknown function \"Choose\" at character 10");
        for (const char* call : {"Right('a')", "Right('a',1,2)", "Now(1)", "coalesce(1)"}) {
            EXPECT_EQ(Refusal(engine, std::string("select ") + call).substr(0, 28),
                      "wrong number of arguments of")
                << call;
        }
    }
}

TEST(WrittenOperators, AddNumbersAndJoinTexts) {
    ExpectShown({
        {"n+1-2", "(n + 1) - 2", "(n + 1) - 2"},
        {"n-(1-2)", "n - (1 - 2)", "n - (1 - 2)"},
        {"n*2/3%4", "((n*2)/3)%4", "((n*2)/3)%4"},
        {"(n+1)*2", "(n + 1)*2", "(n + 1)*2"},
        {"- -n", "(- (- n))", "(- (- n))"},
        {"-(n+1)", "(- (n + 1))", "(- (n + 1))"},
        {"-'5'", "(- '5')", "(- (5))"},
        {"n+'5'", "n||'5'", "(n::text||'5')::citext"},
        {"t+n", "t||n", "(t::text||n::text)::citext"},
        {"t+n*2", "t||(n*2)", "(t::text||(n*2)::text)::citext"},
        {"t+d", "t||d", "(t::text||to_char(d,'YYYY-MM-DD HH24:MI:SS'))::citext"},
        {"(n=1)+'x'", "(n=1)||'x'", "((n=1)::integer::text||'x')::citext"},
        {"+n", "(+ n)", "(+ n)"},
        {"'5'-1", "'5' - 1", "(5) - 1"},
        {"'6'/'2'", "'6'/'2'", "(6)/(2)"},
        {"(n=1)+1", "(n=1) + 1", "(n=1)::integer + 1"},
        {"n=1", "n=1", "(n=1)::integer"},
        {"null", "null", "null"},
    });
    for (const char* engine : {"sqlite", "postgresql"}) {
        for (const char* sum : {"d+1", "1+d", "d-d", "1-d"}) {
            EXPECT_EQ(Refusal(engine, std::string("select ") + sum),
                      "dates cannot be added or subtracted at character 9")
                << sum;
        }
    }
}
TEST(WrittenOperators, CompareSidesOfOneKind) {
    ExpectAsked({
        {"n=1", "n=1", "n=1"},
        {"n<>'1'", "n<>'1'", "n<>(1)"},
        {"'1'<n", "'1'<n", "(1)<n"},
        {"t>=1", "t>=1", "t>=1::text::citext"},
        {"n=t", "n=t", "n::text::citext=t"},
        {"d<='3/7/2003'", "d<='2003-03-07 00:00:00'", "d<=timestamp '2003-03-07 00:00:00'"},
        {"'3/7/2003'<d", "'2003-03-07 00:00:00'<d", "timestamp '2003-03-07 00:00:00'<d"},
        {"d=t", "d=t", "to_char(d,'YYYY-MM-DD HH24:MI:SS')::citext=t"},
        {"'a'='A'", "'a'='A' collate nocase", "'a'::citext='A'"},
        {"'a'=t", "'a'=t", "'a'=t"},
        {"n=(select max(n) from x)", "n=(select max(n) from x)", "n=(select max(n) from x)"},
        {"t='A'", "t='A'", "t='A'"},
        {"Left(t,1)='A'", "substr(t,1,max(0,1))='A' collate nocase", "left(t::text,1)::citext='A'"},
        {"n+1=2*(n-1)", "n + 1=2*(n - 1)", "n + 1=2*(n - 1)"},
        {"(n=1)=(t='a')", "(n=1)=(t='a')", "(n=1)::integer=(t='a')::integer"},
        {"u='a'", "u='a'", "u='a'"},
    });
}
TEST(WrittenOperators, TestValues) {
    ExpectAsked({
        {"n is null", "n is null", "n is null"},
        {"t is not null", "t is not null", "t is not null"},
        {"(n=1) is null", "(n=1) is null", "(n=1)::integer is null"},
        {"t like 'a%'", "t like 'a%'", "t ilike 'a%' escape ''"},
        {"n not like '1%'", "n not like '1%'", "n::text not ilike '1%' escape ''"},
        {"t like n", "t like n", "t ilike n::text escape ''"},
        {"t+'x' like 'a'+'b'", "t||'x' like 'a'||'b'", "(t::text||'x') ilike ('a'||'b') escape ''"},
        {"n between '1' and 3", "n between '1' and 3", "n between (1) and 3"},
        {"n not between 1 and '3'", "n not between 1 and '3'", "n not between 1 and (3)"},
        {"Left(t,1) between 'a' and 'b'", "substr(t,1,max(0,1)) collate nocase between 'a' and 'b'",
         "left(t::text,1)::citext between 'a' and 'b'"},
        {"d between '3/7/2003' and #3/8/2003#",
         "d between '2003-03-07 00:00:00' and '2003-03-08 00:00:00'",
         "d between timestamp '2003-03-07 00:00:00' and timestamp '2003-03-08 00:00:00'"},
        {"n in (1,'2')", "n in (1,'2')", "n in (1,(2))"},
        {"'1' in (n,'2')", "'1' collate nocase in (n,'2')", "(1) in (n,(2))"},
        {"Left(t,1) not in ('a','b')", "substr(t,1,max(0,1)) collate nocase not in ('a','b')",
         "left(t::text,1)::citext not in ('a','b')"},
        {"n in (select n from x)", "n in (select n from x)", "n in (select n from x)"},
        {"(n=1) in (select n from x)", "(n=1) in (select n from x)",
         "(n=1)::integer in (select n from x)"},
        {"exists(select 1 from x)", "exists(select 1 from x)", "exists(select 1 from x)"},
    });
}
TEST(WrittenOperators, JoinConditionsAndPutParenthesesWhereTheTreeNeedsThem) {
    ExpectAsked({
        {"n=1 and n=2 and n=3", "n=1 and n=2 and n=3", "n=1 and n=2 and n=3"},
        {"n=1 or n=2 and n=3", "n=1 or n=2 and n=3", "n=1 or n=2 and n=3"},
        {"(n=1 or n=2) and n=3", "(n=1 or n=2) and n=3", "(n=1 or n=2) and n=3"},
        {"not n=1 and not (n=2 or n=3)", "not n=1 and not (n=2 or n=3)",
         "not n=1 and not (n=2 or n=3)"},
        {"not not n=1", "not not n=1", "not not n=1"},
        {"n", "n", "n<>0"},
        {"not n and u", "not n and u", "not n<>0 and u"},
        {"t or '1'", "t or '1'", "t::numeric<>0 or (1)<>0"},
    });
}

TEST(WrittenStatements, StoreWhatTheColumnTakes) {
    const std::string sql = "update x set n='5',t=d,d='3/7/2003',u=(n=1),n=t,n=n+1 where n='6'";
    EXPECT_EQ(Written("sqlite", sql),
              "update x set n='5',t=d,d='2003-03-07 00:00:00',u=(n=1),n=t,n=n + 1 where n='6'");
    // A literal is left to the server, which knows what its column takes.
    EXPECT_EQ(Written("postgresql", sql),
              "update x set n='5',t=to_char(d,'YYYY-MM-DD HH24:MI:SS'),d=timestamp "
              "'2003-03-07 00:00:00',u=(n=1)::integer,n=t::numeric,n=n + 1 where n=(6)");
    EXPECT_EQ(Written("postgresql", "update x set u=d,n=d,n=u,t=n"),
              "update x set u=d,n=d,n=u,t=n");
    const std::string insert = "insert into x(n,t,d) values('5',d,'3/7/2003'),(t,n,d)";
    EXPECT_EQ(Written("sqlite", insert),
              "insert into x(n,t,d) values('5',d,'2003-03-07 00:00:00'),(t,n,d)");
    EXPECT_EQ(Written("postgresql", insert),
              "insert into x(n,t,d) values('5',to_char(d,'YYYY-MM-DD HH24:MI:SS'),timestamp "
              "'2003-03-07 00:00:00'),(t::numeric,n,d)");
}
TEST(WrittenStatements, SayWhereNothingStandsInAnOrder) {
    const std::string sql = "select n from x order by n=1,'x' desc,t,d desc";
    EXPECT_EQ(Written("sqlite", sql), "select n from x order by n=1,'x' desc,t,d desc");
    EXPECT_EQ(Written("postgresql", sql),
              "select n from x order by (n=1)::integer nulls first,lower('x'::text) desc nulls "
              "last,lower(t) nulls first,d desc nulls last");
}
TEST(WrittenStatements, KeepTheirParts) {
    struct Given {
        const char* sql;
        const char* written;
    };
    for (const Given& each : std::vector<Given>{
             {"select all n from x", "select n from x"},
             {"select distinctrow n from x", "select distinct n from x"},
             {"select top 5 n from x order by n asc", "select n from x order by n limit 5"},
             {"select top from x", "select top from x"},
             {"select x.*,n m,n as o from x", "select x.*,n as m,n as o from x"},
             {"select * from x a,y b cross join z", "select * from x as a,y as b cross join z"},
             {"select * from x left outer join y on n=1 right join z on n=2 full outer join w on "
              "n=3",
              "select * from x left join y on n=1 right join z on n=2 full join w on n=3"},
             {"select * from x inner join y on n=1 join z on n=2",
              "select * from x join y on n=1 join z on n=2"},
             {"select * from (x join y on n=1) join z on n=2",
              "select * from (x join y on n=1) join z on n=2"},
             {"select n,count(*) from dbo.x group by n,t having count(*)>1",
              "select n,count(*) from x group by n,t having count(*)>1"},
             {"select n from x union all select n from y union select n from z order by 1 desc",
              "select n from x union all select n from y union select n from z order by 1 desc"},
             {"insert into x select n from y", "insert into x select n from y"},
             {"insert into x values(1,'a')", "insert into x values(1,'a')"},
             {"insert into x(n) values(1),(2)", "insert into x(n) values(1),(2)"},
             {"delete * from x where n=1", "delete from x where n=1"},
             {"delete from x;", "delete from x"},
             {"drop table dbo.x", "drop table x"},
             {"select dbo.x.n,x.t,dbo.t from dbo.x", "select x.n,x.t,dbo.t from x"},
         }) {
        EXPECT_EQ(Written("sqlite", each.sql), each.written);
    }
}
TEST(WrittenStatements, WhatIsNoneIsRefusedWithItsPlace) {
    struct Given {
        const char* sql;
        const char* refusal;
    };
    for (const Given& each : std::vector<Given>{
             {"", "the statement ends too early at character 1"},
             {"begin", "syntax error near \"begin\" at character 1"},
             {"select 1 2", "syntax error near \"2\" at character 10"},
             {"select 1;2", "syntax error near \"2\" at character 10"},
             {"select top 1.5 n from x", "\"top\" takes a whole number at character 12"},
             {"select top 1234567890 n from x", "\"top\" takes a whole number at character 12"},
             {"select top 1 n from x union select n from y",
              "syntax error near \"union\" at character 23"},
             {"select n from x union select top 1 n from y",
              "the statement ends too early at character 44"},
             {"select a.b.c.d from x", "the name has too many parts at character 8"},
             {"select a.b.c from x", "the name has too many parts at character 8"},
             {"select max(*) from x", "syntax error near \"*\" at character 12"},
             {"select case 1 end", "syntax error near \"end\" at character 15"},
             {"insert into x(n) values(1,2)",
              "the number of values differs from the number of columns at character 24"},
             {"insert into x(n,t) values(1,2),(3)",
              "the number of values differs from the number of columns at character 32"},
             {"select from x", "syntax error near \"from\" at character 8"},
             {"select n from x where", "the statement ends too early at character 22"},
             {"update x set n 1", "syntax error near \"1\" at character 16"},
             {"select n not 1", "syntax error near \"not\" at character 10"},
             {"select /1", "syntax error near \"/\" at character 8"},
             {"select and(1)", "syntax error near \"and\" at character 8"},
             {"select n is 1", "syntax error near \"1\" at character 13"},
             {"select n from x left y", "syntax error near \"y\" at character 22"},
         }) {
        EXPECT_EQ(Refusal("sqlite", each.sql), each.refusal) << each.sql;
    }
}
TEST(WrittenStatements, MayNestAHundredDeepAndNoDeeper) {
    const auto nested = [](std::size_t deep) {
        return "select " + std::string(deep, '(') + "1" + std::string(deep, ')');
    };
    EXPECT_EQ(Written("sqlite", nested(98)), nested(98));
    EXPECT_EQ(Refusal("sqlite", nested(99)), "the statement is nested too deeply at character 107");
    // What is closed again counts no more.
    std::string wide = "select 1";
    for (int i = 0; i < 300; i++) wide += ",(1)";
    EXPECT_EQ(Written("sqlite", wide), wide);
}

}  // namespace
}  // namespace zv::store::dialect
