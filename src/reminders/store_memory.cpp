#include "reminders/store_memory.h"

#include <algorithm>

#include "base/errors.h"

namespace zv::reminders {
namespace {

/// `inTable`, or `without` where the database has no table.
template <class InTable, class Without>
auto Either(InTable&& inTable, Without&& without) {
    try {
        return inTable();
    } catch (const RuntimeError& error) {
        if (error.Kind() != ErrorKind::NoTable) throw;
    }
    return without();
}

}  // namespace

std::vector<Answer> StoreMemory::Answers(std::string_view user) {
    return Either(
        [&] {
            auto answers = table_.Answers(user);
            MoveIntoTable(user, answers);
            return answers;
        },
        [&] { return workstation_.Answers(user); });
}

void StoreMemory::MoveIntoTable(std::string_view user, std::vector<Answer>& inTable) {
    for (const Answer& answer : workstation_.Answers(user)) {
        const bool isAnswered =
            std::any_of(inTable.begin(), inTable.end(),
                        [&](const Answer& other) { return other.key == answer.key; });
        if (!isAnswered) {
            table_.Keep(user, answer);
            inTable.push_back(answer);
        }
        workstation_.Forget(user, answer.key);
    }
}

void StoreMemory::Keep(std::string_view user, const Answer& answer) {
    Either([&] { table_.Keep(user, answer); }, [&] { workstation_.Keep(user, answer); });
}

void StoreMemory::Forget(std::string_view user, const Key& key) {
    Either([&] { table_.Forget(user, key); }, [] {});
    workstation_.Forget(user, key);
}

DateTime StoreMemory::FirstLook(std::string_view user, DateTime now) {
    const DateTime here = workstation_.FirstLook(user, now);
    return Either([&] { return std::min(table_.FirstLook(user, here), here); },
                  [&] { return here; });
}

}  // namespace zv::reminders
