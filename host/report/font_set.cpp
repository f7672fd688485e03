#include "report/font_set.h"

#include <ft2build.h>

#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

#include <filesystem>
#include <fstream>

#include "base/errors.h"
#include "base/path.h"
#include "base/text.h"

namespace zv::report {
namespace {

constexpr std::u32string_view kReplacements = U"\u25A1\uFFFD?";
constexpr char32_t kLastCharacter = 0x10FFFF;

unsigned long ReadFile(FT_Stream stream, unsigned long offset, unsigned char* buffer,
                       unsigned long count) {
    auto& file = *static_cast<std::ifstream*>(stream->descriptor.pointer);
    file.clear();
    file.seekg(static_cast<std::streamoff>(offset));
    if (!file) return count == 0 ? 1 : 0;  // of a seek the answer is an error code
    if (count == 0) return 0;
    file.read(reinterpret_cast<char*>(buffer), static_cast<std::streamsize>(count));
    return static_cast<unsigned long>(file.gcount());
}

bool MayBeEmbedded(FT_Face face) {
    const FT_UShort rights = FT_Get_FSType_Flags(face);
    constexpr FT_UShort kOthers =
        FT_FSTYPE_PREVIEW_AND_PRINT_EMBEDDING | FT_FSTYPE_EDITABLE_EMBEDDING;
    if (rights & FT_FSTYPE_BITMAP_EMBEDDING_ONLY) return false;
    return !(rights & FT_FSTYPE_RESTRICTED_LICENSE_EMBEDDING) || (rights & kOthers);
}

// The writer of PDF files takes this for granted, and writes beyond its memory where it is not so.
bool HasAGlyphForEachWidth(FT_Face face) {
    const auto* widths = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA));
    const auto* glyphs = static_cast<const TT_MaxProfile*>(FT_Get_Sfnt_Table(face, FT_SFNT_MAXP));
    return widths && glyphs && widths->number_Of_HMetrics <= glyphs->numGlyphs;
}

// A font that is read from its file as it is needed; large ones hold tens of megabytes.
class OpenFont {
 public:
    /// Throws a text that says why not.
    OpenFont(FT_Library library, const FontSource& font) : source(font) {
        const std::filesystem::path path = PathOf(font.path);
        file_.open(path, std::ios::binary);
        std::error_code error;
        const auto size = std::filesystem::file_size(path, error);
        if (!file_ || error) throw std::string("cannot be opened");
        stream_.size = static_cast<unsigned long>(size);
        stream_.descriptor.pointer = &file_;
        stream_.read = &ReadFile;
        FT_Open_Args arguments{};
        arguments.flags = FT_OPEN_STREAM;
        arguments.stream = &stream_;
        if (FT_Open_Face(library, &arguments, font.index, &face) != 0) {
            throw std::string("is no font that can be read");
        }
        if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0 ||
            FT_Select_Charmap(face, FT_ENCODING_UNICODE) != 0 || !MayBeEmbedded(face)) {
            const bool forbidden = !MayBeEmbedded(face);
            FT_Done_Face(face);
            throw std::string(forbidden ? "must not be embedded" : "has no outlines by character");
        }
        if (!HasAGlyphForEachWidth(face)) {
            FT_Done_Face(face);
            throw std::string("is damaged");
        }
    }
    ~OpenFont() { FT_Done_Face(face); }
    OpenFont(const OpenFont&) = delete;
    OpenFont& operator=(const OpenFont&) = delete;

    FontSource source;
    FT_Face face = nullptr;

 private:
    std::ifstream file_;
    FT_StreamRec stream_{};
};

}  // namespace

struct FontSet::Faces {
    Faces() {
        if (FT_Init_FreeType(&library) != 0) {
            throw RuntimeError(ErrorNumber::InternalError, "The font reader does not start.");
        }
    }
    ~Faces() {
        fonts.clear();
        FT_Done_FreeType(library);
    }
    FT_Library library = nullptr;
    std::vector<std::unique_ptr<OpenFont>> fonts;
    std::vector<FontSource> sources;
    char32_t replacement = 0;
};

FontSet::FontSet(const std::vector<FontSource>& sources) : faces_(std::make_unique<Faces>()) {
    std::string reasons;
    for (const FontSource& source : sources) {
        try {
            faces_->fonts.push_back(std::make_unique<OpenFont>(faces_->library, source));
            faces_->sources.push_back(source);
        } catch (const std::string& reason) {
            reasons += "\r\n" + source.path + " " + reason;
        }
    }
    if (faces_->fonts.empty()) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "No font can be used." + reasons);
    }
    blocks_.resize(kLastCharacter / kBlock + 1);
    for (const char32_t candidate : kReplacements) {
        faces_->replacement = candidate;
        if (LookUp(candidate).index != 0) break;
    }
}

FontSet::~FontSet() = default;

const std::vector<FontSource>& FontSet::Fonts() const {
    return faces_->sources;
}

char32_t FontSet::Replacement() const {
    return faces_->replacement;
}

Glyph FontSet::LookUp(char32_t character) const {
    const auto find = [this](char32_t c) {
        Glyph glyph;
        for (std::size_t i = 0; i < faces_->fonts.size(); i++) {
            const FT_Face face = faces_->fonts[i]->face;
            const FT_UInt index = FT_Get_Char_Index(face, c);
            if (index == 0 || index > 0xFFFF) continue;
            FT_Fixed advance = 0;
            if (FT_Get_Advance(face, index, FT_LOAD_NO_SCALE, &advance) != 0) continue;
            // Damaged: texts would run backwards.
            if (advance < 0) continue;
            glyph.font = static_cast<std::uint16_t>(i);
            glyph.index = static_cast<std::uint16_t>(index);
            glyph.advance = static_cast<float>(advance) / static_cast<float>(face->units_per_EM);
            break;
        }
        return glyph;
    };
    Glyph glyph = find(character);
    if (glyph.index == 0) {
        glyph = find(faces_->replacement);
        glyph.isReplacement = true;
        // A font without even a question mark: its own sign for what it lacks.
        if (glyph.advance == 0) glyph.advance = 1;
    }
    return glyph;
}

const Glyph& FontSet::Find(char32_t character) const {
    if (character > kLastCharacter) character = 0xFFFD;
    std::unique_ptr<Block>& block = blocks_[character / kBlock];
    if (!block) {
        block = std::make_unique<Block>();
        block->fill({0, 0, -1, false});
    }
    Glyph& glyph = (*block)[character % kBlock];
    if (glyph.advance < 0) glyph = LookUp(character);
    return glyph;
}

double FontSet::Width(std::string_view text, double size) const {
    double width = 0;
    for (std::size_t position = 0; position < text.size();) {
        width += static_cast<double>(Find(text::NextCodePoint(text, position)).advance);
    }
    return width * size;
}

}  // namespace zv::report
