// Connection strings as lists of entries.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv::store {

/// "name=value" entries in their order; values without braces.
class ConnectionEntries {
 public:
    /// What keeps a semicolon inside a value: braces as ODBC has them, or quotes as in OLE DB too.
    enum class Quoting { Braces, BracesAndQuotes };

    ConnectionEntries() = default;
    /// Reads "Driver={PostgreSQL Unicode};Server=db". A "}" inside braces is doubled, and so is a
    /// quote inside quotes where they count.
    explicit ConnectionEntries(std::string_view text, Quoting quoting = Quoting::Braces);

    /// Empty when there is no such entry; names in any case.
    std::string_view Value(std::string_view name) const;
    /// The first of `names` that there is.
    std::string_view FirstOf(std::span<const std::string_view> names) const;
    bool Has(std::string_view name) const;
    bool HasAnyOf(std::span<const std::string_view> names) const;
    void Add(std::string_view name, std::string_view value);
    void Remove(std::string_view name);
    /// Values that need it stand in braces.
    std::string Text() const;

    using Entries = std::vector<std::pair<std::string, std::string>>;
    Entries::const_iterator begin() const { return entries_.begin(); }
    Entries::const_iterator end() const { return entries_.end(); }

 private:
    Entries entries_;
};

}  // namespace zv::store
