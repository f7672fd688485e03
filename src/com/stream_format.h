// The stored form of the properties where the container offers a stream instead of a bag.
//
//     "zvTS"            4 bytes
//     version           16 bits, 1
//     length            32 bits, of what follows
//     count             16 bits, then for each property:
//         key           8-bit length, then UTF-8
//         type          8 bits: 2 number, 8 text, 11 truth value
//         value         16 bits; 32-bit length, then UTF-8; 8 bits
//
// All numbers with the lowest byte first. Keys and their order are those of the property bag.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/property_bag.h"

namespace zv::com {

/// A bag in memory; keeps the order in which it was written.
class MemoryBag final : public PropertyBag {
 public:
    BagValue Read(std::string_view key, const BagValue& fallback) override;
    void Write(std::string_view key, const BagValue& value) override;
    const std::vector<std::pair<std::string, BagValue>>& Entries() const { return entries_; }

 private:
    std::vector<std::pair<std::string, BagValue>> entries_;
};

/// Bytes before the length's end: what has to be read to know how much follows.
inline constexpr std::size_t kStreamHeaderSize = 10;
/// A longer stream is not one of ours.
inline constexpr std::uint32_t kMaxStreamLength = 16u << 20;

std::string EncodeStream(const MemoryBag& bag);
/// Length of what follows the header. Throws error 5 for a header that is not of this format, or of
/// a later version.
std::uint32_t DecodeStreamHeader(std::string_view header);
/// Throws error 5 when the bytes end too early or hold something else.
MemoryBag DecodeStreamBody(std::string_view body);

}  // namespace zv::com
