// Texts on their way into a spreadsheet program, by a file or by the clipboard.
#pragma once

#include <string_view>

namespace zv {

/// True for a text that a spreadsheet program takes for a formula, no matter who typed it: one that
/// begins with an equals, plus, minus or at sign - the full-width ones that Chinese input methods
/// write too -, a tab, a carriage return or a line feed, and is no plain number. An apostrophe in
/// front makes a text of it.
bool WouldBeComputed(std::string_view text);

}  // namespace zv
