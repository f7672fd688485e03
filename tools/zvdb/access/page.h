// A page of an Access file, and the bytes in it, with every access within bounds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "zvdb/access/damage.h"

namespace zv::zvdb::access {

inline constexpr std::size_t kPageSize = 4096;

/// Little-endian numbers at a place in some bytes. Throws Damage beyond their end.
class Bytes {
 public:
    Bytes() = default;
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data, size) {}

    std::size_t Size() const { return data_.size(); }
    const std::uint8_t* Data() const { return data_.data(); }
    std::uint8_t U8(std::size_t at) const { return *Need(at, 1); }
    std::uint16_t U16(std::size_t at) const { return Number<std::uint16_t>(at); }
    std::uint32_t U32(std::size_t at) const { return Number<std::uint32_t>(at); }
    std::uint64_t U64(std::size_t at) const { return Number<std::uint64_t>(at); }
    Bytes Part(std::size_t from, std::size_t to) const {
        if (from > to) throw Damage("a field ends before it begins");
        return Bytes(Need(from, to - from), to - from);
    }

 private:
    const std::uint8_t* Need(std::size_t at, std::size_t count) const {
        if (at > data_.size() || count > data_.size() - at) {
            throw Damage("a field lies outside of its row");
        }
        return data_.data() + at;
    }
    template <class T>
    T Number(std::size_t at) const {
        const std::uint8_t* bytes = Need(at, sizeof(T));
        T number = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            number = static_cast<T>(number | static_cast<T>(T{bytes[i]} << (8 * i)));
        }
        return number;
    }

    std::span<const std::uint8_t> data_;
};

/// A data page. Its directory of rows stands at its begin, the rows fill it from the end.
class Page {
 public:
    /// What an entry of the directory says of its row.
    enum class RowState { Present, Moved, Deleted, MovedHere };

    std::array<std::uint8_t, kPageSize>& Storage() { return bytes_; }
    Bytes All() const { return Bytes(bytes_.data(), bytes_.size()); }

    bool IsData() const { return bytes_[0] == 1; }
    std::uint32_t Owner() const { return All().U32(4); }
    std::size_t RowCount() const { return All().U16(kCountAt); }
    RowState StateOf(std::size_t row) const;
    /// Throws Damage when the row does not lie where rows can.
    Bytes Row(std::size_t row) const;

 private:
    static constexpr std::size_t kCountAt = 12;
    static constexpr std::size_t kDirectoryAt = 14;
    static constexpr std::uint16_t kOffset = 0x1FFF;
    static constexpr std::uint16_t kMoved = 0x4000;
    static constexpr std::uint16_t kHidden = 0x8000;
    std::uint16_t Entry(std::size_t row) const;

    std::array<std::uint8_t, kPageSize> bytes_{};
};

}  // namespace zv::zvdb::access
