#include "store/odbc/link.h"

#include <algorithm>

#include "base/text.h"
#include "store/odbc/odbc_connection.h"

namespace zv::store::odbc {
namespace {

constexpr std::size_t kNameUnits = 256;

/// Shows Link::Cancel which statement is under way.
class Running {
 public:
    Running(std::mutex& mutex, SQLHSTMT& running, SQLHSTMT statement)
        : mutex_(mutex), running_(running) {
        const std::lock_guard lock(mutex_);
        running_ = statement;
    }
    ~Running() {
        const std::lock_guard lock(mutex_);
        running_ = SQL_NULL_HSTMT;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

 private:
    std::mutex& mutex_;
    SQLHSTMT& running_;
};

/// Takes a statement's rows, buffers and parameters from it, so that it holds nothing.
class Emptied {
 public:
    explicit Emptied(SQLHSTMT statement) : statement_(statement) {}
    ~Emptied() {
        SQLFreeStmt(statement_, SQL_CLOSE);
        SQLFreeStmt(statement_, SQL_UNBIND);
        SQLFreeStmt(statement_, SQL_RESET_PARAMS);
    }
    Emptied(const Emptied&) = delete;
    Emptied& operator=(const Emptied&) = delete;

 private:
    SQLHSTMT statement_;
};

bool HasSucceeded(SQLRETURN code) {
    // A change that meets no row answers "no data".
    return SQL_SUCCEEDED(code) || code == SQL_NO_DATA;
}

}  // namespace

Link::~Link() {
    prepared_.Clear();
    if (connected_) SQLDisconnect(connection_.Get());
}

void Link::Connect() {
    environment_ = EnvironmentHandle(SQLHANDLE{});
    if (!environment_) {
        throw RuntimeError(ErrorNumber::CannotCreateObject, "ODBC is not available.", kErrorSource)
            .Of(ErrorKind::DriverMissing);
    }
    SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION, NumberAsPointer(SQL_OV_ODBC3), 0);
    connection_ = ConnectionHandle(environment_.Get());
    if (!connection_) {
        throw ConnectError(Diagnose(SQL_HANDLE_ENV, environment_.Get(), true), options_.name,
                           options_.secrets);
    }
    // Drivers without these limits refuse them: the caller's patience is limited all the same.
    const auto limit = static_cast<SQLULEN>(options_.connectLimit.count());
    SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT, NumberAsPointer(limit),
                       SQL_IS_UINTEGER);
    const std::u16string text = text::ToUtf16(options_.connectionString);
    SQLWCHAR completed[4]{};
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLDriverConnectW(connection_.Get(), nullptr, Wide(text),
                                             static_cast<SQLSMALLINT>(text.size()), completed, 0,
                                             &length, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(code)) {
        throw ConnectError(Diagnose(SQL_HANDLE_DBC, connection_.Get(), true), options_.name,
                           options_.secrets);
    }
    connected_ = true;
    ReadFacts();
}

// What is sent, and how, depends on these: a guess would write what nobody asked for.
std::string Link::Info(SQLUSMALLINT what) const {
    SQLWCHAR buffer[kNameUnits]{};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection_.Get(), what, buffer, sizeof buffer, &length))) {
        throw ConnectError(Diagnose(SQL_HANDLE_DBC, connection_.Get(), true), options_.name,
                           options_.secrets);
    }
    const auto* first = reinterpret_cast<const char16_t*>(buffer);
    return text::FromUtf16({first, std::find(first, first + kNameUnits - 1, u'\0')});
}

void Link::ReadFacts() {
    facts_.product = Info(SQL_DBMS_NAME);
    facts_.engine = &engines::OfProduct(facts_.product);
    facts_.quote = text::Trim(Info(SQL_IDENTIFIER_QUOTE_CHAR));
    // A driver that does not know the question has no extensions.
    SQLUINTEGER extensions = 0;
    SQLGetInfoW(connection_.Get(), SQL_GETDATA_EXTENSIONS, &extensions, sizeof extensions, nullptr);
    constexpr SQLUINTEGER kMixes = SQL_GD_ANY_COLUMN | SQL_GD_BOUND;
    facts_.reading.mixesBound = (extensions & kMixes) == kMixes;
    facts_.reading.readsTexts = facts_.engine->facts->KeepsDatesAsTexts();
}

StatementHandle Link::NewStatement() {
    StatementHandle statement(connection_.Get());
    if (!statement) {
        const Diagnosis diagnosis = Diagnose(SQL_HANDLE_DBC, connection_.Get(), false);
        if (diagnosis.fault == Fault::ConnectionLost) lost_ = true;
        throw StatementError(diagnosis, options_.secrets);
    }
    const auto limit = static_cast<SQLULEN>(options_.statementLimit.count());
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, NumberAsPointer(limit), 0);
    return statement;
}

