// How many rows are moved into and out of a server: the statements of imports and checks, which are
// sent in the server's own language.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "store/value.h"

namespace zv::store::engines {

/// Names in quotes are made with Quoted; names without are as the server stores them.
class Bulk {
 public:
    virtual ~Bulk() = default;

    /// A question to any server, and whether its answer comes from this one.
    virtual std::string_view VersionQuestion() const = 0;
    virtual bool IsVersion(std::string_view answer) const = 0;
    /// The statements that a connection begins with.
    virtual std::string_view Prepare() const = 0;
    /// A question whose answer is the same for two connections to the same tables.
    virtual std::string_view Identity() const = 0;
    /// Name of the table, name of the column, longest text (not above 0: any length); by table.
    virtual std::string_view Columns() const = 0;
    /// Name of the index, of its table and of a column, 1 where it is unique, 1 where there is
    /// nothing to it but columns that rise; by index and position.
    virtual std::string_view Indexes() const = 0;
    /// The expression for the schema in which new tables are made.
    virtual std::string_view PresentSchema() const = 0;

    // How values are written.
    virtual std::string Quoted(std::string_view name) const = 0;
    /// In front of a text between quotes.
    virtual std::string_view TextPrefix() const { return {}; }
    /// "select ... from table where key > after order by key", at most `rows` of them.
    virtual std::string SelectPart(const std::string& columns, const std::string& table,
                                   const std::string& key, const std::string& after,
                                   std::size_t rows) const = 0;
    /// The first moment that a date can hold.
    virtual DateTime FirstDate() const { return {100, 1, 1}; }

    // Reading all tables as of one moment.
    virtual std::vector<std::string> BeginReading() const = 0;
    /// For a check, which goes without where a database may not offer that moment.
    virtual std::vector<std::string> BeginInspecting() const { return {}; }
    /// Yields null where the table gives new rows no number, then by how much the greatest number
    /// is ahead of the counter; empty where that cannot happen.
    virtual std::string CounterQuestion(const std::string&, const std::string&) const { return {}; }

    // Writing.
    /// Removes what a former schema leaves beside its tables.
    virtual std::string_view BeforeSchema() const { return {}; }
    /// Yields 1 when this user may write the table; empty where only trying shows it.
    virtual std::string MayWriteQuestion(const std::string&) const { return {}; }
    virtual std::string_view Begin() const = 0;
    /// Behind the begin of a transaction: a statement that others keep waiting is given up early.
    virtual std::string_view LimitWaiting() const { return {}; }
    /// Others go on reading; what they would write waits for the end. `table` in quotes.
    virtual std::string Lock(const std::string& table) const = 0;
    /// Triggers that Finish makes good for, out of the way and back again; empty where there are
    /// none. Only an owner may. `table` in quotes.
    virtual std::string DisableTriggers(const std::string&) const { return {}; }
    virtual std::string EnableTriggers(const std::string&) const { return {}; }
    /// Name and making statement of each index that is faster made anew.
    virtual std::string IndexesToMakeAgain(const std::string&) const { return {}; }
    /// Around the rows of a table that counts its key by itself and gets rows that bring one.
    virtual std::string BeforeKeys(const std::string&) const { return {}; }
    virtual std::string BehindKeys(const std::string&) const { return {}; }
    /// The counter of the table's key, null where there is none; then what sets it behind the
    /// greatest key. Empty where the server does that by itself.
    virtual std::string Counter(const std::string&, const std::string&) const { return {}; }
    virtual std::string SetCounter(const std::string&, const std::string&) const { return {}; }
    /// So that the first questions are answered well. `table` in quotes.
    virtual std::string Analyze(const std::string&) const { return {}; }
};

}  // namespace zv::store::engines
