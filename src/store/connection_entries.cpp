#include "store/connection_entries.h"

#include <algorithm>

#include "base/text.h"

namespace zv::store {
namespace {

/// What ends the value that `rest` begins with; 0 when the next semicolon does.
char ClosingOf(std::string_view rest, ConnectionEntries::Quoting quoting) {
    if (rest.starts_with('{')) return '}';
    const bool quoted = rest.starts_with('"') || rest.starts_with('\'');
    return quoted && quoting == ConnectionEntries::Quoting::BracesAndQuotes ? rest.front() : '\0';
}

/// Entries may stand in lines of their own.
std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t start = std::min(text.find_first_not_of(kBlanks), text.size());
    text.remove_prefix(start);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace

ConnectionEntries::ConnectionEntries(std::string_view text, Quoting quoting) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t equals = text.find_first_of("=;", at);
        if (equals == std::string_view::npos) break;
        if (text[equals] == ';') {
            at = equals + 1;
            continue;
        }
        const std::string_view name = Trimmed(text.substr(at, equals - at));
        std::size_t start = text.find_first_not_of(" \t\r\n", equals + 1);
        if (start == std::string_view::npos) start = text.size();
        std::string value;
        if (const char closing = ClosingOf(text.substr(start), quoting)) {
            at = start + 1;
            while (at < text.size()) {
                if (text[at] == closing && (at + 1 >= text.size() || text[at + 1] != closing)) {
                    break;
                }
                if (text[at] == closing) at++;
                value += text[at++];
            }
            at = std::min(text.find(';', at), text.size() - 1) + 1;
        } else {
            const std::size_t end = std::min(text.find(';', start), text.size());
            value = Trimmed(text.substr(start, end - start));
            at = end + 1;
        }
        if (!name.empty()) entries_.emplace_back(name, std::move(value));
    }
}

std::string_view ConnectionEntries::Value(std::string_view name) const {
    for (const auto& [known, value] : entries_) {
        if (text::EqualsIgnoreCase(known, name)) return value;
    }
    return {};
}

std::string_view ConnectionEntries::FirstOf(std::span<const std::string_view> names) const {
    for (const std::string_view name : names) {
        if (Has(name)) return Value(name);
    }
    return {};
}

bool ConnectionEntries::Has(std::string_view name) const {
    return std::any_of(entries_.begin(), entries_.end(), [&](const auto& entry) {
        return text::EqualsIgnoreCase(entry.first, name);
    });
}

bool ConnectionEntries::HasAnyOf(std::span<const std::string_view> names) const {
    return std::any_of(names.begin(), names.end(), [&](const auto name) { return Has(name); });
}

void ConnectionEntries::Add(std::string_view name, std::string_view value) {
    entries_.emplace_back(name, value);
}

void ConnectionEntries::Remove(std::string_view name) {
    std::erase_if(entries_,
                  [&](const auto& entry) { return text::EqualsIgnoreCase(entry.first, name); });
}

std::string ConnectionEntries::Text() const {
    std::string text;
    for (const auto& [name, value] : entries_) {
        // Not every driver reads braces, so they stand only where nothing else will do.
        const bool braces = value.find_first_of("[]{}(),;?*=!@") != std::string::npos ||
                            Trimmed(value) != value || text::EqualsIgnoreCase(name, "Driver");
        text += name + "=";
        text += braces ? "{" + text::Replace(value, "}", "}}") + "}" : value;
        text += ";";
    }
    return text;
}

}  // namespace zv::store