void Link::Throw(SQLHSTMT statement) {
    const Diagnosis diagnosis = Diagnose(SQL_HANDLE_STMT, statement, false);
    SQLUINTEGER dead = SQL_CD_FALSE;
    const bool answered = SQL_SUCCEEDED(SQLGetConnectAttrW(
        connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr));
    if (diagnosis.fault == Fault::ConnectionLost || (answered && dead == SQL_CD_TRUE)) lost_ = true;
    throw StatementError(diagnosis, options_.secrets);
}

template <class Call>
void Link::Check(SQLHSTMT statement, Call call) {
    const Running running(runningMutex_, running_, statement);
    if (!HasSucceeded(call())) Throw(statement);
}

SQLHSTMT Link::PreparedFor(const std::string& sql) {
    if (const StatementHandle* kept = prepared_.Find(sql)) return kept->Get();
    StatementHandle statement = NewStatement();
    const std::u16string text = text::ToUtf16(sql);
    Check(statement.Get(), [&] {
        return SQLPrepareW(statement.Get(), Wide(text), static_cast<SQLINTEGER>(text.size()));
    });
    return prepared_.Keep(sql, std::move(statement)).Get();
}

void Link::Forget(SQLHSTMT statement) {
    prepared_.RemoveIf([&](const std::string&, const StatementHandle& handle) {
        return handle.Get() == statement;
    });
}

std::vector<Column> Link::ColumnsOf(SQLHSTMT statement) {
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(statement, &count))) Throw(statement);
    const auto attribute = [&](SQLUSMALLINT number, SQLUSMALLINT what, SQLLEN& value) {
        return SQL_SUCCEEDED(
            SQLColAttributeW(statement, number, what, nullptr, 0, nullptr, &value));
    };
    std::vector<Column> columns;
    for (SQLUSMALLINT number = 1; number <= count; number++) {
        Column column;
        SQLWCHAR name[kNameUnits]{};
        SQLSMALLINT length = 0;
        // Asking for the type here makes some drivers ask their server for more.
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement, number, name, kNameUnits, &length, nullptr,
                                           &column.size, nullptr, nullptr))) {
            Throw(statement);
        }
        SQLLEN type = 0;
        if (!attribute(number, SQL_DESC_TYPE, type)) Throw(statement);
        column.sqlType = static_cast<SQLSMALLINT>(type);
        // Not every driver knows the second; a time alone then comes as a moment of today.
        SQLLEN code = 0;
        if (column.sqlType == SQL_DATETIME &&
            attribute(number, SQL_DESC_DATETIME_INTERVAL_CODE, code) && code == SQL_CODE_TIME) {
            column.sqlType = SQL_TYPE_TIME;
        }
        const auto* first = reinterpret_cast<const char16_t*>(name);
        column.name = text::FromUtf16({first, std::find(first, first + kNameUnits - 1, u'\0')});
        column.type = TypeOf(column.sqlType);
        column.isLong = IsLongType(column.sqlType);
        if (facts_.engine->facts->ReportsComputedColumns()) {
            SQLWCHAR base[kNameUnits]{};
            SQLSMALLINT bytes = 0;
            if (!SQL_SUCCEEDED(SQLColAttributeW(statement, number, SQL_DESC_BASE_TABLE_NAME, base,
                                                sizeof base, &bytes, nullptr))) {
                Throw(statement);
            }
            column.isComputed = base[0] == 0;
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

Result Link::Finish(SQLHSTMT statement, bool asStored) {
    Result result;
    while (true) {
        std::vector<Column> columns = ColumnsOf(statement);
        if (columns.empty()) {
            SQLLEN changed = -1;
            SQLRowCount(statement, &changed);
            // Of a batch, the first statement that reports it.
            if (result.changed < 0)
                result.changed = static_cast<int>(std::max<SQLLEN>(changed, -1));
        } else if (result.columns.empty()) {
            if (asStored && facts_.reading.readsTexts) {
                for (Column& column : columns) {
                    if (column.type == ColumnType::Date) column.type = ColumnType::Text;
                    column.isComputed = false;
                }
            }
            result.rows = RowStore(static_cast<int>(columns.size()));
            RowReader reader(statement, columns, facts_.reading);
            Check(statement, [&] {
                return static_cast<SQLRETURN>(
                    reader.Bind() && reader.ReadAll(result.rows) ? SQL_SUCCESS : SQL_ERROR);
            });
            result.columns = std::move(columns);
        }
        const SQLRETURN more = SQLMoreResults(statement);
        if (more == SQL_NO_DATA) return result;
        if (!SQL_SUCCEEDED(more)) Throw(statement);
        SQLFreeStmt(statement, SQL_UNBIND);
    }
}

Result Link::Run(const std::string& sql, const std::vector<Parameter>& parameters, bool asStored) {
    if (parameters.empty()) {
        const StatementHandle statement = NewStatement();
        const std::u16string text = text::ToUtf16(sql);
        Check(statement.Get(), [&] {
            return SQLExecDirectW(statement.Get(), Wide(text),
                                  static_cast<SQLINTEGER>(text.size()));
        });
        return Finish(statement.Get(), asStored);
    }
    SQLHSTMT statement = PreparedFor(sql);
    try {
        const Emptied emptied(statement);
        ParameterBuffers buffers;
        if (!buffers.Bind(statement, parameters)) Throw(statement);
        Check(statement, [&] { return SQLExecute(statement); });
        return Finish(statement, asStored);
    } catch (const RuntimeError&) {
        // What failed once may have been prepared for tables that have changed since.
        Forget(statement);
        throw;
    }
}

std::vector<Column> Link::Describe(const std::string& sql) {
    const std::string describing = facts_.engine->facts->DescribingStatement(sql);
    if (!describing.empty()) return Run(describing, {}, false).columns;
    SQLHSTMT statement = PreparedFor(sql);
    SQLSMALLINT count = 0;
    try {
        Check(statement, [&] { return SQLNumResultCols(statement, &count); });
    } catch (const RuntimeError&) {
        Forget(statement);
        throw;
    }
    return ColumnsOf(statement);
}

bool Link::Fetch(SQLHSTMT statement) {
    const SQLRETURN code = SQLFetch(statement);
    if (!HasSucceeded(code)) Throw(statement);
    return code != SQL_NO_DATA;
}

std::string Link::TextOf(SQLHSTMT statement, SQLUSMALLINT column) {
    SQLWCHAR buffer[kNameUnits]{};
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(
            SQLGetData(statement, column, SQL_C_WCHAR, buffer, sizeof buffer, &length))) {
        Throw(statement);
    }
    if (length < 0) return {};
    const auto* first = reinterpret_cast<const char16_t*>(buffer);
    return text::FromUtf16({first, std::find(first, first + kNameUnits - 1, u'\0')});
}

