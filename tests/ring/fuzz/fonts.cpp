#include "fonts.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "base/errors.h"
#include "base/text.h"
#include "doubles/memory_file.h"
#include "report/font_collection.h"
#include "report/layout.h"
#include "report/pdf_painter.h"
#include "target.h"
#include "temporary_folder.h"

namespace zv::fuzz {
namespace {

using report::FontSet;
using report::FontSource;

const std::string kSound = ZV_FUZZ_CORPUS "/fonts/boxes.ttf";
// The last one is in no font.
constexpr std::u32string_view kCharacters = U" A\u52A1\u25A1?\u00E9\U0010FFFF";

std::string Utf8(std::u32string_view characters) {
    std::string text;
    for (const char32_t c : characters) text::AppendCodePoint(text, c);
    return text;
}

void HoldWidths(const FontSet& fonts, const FontProduct& product) {
    double sum = 0;
    for (const char32_t c : kCharacters) {
        const double advance = product.advance(fonts, c);
        Hold(std::isfinite(advance) && advance >= 0, "a character has no width");
        Hold(fonts.Find(c).font < fonts.Fonts().size(),
             "a character is of a font that is not there");
        sum += advance;
    }
    const double width = fonts.Width(Utf8(kCharacters), 10);
    Hold(std::abs(width - 10 * sum) <= 1e-3 * std::max(1.0, width), "widths do not add up");
}

void HoldPrinted(const FontSet& fonts, bool toFile) {
    report::Document document;
    document.title = Utf8(kCharacters);
    document.table.columns = {{"A"}, {"\u52A1"}};
    document.table.rows = {{Utf8(kCharacters), "A A A"}};
    const report::Layout layout(document, fonts);
    Hold(layout.PageCount() >= 1, "there is no page");
    Hold(!layout.MakePage(1).texts.empty(), "the page is empty");
    if (!toFile) return;
    doubles::MemoryFile file;
    report::WritePdf(layout, file);
    Hold(file.bytes.starts_with("%PDF-") && text::Contains(file.bytes, "%%EOF"),
         "the file is no PDF file");
}

/// The writer of PDF files has a reader of its own, which does not stand every damage.
bool IsSound(std::string_view font) {
    static const std::string sound = [] {
        std::ifstream stream(kSound, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream),
                           std::istreambuf_iterator<char>());
    }();
    return font == sound;
}

std::optional<FontSet> Open(const std::vector<FontSource>& sources) {
    try {
        return std::optional<FontSet>(std::in_place, sources);
    } catch (const RuntimeError& error) {
        Hold(error.Number() == ErrorNumber::InvalidProcedureCall, "refused with another error");
        Hold(text::Contains(error.Text(), sources.front().path), "refused without its name");
        return std::nullopt;
    }
}

}  // namespace

void PlayFont(std::string_view input, const FontProduct& product) {
    // A long run outlives changes of the corpus.
    static const test::TemporaryFolder folder;
    static const std::string sound = [] {
        std::filesystem::copy_file(kSound, folder / "sound.ttf");
        return (folder / "sound.ttf").string();
    }();
    const std::string path = (folder / "font.ttf").string();
    std::ofstream(path, std::ios::binary | std::ios::trunc) << input;

    const int place = report::FindInCollection(input, "name");
    Hold(place >= -1, "a place that is none");
    const std::optional<FontSet> alone = Open({{path, std::max(place, 0), {}}});
    const std::optional<FontSet> both = Open({{path, std::max(place, 0), {}}, {sound, 0, {}}});
    Hold(both.has_value(), "a sound font is refused beside it");
    Hold(both->Fonts().size() == (alone ? 2U : 1U), "taken beside another font and not alone");
    HoldWidths(*both, product);
    Hold(!both->Find(U'A').isReplacement, "a sound font does not help out");
    if (!alone) return;
    HoldWidths(*alone, product);
    HoldPrinted(*alone, IsSound(input));
}

std::vector<std::string> FontSeeds() {
    return {"no font"};
}

}  // namespace zv::fuzz
