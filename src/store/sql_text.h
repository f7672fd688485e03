// Pieces of SQL text that several statements share.
#pragma once

#include <string>
#include <string_view>

namespace zv::store {

/// A user's search text as a LIKE pattern: trimmed; empty, "*" or "%" gives "%"; "*" becomes "%";
/// a text without "_" and "%" is wrapped in "%"; any other stays as it is.
std::string MakeLikePattern(std::string_view text);

/// `where` with each condition's field prefixed by `alias` ("a" or "a."): the text is split at
/// each "and"; a condition that begins with a string function of the dialect takes the alias
/// behind its parenthesis. Unchanged when either text is empty or the alias already stands in it.
/// `databaseKind`: 0 Access ("mid(", "format("), 1 or more server ("substring(", "convert(").
std::string QualifyFieldNames(std::string_view where, std::string_view alias, int databaseKind);

}  // namespace zv::store
