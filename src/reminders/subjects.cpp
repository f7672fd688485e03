#include "reminders/subjects.h"

#include <array>

#include "base/errors.h"
#include "base/text.h"
#include "store/sql_text.h"

namespace zv::reminders {
namespace {

constexpr std::string_view kNotDone = "tDone<>1";
constexpr std::string_view kItemsWithPlans =
    " from tTaskList a Left Join tTaskSet b on a.TaskID=b.TaskID ";

// The day behind the last one of the calendar cannot be written.
std::string BeforeTomorrow(std::string_view column, DateTime now,
                           const items::DateLiteral& dateLiteral) {
    if (now.Date() == DateTime::LastDay()) return {};
    return std::string(" And ").append(column) + "<" + dateLiteral(now.Date().AddDays(1));
}

/// A column that may name somebody; the names of a plan hold for the items that it made.
struct NameColumn {
    std::string_view name;
    bool ofPlan;
};
constexpr std::array<NameColumn, 4> kNames = {
    {{"a.tDoneMan", false}, {"a.fUser", false}, {"b.DoneMan", true}, {"b.SetMan", true}}};

std::string Concerning(std::string_view user) {
    std::string named;
    std::string nobody;
    for (const NameColumn& column : kNames) {
        const std::string name(column.name);
        nobody += nobody.empty() ? "(" : " And (";
        nobody += name + " Is Null Or " + name + "=''" + (column.ofPlan ? " Or a.fType<>0)" : ")");
        if (user.empty()) continue;
        const std::string isUser = store::BreaksLiteral(user)
                                       ? name + " like '" + store::AsPatternOfName(user) + "'"
                                       : name + "='" + std::string(user) + "'";
        named += (column.ofPlan ? "a.fType=0 And " + isUser : isUser) + " Or ";
    }
    return " And (" + named + "(" + nobody + "))";
}

std::optional<DateTime> SoundDate(const store::Value& value) {
    try {
        if (!value.IsNull()) return value.ToDate();
    } catch (const RuntimeError&) {
        // A table may hold what is no date.
    }
    return std::nullopt;
}

std::optional<Subject> ReadSubject(const store::Recordset& rows) {
    const auto kind = items::KindOf(rows.Field("fType").ToInt32());
    const auto state = items::StateOf(rows.Field("tDone").ToInt32());
    const auto from = SoundDate(rows.Field("tDuring1"));
    if (!kind || !state || !from) return std::nullopt;
    Subject subject;
    subject.item = rows.Field("fID").ToInt32();
    subject.kind = *kind;
    subject.state = *state;
    subject.title = rows.Field("taskTitle").ToText();
    subject.guest = rows.Field("fGuest").ToText();
    subject.date = SoundDate(rows.Field("taskTime"));
    subject.from = *from;
    subject.people.doer = rows.Field("tDoneMan").ToText();
    subject.people.setter = rows.Field("fUser").ToText();
    // The number of a visit is that of a card, which may be the number of a plan, too.
    if (*kind != items::ItemKind::Task) return subject;
    subject.plan = rows.Field("fPlan").ToInt32();
    subject.people.planDoer = rows.Field("DoneMan").ToText();
    subject.people.planSetter = rows.Field("SetMan").ToText();
    return subject;
}

}  // namespace

std::string SubjectStatement(DateTime now, DateTime firstLook,
                             const items::DateLiteral& dateLiteral) {
    // The index over windows holds what the inner statement reads, so that the table is touched
    // only for what is found.
    return "select a.fID,a.fType,a.taskTitle,a.fGuest,a.taskTime,a.tDuring1,a.tDone,"
           "a.tDoneMan,a.fUser,b.TaskID as fPlan,b.DoneMan,b.SetMan" +
           std::string(kItemsWithPlans) + "Where a.fID in (select c.fID from tTaskList c Where c." +
           std::string(kNotDone) + BeforeTomorrow("c.tDuring1", now, dateLiteral) +
           " And c.tDuring2>=" + dateLiteral(firstLook.Date()) + ")";
}

std::vector<Subject> ReadSubjects(store::Database& database, DateTime now, DateTime firstLook) {
    const auto rows = database.Open(SubjectStatement(
        now, firstLook, [&database](DateTime date) { return database.DateLiteral(date); }));
    std::vector<Subject> subjects;
    for (; !rows->Eof(); rows->MoveNext()) {
        if (auto subject = ReadSubject(*rows)) subjects.push_back(*std::move(subject));
    }
    rows->Close();
    return subjects;
}

std::string OldStatement(DateTime firstLook, std::optional<std::string_view> user,
                         const items::DateLiteral& dateLiteral) {
    return "select count(*)" + std::string(kItemsWithPlans) + "Where a." + std::string(kNotDone) +
           " And a.taskTime<" + dateLiteral(firstLook.Date()) + (user ? Concerning(*user) : "");
}

std::int32_t CountOld(store::Database& database, DateTime firstLook,
                      std::optional<std::string_view> user) {
    const auto rows = database.Open(OldStatement(
        firstLook, user, [&database](DateTime date) { return database.DateLiteral(date); }));
    const std::int32_t count = rows->Eof() ? 0 : rows->Field(0).ToInt32();
    rows->Close();
    return count;
}

}  // namespace zv::reminders
