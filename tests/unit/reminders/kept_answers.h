// Databases with and without the table that keeps reminders, on every engine.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "reminders/memory.h"
#include "watched_database.h"

namespace zv::reminders {

inline Answer PutOffItem(std::int32_t item, DateTime until = DateTime(2003, 3, 7, 8, 0, 0)) {
    return {{0, item, DateTime(2003, 3, 7), "t"}, until, DateTime(2003, 3, 6, 17, 30, 0)};
}

class KeptAnswersTest : public store::WatchedDatabaseTest {
 protected:
    void SetUp() override {
        WatchedDatabaseTest::SetUp();
        if (IsSkipped()) return;
        database_.EnsureConnection();
    }
    static std::vector<Answer> Sorted(std::vector<Answer> answers) {
        std::sort(answers.begin(), answers.end(),
                  [](const Answer& a, const Answer& b) { return a.key < b.key; });
        return answers;
    }
};

}  // namespace zv::reminders
