#include "reminders/store_memory.h"

#include <algorithm>
#include <set>

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
    std::vector<Answer> kept = workstation_.Answers(user);
    if (kept.empty()) return;
    std::set<Key> answered;
    for (const Answer& answer : inTable) answered.insert(answer.key);
    std::vector<Key> keys;
    keys.reserve(kept.size());
    for (const Answer& answer : kept) keys.push_back(answer.key);
    std::erase_if(
        kept, [&](const Answer& answer) { return answered.find(answer.key) != answered.end(); });
    table_.Keep(user, kept);
    inTable.insert(inTable.end(), kept.begin(), kept.end());
    workstation_.Forget(user, keys);
}

void StoreMemory::Keep(std::string_view user, const std::vector<Answer>& answers) {
    Either([&] { table_.Keep(user, answers); }, [&] { workstation_.Keep(user, answers); });
}

void StoreMemory::Forget(std::string_view user, const std::vector<Key>& keys) {
    Either([&] { table_.Forget(user, keys); }, [] {});
    workstation_.Forget(user, keys);
}

DateTime StoreMemory::FirstLook(std::string_view user, DateTime now) {
    const DateTime here = workstation_.FirstLook(user, now);
    return Either([&] { return std::min(table_.FirstLook(user, here), here); },
                  [&] { return here; });
}

}  // namespace zv::reminders
