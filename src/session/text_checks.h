// Checks of user text before it enters a statement or a field, with the messages that they show.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/machine.h"

namespace zv::forms {
class TextBox;
}

namespace zv {

class Session;

/// False, after showing message 183, when the text holds a single quote.
bool CheckText(Session& session, std::string_view text);

/// True when the box's text is refused: a single quote (message 131) or, with `numericOnly`, a
/// non-empty text that is not a number (message 130). The whole text is selected then.
bool CheckFieldText(Session& session, forms::TextBox& box, bool numericOnly);

/// Length in bytes of the ANSI code page.
std::size_t ByteLength(const platform::AnsiCodePage& codePage, std::string_view text);
/// The text cut before the first character that would pass `maximum` bytes.
std::string CutToBytes(const platform::AnsiCodePage& codePage, std::string_view text, int maximum);
/// CutToBytes, and an information box naming the field when something was cut and `fieldName` is
/// not empty.
std::string FitTextBytes(Session& session, std::string_view text, std::int16_t maximum,
                         std::string_view fieldName);

}  // namespace zv
