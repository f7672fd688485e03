// Pieces of SQL text that several statements share.
#pragma once

#include <string>
#include <string_view>

namespace zv::store {

/// A user's search text as a LIKE pattern: trimmed of blanks; "%" when nothing, "*" or "%" is left;
/// wrapped in "%" when it holds neither "_" nor "%"; with wildcards of its own as it stands.
std::string MakeLikePattern(std::string_view text);

/// A pattern, or a text that becomes one, without the characters that would end the literal or mean
/// more than themselves in a pattern: each is "_", which stands for any one character. For names
/// that the program compares and nobody typed.
std::string AsPatternOfName(std::string_view text);
/// True when the text would end a literal between single quotes.
bool BreaksLiteral(std::string_view text);

/// `where` with each condition's field prefixed by `alias` ("a" or "a."): the text is split at
/// each "and" that joins conditions; a condition that begins with a string function of the dialect
/// takes the alias behind the function's parenthesis. Quoted texts, the "and" of a "between" and
/// conditions that begin with a constant ("1=1") stay as they are. Unchanged when either text is
/// empty or the lower-cased `where` already holds the alias.
/// `databaseKind`: 0 Access ("mid(", "format("), 1 or more server ("substring(", "convert(").
std::string QualifyFieldNames(std::string_view where, std::string_view alias, int databaseKind);

}  // namespace zv::store
