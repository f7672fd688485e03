#include "store/odbc/written_names.h"

#include <map>

#include "base/text.h"
#include "store/dialect/lexer.h"

namespace zv::store::odbc {
namespace {

/// Names by their lower-case form. Words of the language that are written in lower case stay what
/// they are, so only the others matter.
std::map<std::string, std::string> NamesIn(std::string_view statement) {
    std::map<std::string, std::string> names;
    for (const dialect::Token& token : dialect::TokensIfReadable(statement)) {
        const bool name =
            token.kind == dialect::TokenKind::Name || token.kind == dialect::TokenKind::QuotedName;
        const std::string lower = text::ToLower(token.text);
        if (name && lower != token.text) names.emplace(lower, token.text);
    }
    return names;
}

}  // namespace

std::string WithNamesAsWritten(std::string_view text, std::string_view statement) {
    const auto names = NamesIn(statement);
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && text::IsWordCharacter(text[end])) end++;
        if (end == at) {
            result += text[at++];
            continue;
        }
        const std::string word(text.substr(at, end - at));
        const auto written = names.find(word);
        result += written == names.end() ? word : written->second;
        at = end;
    }
    return result;
}

}  // namespace zv::store::odbc