int Link::NumberOf(SQLHSTMT statement, SQLUSMALLINT column) {
    SQLINTEGER number = 0;
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(statement, column, SQL_C_SLONG, &number, 0, &length))) {
        Throw(statement);
    }
    return length == SQL_NULL_DATA ? 0 : static_cast<int>(number);
}

Table Link::DescribeTable(const std::string& name) {
    constexpr SQLUSMALLINT kTableName = 3;
    constexpr SQLUSMALLINT kColumnName = 4;
    constexpr SQLUSMALLINT kDataType = 5;
    constexpr SQLUSMALLINT kTypeName = 6;
    constexpr SQLUSMALLINT kSize = 7;
    const std::u16string wide = text::ToUtf16(name);
    const auto length = static_cast<SQLSMALLINT>(wide.size());
    Table table;
    {
        const StatementHandle statement = NewStatement();
        Check(statement.Get(), [&] {
            return SQLColumnsW(statement.Get(), nullptr, 0, nullptr, 0, Wide(wide), length, nullptr,
                               0);
        });
        while (Fetch(statement.Get())) {
            // The name is taken as a pattern, in which "_" stands for any character.
            const std::string found = TextOf(statement.Get(), kTableName);
            if (!text::EqualsIgnoreCase(found, name)) continue;
            table.name = found;
            Column column;
            column.name = TextOf(statement.Get(), kColumnName);
            column.sqlType = static_cast<SQLSMALLINT>(NumberOf(statement.Get(), kDataType));
            table.typeNames.push_back(TextOf(statement.Get(), kTypeName));
            column.size = static_cast<SQLULEN>(std::max(NumberOf(statement.Get(), kSize), 0));
            column.type = TypeOf(column.sqlType);
            column.isLong = IsLongType(column.sqlType);
            table.columns.push_back(std::move(column));
        }
    }
    if (table.columns.empty()) return table;
    const StatementHandle statement = NewStatement();
    Check(statement.Get(), [&] {
        return SQLPrimaryKeysW(statement.Get(), nullptr, 0, nullptr, 0, Wide(wide), length);
    });
    while (Fetch(statement.Get())) {
        table.key.push_back(TextOf(statement.Get(), kColumnName));
    }
    return table;
}

void Link::Cancel() {
    const std::lock_guard lock(runningMutex_);
    if (running_) SQLCancel(running_);
}

}  // namespace zv::store::odbc
