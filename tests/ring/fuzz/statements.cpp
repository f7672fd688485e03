#include "statements.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "base/errors.h"
#include "base/text.h"
#include "fixture.h"
#include "statement_tables.h"
#include "store/engines/engines.h"
#include "store/one_statement.h"
#include "target.h"

namespace zv::fuzz {
namespace {

using store::dialect::StatementKind;
using store::dialect::Translation;

/// "… at character N".
void HoldPlaced(const RuntimeError& error, std::string_view sql) {
    constexpr std::string_view kMark = "at character ";
    Hold(error.Number() == ErrorNumber::DatabaseStatement, "refused with another error");
    const std::size_t at = error.Text().rfind(kMark);
    Hold(at != std::string::npos, "refused without a place: " + error.Text());
    const long place = std::strtol(error.Text().c_str() + at + kMark.size(), nullptr, 10);
    Hold(place >= 1 && place <= static_cast<long>(sql.size()) + 1,
         "refused at a place that is not there: " + error.Text());
}

/// What the engine says of a statement that is none.
void HoldNoSyntaxError(const std::string& message, const std::string& sql) {
    for (const char* sign :
         {"syntax error", "incomplete input", "unrecognized token", "parser stack overflow"}) {
        Hold(!text::Contains(message, sign), message + ": " + sql);
    }
}

/// Null when the engine refuses it for what it means.
Prepared PrepareWhole(StatementTables& tables, const std::string& sql) {
    std::string tail;
    Prepared statement = tables.Prepare(sql, tail);
    if (!statement) {
        HoldNoSyntaxError(tables.LastError(), sql);
    }
    Hold(tail.find_first_not_of(" ;") == std::string::npos, "a second statement follows: " + sql);
    return statement;
}

void HoldReading(const Prepared& statement, const std::string& sql) {
    Hold(!statement || sqlite3_stmt_readonly(statement.get()) != 0,
         "said to be a select, and changes something: " + sql);
}

void HoldSameRows(StatementTables& tables, const Prepared& rows, const Prepared& keys,
                  const Prepared& row, const std::string& sql) {
    auto expected = tables.RowsOf(rows.get());
    std::optional<std::vector<std::string>> found;
    if (const auto ids = tables.RowsOf(keys.get())) {
        found.emplace();
        for (const std::string& id : *ids) {
            sqlite3_bind_int64(row.get(), 1, std::strtoll(id.c_str(), nullptr, 10));
            const auto one = tables.RowsOf(row.get());
            if (!one) return;
            Hold(one->size() == 1, "a key finds " + std::to_string(one->size()) + " rows: " + sql);
            found->push_back(one->front());
        }
    }
    if (!expected || !found) return;
    std::sort(expected->begin(), expected->end());
    std::sort(found->begin(), found->end());
    Hold(*expected == *found, "other rows are found by their keys: " + sql);
}

void HoldEmbedded(StatementTables& tables, const Translation& translation, bool hasOneAnswer) {
    const Prepared statement = PrepareWhole(tables, translation.sql);
    if (translation.kind != StatementKind::Select) return;
    HoldReading(statement, translation.sql);
    if (translation.table.empty()) return;
    const Prepared keys = PrepareWhole(tables, translation.keySql);
    const Prepared row = PrepareWhole(tables, translation.rowSql);
    HoldReading(keys, translation.keySql);
    HoldReading(row, translation.rowSql);
    if (!statement) return;
    Hold(keys && row, "its rows cannot be found by their keys: " + translation.sql);
    Hold(sqlite3_column_count(keys.get()) == 1, "a key is not one column: " + translation.keySql);
    Hold(sqlite3_column_count(row.get()) == sqlite3_column_count(statement.get()),
         "a row has other columns: " + translation.rowSql);
    if (hasOneAnswer) HoldSameRows(tables, statement, keys, row, translation.sql);
}

/// Quotes are closed, and so are parentheses; nothing ends the statement.
void HoldClosed(const std::string& sql) {
    int open = 0;
    for (std::size_t at = 0; at < sql.size(); at++) {
        const char c = sql[at];
        if (c == '\'' || c == '"') {
            at = sql.find(c, at + 1);
            Hold(at != std::string::npos, "a quote is not closed: " + sql);
        }
        if (c == '(') open++;
        if (c == ')') open--;
        Hold(open >= 0, "a parenthesis is closed that was not opened: " + sql);
        Hold(c != ';' && static_cast<unsigned char>(c) >= ' ', "a character outside texts: " + sql);
    }
    Hold(open == 0, "a parenthesis is not closed: " + sql);
}

void HoldServer(StatementTables& tables, const std::string& sql, const Translation& embedded) {
    const store::engines::Engine& server = store::engines::Of("postgresql");
    Translation translation;
    try {
        translation = store::dialect::Translate(sql, tables.ServerSchema(), *server.dialect);
    } catch (const RuntimeError& error) {
        // It insists on types.
        HoldPlaced(error, sql);
        return;
    }
    Hold(translation.kind == embedded.kind && translation.table == embedded.table,
         "another statement for a server: " + sql);
    HoldClosed(translation.sql);
}

/// As SQL Server and Access get it.
void HoldSentAsItIs(StatementTables& tables, const std::string& sql, const Translation* embedded,
                    const StatementProduct& product) {
    try {
        if (product.requireOne) {
            product.requireOne(sql);
        } else {
            store::RequireOneStatement(sql, "server");
        }
    } catch (const RuntimeError& error) {
        HoldPlaced(error, sql);
        return;
    }
    const Translation sent = store::dialect::SentAsItIs(sql);
    Hold(sent.sql == sql, "sent as something else: " + sent.sql);
    if (embedded) {
        Hold(sent.kind == embedded->kind && sent.table == embedded->table,
             "taken for another statement: " + sql);
    }
    std::string tail;
    if (tables.Prepare(sql, tail)) {
        Hold(tail.find_first_not_of(" ;\t\r\n") == std::string::npos,
             "let through with a second statement: " + sql);
    }
}

/// Of rows that are alike in their order any may be the first, and time goes on.
bool HasOneAnswer(const std::string& sql) {
    const std::string lower = text::ToLower(sql);
    return !text::Contains(lower, "top") && !text::Contains(lower, "now") &&
           !text::Contains(lower, "date(") && !text::Contains(lower, "rnd");
}

}  // namespace

void PlayStatement(std::string_view input, const StatementProduct& product) {
    static StatementTables tables;
    const std::string sql(input);
    std::optional<Translation> translation;
    try {
        translation = product.translate(tables.Session(), sql);
    } catch (const RuntimeError& error) {
        HoldPlaced(error, sql);
    }
    HoldSentAsItIs(tables, sql, translation ? &*translation : nullptr, product);
    if (!translation) return;
    HoldEmbedded(tables, *translation, HasOneAnswer(sql));
    HoldServer(tables, sql, *translation);
}

std::vector<std::string> StatementSeeds() {
    std::vector<std::string> seeds;
    for (const store::NamedStatement& statement : store::ReadStatements()) {
        seeds.push_back(statement.sql);
    }
    return seeds;
}

}  // namespace zv::fuzz
