// Bytes as hexadecimal digits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::hex {

/// Two digits a byte, capitals.
std::string FromBytes(std::string_view bytes);
/// Nothing for a text that is not made of whole bytes. Capitals or not.
std::optional<std::string> ToBytes(std::string_view digits);

}  // namespace zv::hex
