// The fonts of a report: where a character comes from and how wide it is.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zv::report {

struct FontSource {
    std::string path;    ///< a TrueType or OpenType file or collection, UTF-8
    int index = 0;       ///< in a collection
    std::string family;  ///< by which the system's drawing knows it; unused otherwise
};

struct Glyph {
    std::uint16_t font = 0;   ///< position among the fonts of the set
    std::uint16_t index = 0;  ///< in the font
    float advance = 0;        ///< at size 1
    /// No font has the character: the glyph is a box that stands for it.
    bool isReplacement = false;
};

/// Fonts in the order in which they are asked for a character.
class FontSet {
 public:
    /// Leaves out what cannot be read and what its maker does not allow to be put into files.
    /// Throws RuntimeError 5 with the reasons when none is left.
    explicit FontSet(const std::vector<FontSource>& sources);
    ~FontSet();
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;

    const Glyph& Find(char32_t character) const;
    /// Of one line, at a size in points.
    double Width(std::string_view text, double size) const;
    const std::vector<FontSource>& Fonts() const;

    /// The character whose glyph stands for those that no font has.
    char32_t Replacement() const;

 private:
    struct Faces;
    static constexpr std::size_t kBlock = 256;
    using Block = std::array<Glyph, kBlock>;

    Glyph LookUp(char32_t character) const;

    std::unique_ptr<Faces> faces_;
    mutable std::vector<std::unique_ptr<Block>> blocks_;  ///< characters looked up so far
};

}  // namespace zv::report
