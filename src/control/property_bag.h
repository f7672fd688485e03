// The host's property bag, as the control's persistence sees it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace zv {

using BagValue = std::variant<std::int16_t, bool, std::string>;

class PropertyBag {
 public:
    virtual ~PropertyBag() = default;
    /// The stored value in the type of `fallback`, or `fallback` when the key is absent. Keys
    /// compare without regard to case. Throws error 13 or 6 when the stored value cannot be
    /// brought into that type.
    virtual BagValue Read(std::string_view key, const BagValue& fallback) = 0;
    virtual void Write(std::string_view key, const BagValue& value) = 0;
};

}  // namespace zv
