// Every form of statement that the system sends, with values at the limits in it, against rows that
// hold them: the same rows on every engine, or the same kind of error.
#include <algorithm>

#include "base/text.h"
#include "engines.h"
#include "fixture.h"
#include "items/fields.h"
#include "place.h"
#include "values.h"

namespace zv::ring {
namespace {

using store::EngineKind;

/// What a statement answers: its rows as lines, or the error's number.
struct Answer {
    std::vector<std::string> rows;
    std::int32_t error = 0;
    bool operator==(const Answer&) const = default;
};

Answer Ask(store::Connection& connection, const std::string& sql) {
    Answer answer;
    try {
        const auto rows =
            connection.Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        for (; !rows->Eof(); rows->MoveNext()) {
            std::string line;
            for (int column = 0; column < rows->FieldCount(); column++) {
                // A server's table may have a key of its own besides.
                if (text::EqualsIgnoreCase(rows->FieldName(column), "rowkey")) continue;
                const store::Value& value = rows->Field(column);
                line += (value.IsNull() ? "null" : value.ToText()) + "|";
            }
            answer.rows.push_back(line);
        }
        rows->Close();
    } catch (const RuntimeError& error) {
        answer.rows.clear();
        answer.error = static_cast<std::int32_t>(error.Number());
    }
    const std::string lower = text::ToLower(sql);
    if (!text::Contains(lower, "order by")) std::sort(answer.rows.begin(), answer.rows.end());
    if (text::Contains(lower, "select top ")) answer.rows.resize(answer.rows.empty() ? 0 : 1, "");
    return answer;
}

enum class Literal { Text, Date, Number };

bool IsDate(std::string_view inner) {
    return inner.find('/') != std::string_view::npos && inner.size() == 10;
}

/// The statement with every literal of that kind replaced; empty when it has none.
std::string With(const std::string& sql, Literal kind, const std::string& value) {
    std::string result;
    bool found = false;
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        const bool inName = at > 0 && (text::IsWordCharacter(sql[at - 1]) || sql[at - 1] == '.');
        if (c == '\'' || c == '#') {
            const std::size_t end = sql.find(c, at + 1);
            const std::string inner = sql.substr(at + 1, end - at - 1);
            const bool date = c == '#' || IsDate(inner);
            const bool taken = kind == (date ? Literal::Date : Literal::Text);
            found = found || taken;
            result += c + (taken ? value : inner) + c;
            at = end + 1;
        } else if (c >= '0' && c <= '9' && !inName) {
            const std::size_t end = std::min(sql.find_first_not_of("0123456789", at), sql.size());
            // "1=1" stands in front of every condition, and the rows of "top 1" are no value.
            const bool fixed =
                sql.compare(at, 3, "1=1") == 0 ||
                (at > 0 && end - at == 1 && (sql[at - 1] == '=' && at > 1 && sql[at - 2] == '1')) ||
                text::ToLower(sql).compare(at > 4 ? at - 4 : 0, 4, "top ") == 0 ||
                sql[at - 1] == ',' || sql[at - 1] == '(';
            const bool taken = kind == Literal::Number && !fixed;
            found = found || taken;
            result += taken ? value : sql.substr(at, end - at);
            at = end;
        } else {
            result += c;
            at++;
        }
    }
    return found ? result : std::string();
}

void AddRow(store::Connection& connection, const std::vector<store::Value>& values,
            const std::vector<std::string_view>& columns) {
    const auto row = connection.Open("select * from tTaskList where fID=0",
                                     store::CursorType::Keyset, store::LockType::Optimistic);
    row->AddNew();
    for (std::size_t at = 0; at < columns.size(); at++) row->SetField(columns[at], values[at]);
    row->Update();
    row->Close();
}

class StatementLimits : public store::EngineTest {
 protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (IsSkipped()) return;
        reference_ = store::MakeTestDatabase(EngineKind::Embedded);
        embedded_ = reference_->Connect();
        for (store::Connection* connection : {embedded_.get(), connection_.get()}) {
            for (const std::string& sql : store::ReadDataStatements()) connection->Execute(sql);
            Fill(*connection);
        }
    }
    bool Takes(const TextValue& value) const {
        const bool rare = std::any_of(value.units.begin(), value.units.end(), [](char16_t unit) {
            return unit >= 0xD800 && unit < 0xDC00;
        });
        return value.canBeTyped && value.units.find(u'\'') == std::u16string::npos &&
               (!rare || Traits().takesRareCharactersInStatements);
    }
    void Expect(Literal kind, const std::string& value, const std::string& name) {
        for (const store::NamedStatement& statement : statements_) {
            // Each value meets every third form, each form every third value; for long all do.
            if (!statement.IsSelect() || turn_++ % turns_ != 0) continue;
            const std::string sql = With(statement.sql, kind, value);
            if (sql.empty()) continue;
            const Answer meant = Ask(*embedded_, sql);
            const Answer answer = Ask(*connection_, sql);
            cells_++;
            EXPECT_EQ(answer.error, meant.error) << statement.name << " with " << name;
            const auto [theirs, ours] = std::mismatch(answer.rows.begin(), answer.rows.end(),
                                                      meant.rows.begin(), meant.rows.end());
            EXPECT_TRUE(answer.rows == meant.rows)
                << statement.name << " with " << name << "\n"
                << Shown(sql) << "\n"
                << Shown(theirs == answer.rows.end() ? "no row" : *theirs) << "\n"
                << Shown(ours == meant.rows.end() ? "no row" : *ours);
        }
    }
    void TearDown() override {
        RecordProperty("cells", cells_);
        std::cout << "CELLS " << cells_ << '\n';
    }

