#include "store/sql_text.h"

#include <array>

#include "base/text.h"

namespace zv::store {
namespace {

bool IsWordAt(std::string_view lower, std::size_t at, std::string_view word) {
    return lower.substr(at, word.size()) == word &&
           (at == 0 || !text::IsWordCharacter(lower[at - 1])) &&
           (at + word.size() >= lower.size() || !text::IsWordCharacter(lower[at + word.size()]));
}

/// The position of the next "and" that joins two conditions: outside quotes and not the one of a
/// "between"; the text's length when there is none.
std::size_t NextAnd(std::string_view lower, std::size_t from) {
    bool between = false;
    for (std::size_t at = from; at < lower.size(); at++) {
        if (lower[at] == '\'') {
            const std::size_t end = lower.find('\'', at + 1);
            if (end == std::string_view::npos) return lower.size();
            at = end;
        } else if (IsWordAt(lower, at, "between")) {
            between = true;
        } else if (IsWordAt(lower, at, "and")) {
            if (!between) return at;
            between = false;
        }
    }
    return lower.size();
}

bool StartsWithName(std::string_view condition) {
    return !condition.empty() &&
           (condition.front() == '[' || (text::IsWordCharacter(condition.front()) &&
                                         !(condition.front() >= '0' && condition.front() <= '9')));
}

std::string Qualify(std::string_view condition, std::string_view alias, int databaseKind) {
    static constexpr std::array<std::string_view, 2> kServerFunctions{"substring(", "convert("};
    static constexpr std::array<std::string_view, 2> kAccessFunctions{"mid(", "format("};

    condition = text::TrimLeft(condition);
    std::size_t head = 0;
    while (head < condition.size() && (condition[head] == '(' || condition[head] == ' ')) head++;
    const std::string lower = text::ToLower(condition);
    for (const auto function : databaseKind >= 1 ? kServerFunctions : kAccessFunctions) {
        if (lower.compare(head, function.size(), function) == 0) {
            head += function.size();
            break;
        }
    }
    std::string result(condition.substr(0, head));
    if (StartsWithName(condition.substr(head))) result += alias;
    result += condition.substr(head);
    return result;
}

}  // namespace

std::string MakeLikePattern(std::string_view text) {
    const std::string_view trimmed = text::Trim(text);
    if (trimmed.empty() || trimmed == "*" || trimmed == "%") return "%";
    if (trimmed.find_first_of("_%") != std::string_view::npos) return std::string(trimmed);
    std::string pattern = "%";
    pattern += trimmed;
    return pattern += '%';
}

bool BreaksLiteral(std::string_view text) {
    return text.find('\'') != std::string_view::npos;
}

std::string AsPatternOfName(std::string_view text) {
    std::string pattern(text);
    for (char& c : pattern) {
        if (c == '\'' || c == '%' || c == '[') c = '_';
    }
    return pattern;
}

std::string QualifyFieldNames(std::string_view where, std::string_view alias, int databaseKind) {
    const std::string lower = text::ToLower(where);
    if (where.empty() || alias.empty() || text::Contains(lower, alias)) return std::string(where);

    std::string prefix(alias);
    if (prefix.back() != '.') prefix += '.';

    std::string result;
    std::size_t begin = 0;
    // A text that starts with the word itself keeps it in front of the first condition.
    if (const std::size_t first = lower.find_first_not_of(' ');
        first != std::string::npos && IsWordAt(lower, first, "where")) {
        begin = first + 5;
        result = std::string(where.substr(0, begin)) + " ";
    }
    while (true) {
        const std::size_t end = NextAnd(lower, begin);
        result += Qualify(where.substr(begin, end - begin), prefix, databaseKind);
        if (end == where.size()) return result;
        result += std::string(where.substr(end, 3)) + " ";
        begin = end + 3;
    }
}

}  // namespace zv::store
