// How values travel from and to a driver: texts of any length in pieces, columns that cannot be
// bound, values that nobody expects.
#include <gtest/gtest.h>

#include "base/text.h"
#include "scripted_driver.h"
#include "store/odbc/columns.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/diagnostics.h"
#include "store/odbc/parameters.h"
#include "store/odbc/row_reader.h"
#include "store/secrets.h"

namespace zv::store::odbc {
namespace {

using Asked = std::vector<std::pair<int, std::size_t>>;

Column ColumnOf(ColumnType type, SQLULEN size = 20, bool isLong = false, bool isComputed = false) {
    return {"c", type, SQL_WVARCHAR, size, isLong, isComputed};
}

SQL_TIMESTAMP_STRUCT Moment(int year, int month, int day, int hour = 0, int minute = 0,
                            int second = 0) {
    SQL_TIMESTAMP_STRUCT moment{};
    moment.year = static_cast<SQLSMALLINT>(year);
    moment.month = static_cast<SQLUSMALLINT>(month);
    moment.day = static_cast<SQLUSMALLINT>(day);
    moment.hour = static_cast<SQLUSMALLINT>(hour);
    moment.minute = static_cast<SQLUSMALLINT>(minute);
    moment.second = static_cast<SQLUSMALLINT>(second);
    return moment;
}

class Driver : public testing::Test {
 protected:
    Driver() { TheDriver() = {}; }
    ~Driver() override { TheDriver() = {}; }

    /// All values, row by row.
    std::vector<Value> Read(const std::vector<Column>& columns, const ReadingFacts& facts) {
        RowStore rows(static_cast<int>(columns.size()));
        RowReader reader(SQL_NULL_HSTMT, columns, facts);
        EXPECT_TRUE(reader.Bind());
        EXPECT_TRUE(reader.ReadAll(rows));
        std::vector<Value> values;
        while (rows.Advance()) {
            for (int column = 0; column < static_cast<int>(columns.size()); column++) {
                rows.Read(column, values.emplace_back());
            }
        }
        return values;
    }
    /// One text, read by itself.
    std::string ReadLong(const std::u16string& text) {
        driver.rows = {{text}};
        const auto values = Read({ColumnOf(ColumnType::Text, 0, true)}, {});
        return values.size() == 1 && values[0].TextIf() ? *values[0].TextIf() : "no text";
    }

