#include "reminders/table_memory.h"

#include <algorithm>
#include <optional>

#include "base/errors.h"
#include "base/text.h"
#include "store/sql_text.h"

namespace zv::reminders {
namespace {

/// fState.
enum class Kept : std::int16_t { FirstLook = 0, PutOff = 1, Dismissed = 2 };

std::int16_t Number(Kept kept) {
    return static_cast<std::int16_t>(kept);
}

// A name that would end the literal is compared as a pattern, and each row then as it stands.
std::string Of(std::string_view user) {
    const std::string start = "select * from zvReminder where fUser";
    return store::BreaksLiteral(user) ? start + " like '" + store::AsPatternOfName(user) + "'"
                                      : start + " = '" + std::string(user) + "'";
}

std::string Of(std::string_view user, std::int32_t plan, std::int32_t item) {
    return Of(user) + " And fPlan=" + std::to_string(plan) + " And fItem=" + std::to_string(item);
}

store::Value ValueOf(std::optional<DateTime> date) {
    return date ? store::Value(*date) : store::Value();
}

std::optional<DateTime> DateIn(const store::Value& value) {
    if (value.IsNull()) return std::nullopt;
    return value.ToDate();
}

bool IsOf(const store::Recordset& row, std::string_view user) {
    return text::EqualsIgnoreCase(row.Field("fUser").ToText(), user);
}

Key KeyIn(const store::Recordset& row) {
    return {row.Field("fPlan").ToInt32(), row.Field("fItem").ToInt32(), DateIn(row.Field("fDate")),
            row.Field("fTitle").ToText()};
}

/// Moves to the row that holds the answer for an item on a date; false when there is none.
bool Find(store::Recordset& rows, std::string_view user, const std::optional<DateTime>& date) {
    for (; !rows.Eof(); rows.MoveNext()) {
        if (IsOf(rows, user) && DateIn(rows.Field("fDate")) == date) return true;
    }
    return false;
}

}  // namespace

std::vector<Answer> TableMemory::Answers(std::string_view user) {
    database_.EnsureConnection();
    const auto rows = database_.Open(Of(user));
    std::vector<Answer> answers;
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t kept = rows->Field("fState").ToInt32();
        if (!IsOf(*rows, user) || kept == Number(Kept::FirstLook)) continue;
        Answer answer{KeyIn(*rows), {}};
        if (kept == Number(Kept::PutOff)) answer.until = DateIn(rows->Field("fUntil"));
        answer.given = DateIn(rows->Field("fGiven"));
        answers.push_back(std::move(answer));
    }
    rows->Close();
    return answers;
}

void TableMemory::Keep(std::string_view user, const std::vector<Answer>& answers) {
    database_.EnsureConnection();
    for (const Answer& answer : answers) KeepOne(user, answer);
}

void TableMemory::KeepOne(std::string_view user, const Answer& answer) {
    const auto rows = database_.Open(Of(user, answer.key.plan, answer.key.item),
                                     store::CursorType::Keyset, store::LockType::Optimistic);
    if (!Find(*rows, user, answer.key.date)) {
        rows->AddNew();
        rows->SetField("fUser", user);
        rows->SetField("fPlan", answer.key.plan);
        rows->SetField("fItem", answer.key.item);
        rows->SetField("fDate", ValueOf(answer.key.date));
    }
    rows->SetField("fTitle", answer.key.title);
    rows->SetField("fUntil", ValueOf(answer.until));
    rows->SetField("fState", Number(answer.until ? Kept::PutOff : Kept::Dismissed));
    rows->SetField("fGiven", ValueOf(answer.given));
    rows->Update();
    rows->Close();
}

void TableMemory::Forget(std::string_view user, const std::vector<Key>& keys) {
    database_.EnsureConnection();
    for (const Key& key : keys) ForgetOne(user, key);
}

void TableMemory::ForgetOne(std::string_view user, const Key& key) {
    const auto rows = database_.Open(Of(user, key.plan, key.item));
    const bool isKept = Find(*rows, user, key.date);
    const std::string id = isKept ? rows->Field("fID").ToText() : std::string();
    rows->Close();
    if (isKept) database_.Execute("Delete from zvReminder where fID =" + id);
}

DateTime TableMemory::FirstLook(std::string_view user, DateTime now) {
    database_.EnsureConnection();
    const auto rows =
        database_.Open(Of(user, 0, 0), store::CursorType::Keyset, store::LockType::Optimistic);
    for (; !rows->Eof(); rows->MoveNext()) {
        if (!IsOf(*rows, user)) continue;
        const DateTime first = rows->Field("fUntil").ToDate();
        // One that is still to come was noted by a clock that was wrong.
        if (first > now) {
            rows->SetField("fUntil", now);
            rows->Update();
        }
        rows->Close();
        return std::min(first, now);
    }
    rows->AddNew();
    rows->SetField("fUser", user);
    rows->SetField("fPlan", std::int32_t{0});
    rows->SetField("fItem", std::int32_t{0});
    rows->SetField("fUntil", now);
    rows->SetField("fState", Number(Kept::FirstLook));
    rows->Update();
    rows->Close();
    return now;
}

}  // namespace zv::reminders
