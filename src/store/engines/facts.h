// What an engine does in its own way behind a driver. What stands here is what an engine of which
// nothing is known is taken for.
#pragma once

#include <string>
#include <string_view>

#include "store/dialect/schema_info.h"
#include "store/value.h"

namespace zv::store::engines {

class Facts {
 public:
    virtual ~Facts() = default;

    /// Whether it is what a driver calls `product` (lower case).
    virtual bool IsProduct(std::string_view) const { return false; }

    /// The form in which the server keeps a name that was written without quotes.
    virtual std::string StoredName(std::string_view name) const { return std::string(name); }
    /// A date is kept as the text of its stored form.
    virtual bool KeepsDatesAsTexts() const { return false; }
    /// The driver names the table behind a column, and none behind one that is computed.
    virtual bool ReportsComputedColumns() const { return false; }

    /// A statement that yields no row and the columns of `sql`; empty where preparing names them.
    virtual std::string DescribingStatement(const std::string&) const { return {}; }
    /// A comparison of a column with a parameter that distinguishes letter cases.
    virtual std::string EqualsExactly(const std::string& column) const { return column + "=?"; }

    /// Behind an insert, so that it yields the number that the server gave to `key`.
    virtual std::string YieldingKey(const std::string&) const { return {}; }
    /// A statement that yields the number given last; empty when the insert itself does.
    virtual std::string LastKey() const { return {}; }

    /// The index over alert windows that the schema makes; null where there is none.
    virtual const dialect::WindowIndex* WindowIndex() const { return nullptr; }
    /// A statement that asks for it; empty where there is none.
    virtual std::string WindowIndexQuestion() const { return {}; }
    /// Whether the first field of the answer's first row names the index that is meant.
    virtual bool IsWindowIndex(const Value&) const { return true; }
};

}  // namespace zv::store::engines
