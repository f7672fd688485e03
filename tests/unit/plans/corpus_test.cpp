// Every case of tests/corpus/recurrence is a test of its own.
#include <gtest/gtest.h>

#include <cctype>

#include "base/errors.h"
#include "corpus.h"

namespace zv::plans::corpus {

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.date.ShortIso();
    if (row.window.first) {
        *out << "  " << row.window.first->ShortIso() << " .. " << row.window.last->ShortIso();
    }
}
void PrintTo(const Case& c, std::ostream* out) {
    *out << c.file << ":" << c.line << ": " << c.name << " (" << c.reason << ")";
}

namespace {

const std::vector<Case>& Cases() {
    static const std::vector<Case> cases = Load(ZV_RECURRENCE_CORPUS);
    return cases;
}

class RecurrenceCorpus : public testing::TestWithParam<Case> {};

TEST_P(RecurrenceCorpus, GivesTheRows) {
    const Case& c = GetParam();
    std::vector<Row> rows;
    int error = 0;
    try {
        Occurrences occurrences(c.plan);
        while (const auto date = occurrences.Next()) {
            rows.push_back({*date, AlertWindowOf(*date, c.plan.type, c.plan.typeValue)});
        }
    } catch (const RuntimeError& e) {
        error = static_cast<int>(e.Number());
    }
    EXPECT_EQ(rows.size(), c.count);
    EXPECT_EQ(error, c.error);
    const std::vector<Row> tail = c.tail.value_or(std::vector<Row>{});
    ASSERT_GE(rows.size(), c.head.size() + tail.size());
    const auto at = [&](std::size_t i) { return rows.begin() + static_cast<std::ptrdiff_t>(i); };
    EXPECT_EQ(std::vector<Row>(rows.begin(), at(c.head.size())), c.head);
    EXPECT_EQ(std::vector<Row>(at(rows.size() - tail.size()), rows.end()), tail);
}

std::string TestName(const testing::TestParamInfo<Case>& info) {
    std::string name = info.param.file.substr(0, info.param.file.find('.')) + "_";
    for (const char c : info.param.name) {
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(Corpus, RecurrenceCorpus, testing::ValuesIn(Cases()), TestName);

TEST(RecurrenceCorpusFiles, HoldAtLeastEightyCases) {
    EXPECT_GE(Cases().size(), 80u);
}

}  // namespace
}  // namespace zv::plans::corpus