    ScriptedDriver& driver = TheDriver();
};

TEST_F(Driver, ALongTextIsReadInPiecesThatGrowWithWhatIsLeft) {
    const std::u16string text(3'000'000, u'x');
    EXPECT_EQ(ReadLong(text).size(), text.size());
    constexpr std::size_t kMost = std::size_t{1} << 20;
    EXPECT_EQ(driver.asked, (Asked{{1, 4097}, {1, kMost + 1}, {1, kMost + 1}, {1, 898753}}));
}
TEST_F(Driver, APieceHoldsAtLeastFourThousandUnits) {
    EXPECT_EQ(ReadLong(std::u16string(4100, u'x')), std::string(4100, 'x'));
    EXPECT_EQ(driver.asked, (Asked{{1, 4097}, {1, 4097}}));
}
TEST_F(Driver, ATextThatFillsItsPieceIsOver) {
    EXPECT_EQ(ReadLong(std::u16string(4096, u'x')), std::string(4096, 'x'));
    EXPECT_EQ(driver.asked, (Asked{{1, 4097}}));
    driver = {};
    EXPECT_EQ(ReadLong(u""), "");
}
TEST_F(Driver, ADriverThatWillNotCutAPairGivesThePairAgainWithTheNextPiece) {
    driver.cutsPairs = false;
    for (const std::size_t before : {0, 1, 2}) {
        driver = {};
        driver.cutsPairs = false;
        std::u16string text(before, u'a');
        for (int i = 0; i < 5000; i++) text += u"😀";
        EXPECT_EQ(ReadLong(text), text::FromUtf16(text)) << before;
    }
}
TEST_F(Driver, ADriverMayLeaveOpenHowMuchIsLeft) {
    driver.tellsWhatIsLeft = false;
    EXPECT_EQ(ReadLong(std::u16string(10'000, u'x')), std::string(10'000, 'x'));
    EXPECT_EQ(driver.asked, (Asked{{1, 4097}, {1, 4097}, {1, 4097}}));
}
TEST_F(Driver, ATextMayBeOverOnlyWhenThereIsNoMoreOfIt) {
    driver.tellsWhatIsLeft = false;
    driver.endsPiecesWithNoData = true;
    EXPECT_EQ(ReadLong(std::u16string(8192, u'x')), std::string(8192, 'x'));
    EXPECT_EQ(driver.asked.size(), 3U);
}
TEST_F(Driver, ALongTextMayBeNothingOrFail) {
    driver.rows = {{Cell()}};
    const std::vector<Column> columns{ColumnOf(ColumnType::Text, 0, true)};
    EXPECT_TRUE(Read(columns, {}).at(0).IsNull());
    driver = {};
    driver.rows = {{std::u16string(u"a")}};
    driver.failsAtField = 1;
    RowStore rows(1);
    RowReader reader(SQL_NULL_HSTMT, columns, {});
    EXPECT_TRUE(reader.Bind());
    EXPECT_FALSE(reader.ReadAll(rows));
}

TEST_F(Driver, AShortTextIsReadWithItsRow) {
    driver.rows = {{std::u16string(u"a标")}, {std::u16string()}, {Cell()}};
    const auto values = Read({ColumnOf(ColumnType::Text, 20)}, {});
    EXPECT_EQ(values, (std::vector<Value>{Value("a标"), Value(""), Value()}));
    EXPECT_TRUE(driver.asked.empty());
    EXPECT_EQ(driver.columns.at(1).size, 65 * 2);
}
TEST_F(Driver, TheBufferOfATextHasTheSizeOfItsColumn) {
    driver.rows = {{std::u16string(100, u'x')}};
    EXPECT_EQ(Read({ColumnOf(ColumnType::Text, 100)}, {}).at(0), Value(std::string(100, 'x')));
    EXPECT_EQ(driver.columns.at(1).size, 101 * 2);
    EXPECT_TRUE(driver.asked.empty());
}
TEST_F(Driver, WhereBoundColumnsCanBeReadAgainEachHasOneSmallBuffer) {
    ReadingFacts mixes;
    mixes.mixesBound = true;
    driver.rows = {{std::u16string(256, u'x'), std::int64_t{1}},
                   {std::u16string(257, u'y'), std::int64_t{2}},
                   {Cell(), std::int64_t{3}}};
    const std::vector<Column> columns{ColumnOf(ColumnType::Text, 0, true),
                                      ColumnOf(ColumnType::Integer)};
    EXPECT_EQ(Read(columns, mixes),
              (std::vector<Value>{Value(std::string(256, 'x')), Value(1),
                                  Value(std::string(257, 'y')), Value(2), Value(), Value(3)}));
    EXPECT_EQ(driver.columns.at(1).size, 257 * 2);
    EXPECT_EQ(driver.asked, (Asked{{1, 4097}}));
}
TEST_F(Driver, ABoundTextOfUnknownLengthIsReadAgain) {
    ReadingFacts mixes;
    mixes.mixesBound = true;
    driver.tellsWhatIsLeft = false;
    driver.rows = {{std::u16string(300, u'x')}};
    EXPECT_EQ(Read({ColumnOf(ColumnType::Text, 0)}, mixes).at(0), Value(std::string(300, 'x')));
    EXPECT_EQ(driver.asked.size(), 1U);
}
TEST_F(Driver, BehindALongTextEverythingIsReadByItself) {
    const auto moment = Moment(2003, 3, 7, 8, 5, 9);
    driver.rows = {{std::int64_t{1}, std::u16string(u"long"), std::int64_t{2}, 1.5, moment,
                    std::u16string(u"short")},
                   {Cell(), Cell(), Cell(), Cell(), Cell(), Cell()}};
    const std::vector<Column> columns{
        ColumnOf(ColumnType::Integer), ColumnOf(ColumnType::Text, 0, true),
        ColumnOf(ColumnType::Integer), ColumnOf(ColumnType::Real),
        ColumnOf(ColumnType::Date),    ColumnOf(ColumnType::Text)};
    const auto values = Read(columns, {});
    EXPECT_EQ(std::vector<Value>(values.begin(), values.begin() + 6),
              (std::vector<Value>{Value(1), Value("long"), Value(2), Value(1.5),
                                  Value(DateTime(2003, 3, 7, 8, 5, 9)), Value("short")}));
    for (std::size_t i = 6; i < 12; i++) EXPECT_TRUE(values.at(i).IsNull()) << i;
    ASSERT_EQ(driver.columns.size(), 1U);
    EXPECT_EQ(driver.columns.begin()->first, 1);
    std::vector<int> order;
    for (const auto& [column, size] : driver.asked) order.push_back(column);
    EXPECT_EQ(order, (std::vector<int>{2, 3, 4, 5, 6, 2, 3, 4, 5, 6}));
}
TEST_F(Driver, ATextWithoutALimitOrWithAVeryWideOneIsLong) {
    const auto isBound = [&](const Column& column) {
        driver = {};
        driver.rows = {{std::u16string(u"a")}};
        EXPECT_EQ(Read({column}, {}).at(0), Value("a"));
        return driver.columns.size() == 1;
    };
    EXPECT_TRUE(isBound(ColumnOf(ColumnType::Text, 1)));
    EXPECT_TRUE(isBound(ColumnOf(ColumnType::Text, 4000)));
    EXPECT_FALSE(isBound(ColumnOf(ColumnType::Text, 4001)));
    EXPECT_FALSE(isBound(ColumnOf(ColumnType::Text, 0)));
    EXPECT_FALSE(isBound(ColumnOf(ColumnType::Text, 20, true)));
}
TEST_F(Driver, NumbersAndDatesNeedNoLimit) {
    driver.rows = {{std::int64_t{7}, 2.5, Moment(2003, 3, 7)}};
    const std::vector<Column> columns{ColumnOf(ColumnType::Integer, 0, true),
                                      ColumnOf(ColumnType::Real, 0), ColumnOf(ColumnType::Date, 0)};
    EXPECT_EQ(Read(columns, {}),
              (std::vector<Value>{Value(7), Value(2.5), Value(DateTime(2003, 3, 7))}));
    EXPECT_EQ(driver.columns.size(), 3U);
}
TEST_F(Driver, AFailureOfTheDriverIsOne) {
    const std::vector<Column> columns{ColumnOf(ColumnType::Text, 0, true),
                                      ColumnOf(ColumnType::Integer)};
    driver.rows = {{std::u16string(u"a"), std::int64_t{1}},
                   {std::u16string(u"b"), std::int64_t{2}}};
    driver.failsAtRow = 1;
    RowStore rows(2);
    RowReader reader(SQL_NULL_HSTMT, columns, {});
    EXPECT_TRUE(reader.Bind());
    EXPECT_FALSE(reader.ReadAll(rows));
    driver = {};
    driver.rows = {{std::u16string(u"a"), std::int64_t{1}}};
    driver.failsAtField = 2;
    EXPECT_FALSE(RowReader(SQL_NULL_HSTMT, columns, {}).ReadAll(rows));
    driver = {};
    driver.refusesToBind = true;
    for (const ColumnType type :
         {ColumnType::Integer, ColumnType::Real, ColumnType::Date, ColumnType::Text}) {
        EXPECT_FALSE(RowReader(SQL_NULL_HSTMT, {ColumnOf(type)}, {}).Bind());
    }
}
TEST_F(Driver, ADateThatIsNoneIsShownAsItIs) {
    driver.rows = {{Moment(2003, 2, 30, 1, 2, 3)},     {Moment(12, 13, 1)},
                   {Moment(2003, 3, 7, 24)},           {Moment(2003, 3, 7, 0, 60)},
                   {Moment(2003, 3, 7, 0, 0, 60)},     {Moment(2003, 3, 7, 23, 59, 59)},
                   {Moment(12003, 11, 12, 13, 14, 15)}};
    EXPECT_EQ(
        Read({ColumnOf(ColumnType::Date)}, {}),
        (std::vector<Value>{Value("2003-02-30 01:02:03"), Value("0012-13-01 00:00:00"),
                            Value("2003-03-07 24:00:00"), Value("2003-03-07 00:60:00"),
                            Value("2003-03-07 00:00:60"), Value(DateTime(2003, 3, 7, 23, 59, 59)),
                            Value("12003-11-12 13:14:15")}));
}
TEST_F(Driver, DecimalsComeAsTextsAndAreNumbers) {
    driver.rows = {{std::u16string(u"12.00")},
                   {std::u16string(u"12.50")},
                   {std::u16string(u"99999999999999999999")},
                   {std::u16string(u"NaN1")},
                   {std::u16string(u".00")}};
    EXPECT_EQ(Read({ColumnOf(ColumnType::Decimal)}, {}),
              (std::vector<Value>{Value(12), Value(12.5), Value(1e20), Value("NaN1"), Value(0.0)}));
}
TEST_F(Driver, StoredTextsAreWhatTheirColumnSays) {
    ReadingFacts texts;
    texts.readsTexts = true;
    const std::vector<Column> columns{ColumnOf(ColumnType::Integer), ColumnOf(ColumnType::Real),
                                      ColumnOf(ColumnType::Date), ColumnOf(ColumnType::Text),
                                      ColumnOf(ColumnType::Text, 20, false, true)};
    const std::u16string date = u"2003-03-07 00:00:00";
    driver.rows = {{std::u16string(u"7"), std::u16string(u"2"), date, date, date},
                   {std::u16string(u"x"), std::u16string(u"y"), std::u16string(u"soon"),
                    std::u16string(u"t"), std::u16string(u"u")}};
    const auto values = Read(columns, texts);
    const Value day(DateTime(2003, 3, 7));
    EXPECT_EQ(values,
              (std::vector<Value>{Value(7), Value(2.0), day, Value("2003-03-07 00:00:00"), day,
                                  Value("x"), Value("y"), Value("soon"), Value("t"), Value("u")}));
}

TEST(ColumnTypes, FollowTheTypesOfSql) {
    using Types = std::vector<SQLSMALLINT>;
    for (const auto type : Types{SQL_BIT, SQL_TINYINT, SQL_SMALLINT, SQL_INTEGER, SQL_BIGINT}) {
        EXPECT_EQ(TypeOf(type), ColumnType::Integer) << type;
    }
    for (const auto type : Types{SQL_REAL, SQL_FLOAT, SQL_DOUBLE}) {
        EXPECT_EQ(TypeOf(type), ColumnType::Real) << type;
    }
    for (const auto type : Types{SQL_DECIMAL, SQL_NUMERIC}) {
        EXPECT_EQ(TypeOf(type), ColumnType::Decimal) << type;
    }
    for (const auto type : Types{SQL_DATE, SQL_TIMESTAMP, SQL_TYPE_DATE, SQL_TYPE_TIMESTAMP}) {
        EXPECT_EQ(TypeOf(type), ColumnType::Date) << type;
    }
    for (const auto type : Types{SQL_VARCHAR, SQL_WVARCHAR, SQL_TYPE_TIME, SQL_GUID}) {
        EXPECT_EQ(TypeOf(type), ColumnType::Text) << type;
        EXPECT_FALSE(IsLongType(type)) << type;
    }
    for (const auto type : Types{SQL_LONGVARCHAR, SQL_WLONGVARCHAR, SQL_LONGVARBINARY}) {
        EXPECT_TRUE(IsLongType(type)) << type;
    }
}
TEST(ColumnsOfTables, AreFoundInAnyLetterCase) {
    Table table;
    table.columns = {{"fID"}, {"Name"}};
    EXPECT_EQ(table.Find("NAME"), &table.columns[1]);
    EXPECT_EQ(table.Find("nam"), nullptr);
}

class Parameters : public Driver {
 protected:
    const ScriptedDriver::Bound& Bind(const Value& value, ColumnType type, bool isLong = false,
                                      bool datesAsText = false) {
        buffers_ = {};
        driver.parameters.clear();
        EXPECT_TRUE(buffers_.Bind(SQL_NULL_HSTMT, {{value, type, isLong, datesAsText}}));
        EXPECT_EQ(driver.parameters.size(), 1U);
        return driver.parameters.back();
    }
    void ExpectNumber(const ScriptedDriver::Bound& bound, std::int64_t number) {
        EXPECT_EQ(bound.type, SQL_C_SBIGINT);
        EXPECT_EQ(bound.sqlType, SQL_BIGINT);
        EXPECT_EQ(bound.columnSize, 19U);
        EXPECT_NE(*bound.length, SQL_NULL_DATA);
        EXPECT_EQ(*static_cast<const SQLBIGINT*>(bound.data), number);
    }
    void ExpectReal(const ScriptedDriver::Bound& bound, double number) {
        EXPECT_EQ(bound.type, SQL_C_DOUBLE);
        EXPECT_EQ(bound.sqlType, SQL_DOUBLE);
        EXPECT_EQ(bound.columnSize, 15U);
        EXPECT_EQ(*static_cast<const double*>(bound.data), number);
    }
    void ExpectText(const ScriptedDriver::Bound& bound, const std::u16string& text,
                    SQLSMALLINT sqlType = SQL_WVARCHAR) {
        EXPECT_EQ(bound.type, SQL_C_WCHAR);
        EXPECT_EQ(bound.sqlType, sqlType);
        EXPECT_EQ(bound.columnSize, std::max<std::size_t>(text.size(), 1));
        ASSERT_EQ(*bound.length, static_cast<SQLLEN>(text.size() * 2));
        EXPECT_EQ(bound.size, *bound.length);
        EXPECT_EQ(std::u16string(static_cast<const char16_t*>(bound.data), text.size()), text);
    }

 private:
    ParameterBuffers buffers_;
};

TEST_F(Parameters, GoInTheFormThatTheirColumnTakes) {
    ExpectNumber(Bind(Value(7), ColumnType::Integer), 7);
    ExpectReal(Bind(Value(1.5), ColumnType::Real), 1.5);
    ExpectText(Bind(Value("标"), ColumnType::Text), u"标");
    ExpectText(Bind(Value(""), ColumnType::Text), u"");
    ExpectText(Bind(Value(7), ColumnType::Text), u"7");
    ExpectReal(Bind(Value("1.5"), ColumnType::Integer), 1.5);
    ExpectReal(Bind(Value("7"), ColumnType::Decimal), 7);
    ExpectText(Bind(Value("x"), ColumnType::Integer), u"x");
    ExpectReal(Bind(Value(DateTime(2003, 3, 7, 12)), ColumnType::Real), 37687.5);
    ExpectNumber(Bind(Value(7), ColumnType::Date), 7);
    ExpectText(Bind(Value("soon"), ColumnType::Date), u"soon");
}
TEST_F(Parameters, DatesGoAsMomentsOrAsTexts) {
    const DateTime moment(2003, 3, 7, 8, 5, 9);
    for (const Value& value : {Value(moment), Value("2003-03-07 08:05:09")}) {
        const auto& bound = Bind(value, ColumnType::Date);
        EXPECT_EQ(bound.type, SQL_C_TYPE_TIMESTAMP);
        EXPECT_EQ(bound.sqlType, SQL_TYPE_TIMESTAMP);
        EXPECT_EQ(bound.columnSize, 19U);
        const auto& given = *static_cast<const SQL_TIMESTAMP_STRUCT*>(bound.data);
        EXPECT_EQ(
            DateTime(given.year, given.month, given.day, given.hour, given.minute, given.second),
            moment);
        EXPECT_EQ(given.fraction, 0U);
        ExpectText(Bind(value, ColumnType::Date, false, true), u"2003-03-07 08:05:09");
    }
    ExpectText(Bind(Value(moment), ColumnType::Text), u"2003-03-07 08:05:09");
}
TEST_F(Parameters, LongTextsAreSuchByTheirColumnOrTheirLength) {
    ExpectText(Bind(Value("a"), ColumnType::Text, true), u"a", SQL_WLONGVARCHAR);
    ExpectText(Bind(Value(std::string(4000, 'x')), ColumnType::Text), std::u16string(4000, u'x'));
    ExpectText(Bind(Value(std::string(4001, 'x')), ColumnType::Text), std::u16string(4001, u'x'),
               SQL_WLONGVARCHAR);
}
TEST_F(Parameters, NothingHasTheTypeOfItsColumn) {
    struct Case {
        ColumnType type;
        SQLSMALLINT cType;
        SQLSMALLINT sqlType;
        bool isLong = false;
        bool datesAsText = false;
    };
    for (const Case& each :
         std::vector<Case>{{ColumnType::Integer, SQL_C_SBIGINT, SQL_BIGINT},
                           {ColumnType::Decimal, SQL_C_SBIGINT, SQL_BIGINT},
                           {ColumnType::Real, SQL_C_DOUBLE, SQL_DOUBLE},
                           {ColumnType::Date, SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP},
                           {ColumnType::Date, SQL_C_WCHAR, SQL_WVARCHAR, false, true},
                           {ColumnType::Text, SQL_C_WCHAR, SQL_WVARCHAR},
                           {ColumnType::Text, SQL_C_WCHAR, SQL_WLONGVARCHAR, true}}) {
        const auto& bound = Bind(Value(), each.type, each.isLong, each.datesAsText);
        EXPECT_EQ(*bound.length, SQL_NULL_DATA);
        EXPECT_EQ(bound.type, each.cType);
        EXPECT_EQ(bound.sqlType, each.sqlType);
    }
}
TEST_F(Parameters, AreCountedFromOneAndEndWhereTheDriverRefuses) {
    ParameterBuffers buffers;
    EXPECT_TRUE(buffers.Bind(SQL_NULL_HSTMT, {{Value(1), ColumnType::Integer},
                                              {Value("b"), ColumnType::Text},
                                              {Value(), ColumnType::Text}}));
    ASSERT_EQ(driver.parameters.size(), 3U);
    ExpectNumber(driver.parameters[0], 1);
    ExpectText(driver.parameters[1], u"b");
    EXPECT_EQ(*driver.parameters[2].length, SQL_NULL_DATA);
    driver.refusesToBind = true;
    for (const Value& value :
         {Value(1), Value("b"), Value(1.5), Value(DateTime(2003, 3, 7)), Value()}) {
        EXPECT_FALSE(buffers.Bind(SQL_NULL_HSTMT, {{value, ColumnType::Text}}));
    }
    EXPECT_TRUE(buffers.Bind(SQL_NULL_HSTMT, {}));
}

using Diagnostics = Driver;

TEST_F(Diagnostics, AreThoseOfTheFirstRecordThatSaysSomething) {
    const auto diagnose = [&](std::vector<ScriptedDriver::Record> records,
                              bool connecting = false) {
        driver.records = std::move(records);
        return Diagnose(SQL_HANDLE_STMT, SQL_NULL_HANDLE, connecting);
    };
    const Diagnosis one = diagnose({{u"42S02", -7, u"[Vendor]No table."}});
    EXPECT_EQ(one.fault, Fault::Table);
    EXPECT_EQ(one.code.sqlState, "42S02");
    EXPECT_EQ(one.code.native, -7);
    EXPECT_EQ(one.text, "No table.");
    const Diagnosis second = diagnose({{u"01000", 1, u"changed"}, {u"42S22", 2, u"no column"}});
    EXPECT_EQ(second.fault, Fault::Column);
    EXPECT_EQ(second.text, "no column");
    // The first one stays where it says something, or where none does.
    EXPECT_EQ(diagnose({{u"42S02", 1, u"first"}, {u"42S22", 2, u"second"}}).text, "first");
    EXPECT_EQ(diagnose({{u"HY000", 1, u"first"}, {u"HY000", 2, u"second"}}).text, "first");
    EXPECT_EQ(diagnose({{u"HY000", 1, u"a"}, {u"42S02", 2, u"b"}, {u"42S22", 3, u"c"}}).text, "b");
    EXPECT_EQ(diagnose({{u"HYT00", 1, u"late"}}, true).fault, Fault::ServerUnknown);
}
TEST_F(Diagnostics, AreReadWhole) {
    for (const std::size_t size : {511U, 512U, 513U, 3000U}) {
        driver.records = {{u"HY000", 0, std::u16string(size, u'x')}};
        EXPECT_EQ(Diagnose(SQL_HANDLE_STMT, SQL_NULL_HANDLE, false).text, std::string(size, 'x'));
    }
    driver.records = {{u"HY000", 0, u""}};
    EXPECT_EQ(Diagnose(SQL_HANDLE_STMT, SQL_NULL_HANDLE, false).text, "");
}
TEST_F(Diagnostics, AFailureWithoutAnyIsToldAsOne) {
    const Diagnosis diagnosis = Diagnose(SQL_HANDLE_STMT, SQL_NULL_HANDLE, false);
    EXPECT_EQ(diagnosis.fault, Fault::Other);
    EXPECT_EQ(diagnosis.code.sqlState, "HY000");
    EXPECT_EQ(diagnosis.text, "the driver reports a failure without a reason");
}

class Options : public Driver {
 protected:
    std::string Text() const { return OptionsFor(settings).connectionString; }
    Options() {
        settings.kind = 1;
        driver.installed = {u"Other", u"sql server", u"ODBC Driver 17 for SQL Server"};
    }
    ConnectionSettings settings;
};

TEST_F(Options, NameTheBestDriverThatIsInstalled) {
    settings.dataPath = "db:1433";
    EXPECT_EQ(Text(),
              "Driver={ODBC Driver 17 for SQL Server};Server={db,1433};Trusted_Connection=Yes;");
    driver.installed.pop_back();
    EXPECT_EQ(Text(), "Driver={sql server};Server={db,1433};Trusted_Connection=Yes;");
    driver.installed = {u"FreeTDS"};
    EXPECT_EQ(Text(), "Driver={FreeTDS};Server=db;Port=1433;TDS_Version=7.4;");
    settings.dataPath = "db\\instance";
    EXPECT_EQ(Text(), "Driver={FreeTDS};Server=db\\instance;TDS_Version=7.4;");
}
TEST_F(Options, SayWhichDriversWouldDo) {
    driver.installed = {u"Other"};
    settings.dataPath = "postgresql:db";
    try {
        Text();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Text(),
                  "No ODBC driver for PostgreSQL is installed (PostgreSQL Unicode(x64), PostgreSQL "
                  "Unicode, PostgreSQL Unicode(x86), psqlODBC).");
        EXPECT_EQ(error.Kind(), ErrorKind::DriverMissing);
    }
}
TEST_F(Options, FillInLoginPasswordAndDatabaseWhereTheyAreKnown) {
    settings.dataPath = "Driver={SQL Server};Server=db";
    EXPECT_EQ(Text(), "Driver={SQL Server};Server=db;Trusted_Connection=Yes;");
    // Without a login a password belongs to nobody.
    settings.password = "pw";
    EXPECT_EQ(Text(), "Driver={SQL Server};Server=db;Trusted_Connection=Yes;");
    settings.login = "me";
    settings.database = "tasks";
    EXPECT_EQ(Text(), "Driver={SQL Server};Server=db;Database=tasks;UID=me;PWD=pw;");
    settings.password = "";
    EXPECT_EQ(Text(), "Driver={SQL Server};Server=db;Database=tasks;UID=me;");
    settings = {};
    settings.dataPath = "Driver={SQL Server};Server=db;Trusted_Connection=No";
    EXPECT_EQ(Text(), "Driver={SQL Server};Server=db;Trusted_Connection=No;");
    // Another server is not asked for the user's own account.
    settings.dataPath = "Driver={SQLite3};Database=a.db";
    EXPECT_EQ(Text(), "Driver={SQLite3};Database=a.db;NoCreat=1;Timeout=3000;");
    settings.dataPath = "DSN=Tasks";
    EXPECT_EQ(Text(), "DSN=Tasks;");
}
TEST_F(Options, KnowWhatMessagesMaySayAndWhatNot) {
    settings.dataPath = "Driver={SQL Server};Server=db;UID=me;PWD=secret";
    const OdbcOptions options = OptionsFor(settings);
    EXPECT_EQ(options.name, "db");
    EXPECT_EQ(WithoutTexts("me and secret", options.secrets), "*** and ***");
    driver.installed.emplace_back(u"PostgreSQL Unicode");
    EXPECT_EQ(OptionsFor("postgresql:me@db").name, "db");
    EXPECT_EQ(OptionsFor("mine@db").name, "db");
}

}  // namespace
}  // namespace zv::store::odbc
