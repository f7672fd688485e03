// Splits a statement of the Access / SQL Server dialect into its words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zv::store::dialect {

enum class TokenKind {
    Name,        ///< a bare word; `text` as written
    QuotedName,  ///< [name]; `text` without the brackets
    Text,        ///< 'text'; `text` with doubled quotes resolved
    Date,        ///< #03/07/2003#; `text` in stored form
    Number,      ///< digits, optionally with a point and an exponent
    Symbol,      ///< an operator or a punctuation mark
    End,
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;
    std::size_t position = 0;  ///< of its first character in the statement, from 1
};

/// The tokens of `statement`, closed by one of kind End. Throws RuntimeError (DatabaseStatement)
/// that names the position of a character, text or date that cannot be read.
std::vector<Token> Tokenise(std::string_view statement);

/// The same for a statement that need not be in the dialect: none where it cannot be read.
std::vector<Token> TokensIfReadable(std::string_view statement);

/// A date as the dialect writes it - "m/d/yyyy" or "yyyy-m-d", optionally with "h:mm" or "h:mm:ss"
/// - in stored form; empty when it is none.
std::string StoredDate(std::string_view text);

/// Throws RuntimeError (DatabaseStatement) with `message` and the place.
[[noreturn]] void ThrowAt(const std::string& message, std::size_t position);

}  // namespace zv::store::dialect
