#include "floors/raw_query.h"

#include <stdexcept>

namespace zv::bench {
namespace {

const char kColumns[] =
    "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from tTaskList a";
const char kOrder[] = " order by a.fType,a.taskTime desc,a.taskTitle";

}  // namespace

RawDatabase::RawDatabase(const std::string& path) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &handle,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK) Fail(path);
}

void RawDatabase::Fail(const std::string& what) {
    throw std::runtime_error(what + ": " + sqlite3_errmsg(handle_.get()));
}

void RawDatabase::Run(const std::string& sql) {
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sql);
}

void RawDatabase::RunKept(const std::string& sql) {
    auto& statement = kept_[sql];
    if (!statement) {
        sqlite3_stmt* made = nullptr;
        if (sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &made, nullptr) != SQLITE_OK) {
            Fail(sql);
        }
        statement.reset(made);
    }
    if (sqlite3_step(statement.get()) != SQLITE_DONE) Fail(sql);
    sqlite3_reset(statement.get());
}

int RawDatabase::Read(const std::string& sql, const Reader& reader) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        Fail(sql);
    }
    const int count = sqlite3_column_count(statement);
    std::vector<const char*> columns(static_cast<std::size_t>(count));
    int rows = 0;
    int code = 0;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        for (int i = 0; i < count; ++i) {
            columns[static_cast<std::size_t>(i)] =
                reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        }
        reader(columns.data());
        ++rows;
    }
    sqlite3_finalize(statement);
    if (code != SQLITE_DONE) Fail(sql);
    return rows;
}

std::string ListStatement() {
    return std::string(kColumns) + kOrder;
}

std::string AlertStatement(const std::string& day) {
    return std::string(kColumns) + " where a.tDuring1<='" + day + "' and a.tDuring2>='" + day +
           "' and a.tDone=0" + kOrder;
}

std::string BoundedAlertStatement(const std::string& day, int widestDays) {
    return std::string(kColumns) + " where a.tDuring1<='" + day + "' and a.tDuring1>=datetime('" +
           day + "','-" + std::to_string(widestDays) + " days') and a.tDuring2>='" + day +
           "' and a.tDone=0" + kOrder;
}

std::string BirthdayStatement(const std::string& from, const std::string& until) {
    const auto part = [](const std::string& format) {
        return "substr('0'||ltrim(cast(strftime('" + format + "',Birthday) as integer)),-2)";
    };
    return "select CompCode,Name,CompName,Birthday,fID from cards where '" + from.substr(0, 4) +
           "-'||" + part("%m") + "||'-'||" + part("%d") + " between '" + from + "' and '" + until +
           "'";
}

std::string MarkStatement(int item, int state, const std::string& doer) {
    return "update tTaskList set tDone=" + std::to_string(state) + ",tDoneMan='" + doer +
           "' where fID=" + std::to_string(item);
}

}  // namespace zv::bench