 private:
    static void Fill(store::Connection& connection) {
        for (const TextValue& value : TextValues(100)) {
            if (!value.canBeTyped) continue;
            const std::string text = value.Text();
            AddRow(connection, {text, text, text, text, text, 0, 0, 1},
                   {"taskTitle", "fContent", "tDoneMan", "fUser", "fGuest", "fType", "tDone",
                    "TaskID"});
        }
        for (const DateTime& day : Dates()) {
            AddRow(connection, {"day " + day.IsoDateTime(), day, day, day, 0, 0, 0},
                   {"taskTitle", "taskTime", "tDuring1", "tDuring2", "fType", "tDone", "TaskID"});
        }
        for (const std::int64_t number : WholeNumbers()) {
            if (number < -2147483648 || number > 2147483647) continue;
            AddRow(connection, {"number " + std::to_string(number), number, 0, 0},
                   {"taskTitle", "TaskID", "fType", "tDone"});
        }
    }

    std::unique_ptr<store::TestDatabase> reference_;
    std::unique_ptr<store::Connection> embedded_;
    const int turns_ = std::getenv("ZV_LONG") ? 1 : 3;
    const std::vector<store::NamedStatement> statements_ = store::ReadStatements();
    int turn_ = 0;
    int cells_ = 0;
};

TEST_P(StatementLimits, WithTexts) {
    for (const TextValue& value : TextValues(100)) {
        if (Takes(value)) Expect(Literal::Text, value.Text(), value.name);
    }
}
TEST_P(StatementLimits, WithDates) {
    for (const DateTime& day : Dates()) Expect(Literal::Date, day.UsDate(), day.IsoDate());
}
TEST_P(StatementLimits, WithNumbers) {
    for (const std::int64_t number : WholeNumbers()) {
        Expect(Literal::Number, std::to_string(number), std::to_string(number));
    }
}
INSTANTIATE_TEST_SUITE_P(Engines, StatementLimits,
                         testing::Values(EngineKind::SqliteOverOdbc, EngineKind::PostgreSql),
                         store::EngineName);

}  // namespace
}  // namespace zv::ring
