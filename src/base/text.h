// Text helpers. Texts are UTF-8 everywhere inside the system; counts of characters are counts of
// UTF-16 units, as the databases and windows that the system talks to count them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zv::text {

/// Without the blanks (character 32 only) at both ends.
std::string_view Trim(std::string_view text);
std::string_view TrimLeft(std::string_view text);
/// ASCII letters only; other characters stay as they are.
std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);
/// Of a name: an ASCII letter or digit, "_", or any part of a character beyond ASCII.
bool IsWordCharacter(char c);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);
bool Contains(std::string_view text, std::string_view part);
std::string Replace(std::string_view text, std::string_view from, std::string_view to);
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

/// Number of UTF-16 units.
std::size_t Length(std::string_view text);
/// The first `units` UTF-16 units; a surrogate pair is never split.
std::string Left(std::string_view text, std::size_t units);
/// From unit `start` (1 = first) on, at most `units`.
std::string Mid(std::string_view text, std::size_t start, std::size_t units = std::size_t(-1));
/// Padded with blanks on the right, or cut, to exactly `units`.
std::string PadTo(std::string_view text, std::size_t units);

/// The code point at byte `position`, which is moved behind it; U+FFFD for a broken sequence.
char32_t NextCodePoint(std::string_view text, std::size_t& position);
void AppendCodePoint(std::string& text, char32_t codePoint);
std::u16string ToUtf16(std::string_view text);
std::string FromUtf16(std::u16string_view text);

}  // namespace zv::text
