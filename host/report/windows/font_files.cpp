#include "report/windows/font_files.h"

#include <algorithm>
#include <array>
#include <new>

#include "base/win32/wide.h"
#include "forms/win32/handles.h"
#include "report/font_collection.h"
#include "resources/glyph_samples.h"
#include "resources/texts.h"

namespace zv::report {
namespace {

using forms::win32::Font;
using forms::win32::Selected;
using forms::win32::WindowDc;

constexpr DWORD TableTag(char a, char b, char c, char d) {
    return static_cast<DWORD>(static_cast<unsigned char>(a)) |
           static_cast<DWORD>(static_cast<unsigned char>(b)) << 8 |
           static_cast<DWORD>(static_cast<unsigned char>(c)) << 16 |
           static_cast<DWORD>(static_cast<unsigned char>(d)) << 24;
}
constexpr DWORD kWholeCollection = TableTag('t', 't', 'c', 'f');
constexpr DWORD kNames = TableTag('n', 'a', 'm', 'e');

constexpr std::array kSimplifiedFonts{L"Microsoft YaHei", L"Microsoft YaHei UI", L"DengXian",
                                      L"SimSun", L"SimHei"};
constexpr std::array kTraditionalFonts{L"Microsoft JhengHei", L"Microsoft JhengHei UI", L"PMingLiU",
                                       L"MingLiU"};
// What a machine with another set of fonts may have.
constexpr std::array kOtherFonts{L"WenQuanYi Micro Hei", L"Noto Sans CJK SC", L"Arial Unicode MS"};
constexpr std::array kRareFonts{L"SimSun-ExtB", L"MingLiU-ExtB", L"Segoe UI Symbol",
                                L"Segoe UI Emoji"};

std::string TableOf(HDC dc, DWORD table) {
    const DWORD size = GetFontData(dc, table, 0, nullptr, 0);
    if (size == GDI_ERROR || size == 0) return {};
    std::string bytes(size, '\0');
    if (GetFontData(dc, table, 0, bytes.data(), size) != size) return {};
    return bytes;
}

bool Holds(HDC dc, std::wstring_view sample) {
    std::array<WORD, 8> glyphs{};
    const int count = static_cast<int>(std::min(sample.size(), glyphs.size()));
    if (GetGlyphIndicesW(dc, sample.data(), count, glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS) ==
        GDI_ERROR) {
        return false;
    }
    return std::find(glyphs.begin(), glyphs.begin() + count, WORD{0xFFFF}) ==
           glyphs.begin() + count;
}

// The system puts another font in the place of one that it does not have.
bool IsNamed(HDC dc, const wchar_t* family) {
    std::array<wchar_t, LF_FACESIZE> actual{};
    GetTextFaceW(dc, LF_FACESIZE, actual.data());
    return lstrcmpiW(actual.data(), family) == 0;
}

// Path of a new file with these bytes; empty when it cannot be written.
std::wstring WriteTemporary(const std::string& bytes) {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    std::array<wchar_t, MAX_PATH + 1> path{};
    if (GetTempPathW(MAX_PATH, folder.data()) == 0) return {};
    if (GetTempFileNameW(folder.data(), L"zvf", 0, path.data()) == 0) return {};
    const HANDLE file = CreateFileW(path.data(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_TEMPORARY, nullptr);
    DWORD written = 0;
    const bool done =
        file != INVALID_HANDLE_VALUE &&
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
        written == bytes.size();
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (done) return path.data();
    DeleteFileW(path.data());
    return {};
}

}  // namespace

FontFiles::~FontFiles() {
    // A file that several fonts share is gone by the second time.
    for (const Kept& kept : kept_) {
        try {
            DeleteFileW(win32::ToWide(kept.path).c_str());
        } catch (const std::bad_alloc&) {
            // The system removes temporary files as well.
        }
    }
}

const FontFiles::Kept* FontFiles::Keep(HDC dc) {
    std::string names = TableOf(dc, kNames);
    if (names.empty()) return nullptr;  // a bitmap font
    const auto known = std::find_if(kept_.begin(), kept_.end(),
                                    [&](const Kept& kept) { return kept.identity == names; });
    if (known != kept_.end()) return &*known;
    std::string file = TableOf(dc, kWholeCollection);
    if (file.empty()) file = TableOf(dc, 0);
    const int index = FindInCollection(file, names);
    if (file.empty() || index < 0) return nullptr;
    const std::wstring path = WriteTemporary(file);
    if (path.empty()) return nullptr;
    kept_.push_back({std::move(names), win32::ToUtf8(path), index});
    return &kept_.back();
}

void FontFiles::Look(const Choice& choice, std::vector<FontSource>& found) {
    LOGFONTW wanted{};
    wanted.lfHeight = -100;
    wanted.lfCharSet = DEFAULT_CHARSET;
    wanted.lfOutPrecision = OUT_TT_ONLY_PRECIS;
    lstrcpynW(wanted.lfFaceName, choice.family, LF_FACESIZE);
    const WindowDc screen(nullptr);
    const Font font(CreateFontIndirectW(&wanted));
    const Selected selected(screen.get(), font.get());
    if (choice.sample.empty() ? !IsNamed(screen.get(), choice.family)
                              : !Holds(screen.get(), choice.sample)) {
        return;
    }
    const Kept* kept = Keep(screen.get());
    if (!kept) return;
    const bool isKnown = std::any_of(found.begin(), found.end(), [&](const FontSource& other) {
        return other.path == kept->path && other.index == kept->index;
    });
    if (!isKnown) found.push_back({kept->path, kept->index, win32::ToUtf8(choice.family)});
}

FontFiles::Chain FontFiles::MakeChain(std::int16_t language) {
    Chain chain;
    const auto add = [&](const auto& families, std::wstring_view sample) {
        for (const wchar_t* family : families) chain.left.push_back({family, sample});
    };
    if (language == resources::kTraditionalChinese) {
        add(kTraditionalFonts, resources::kTraditionalLetters);
        add(kSimplifiedFonts, resources::kSimplifiedLetters);
    } else {
        add(kSimplifiedFonts, resources::kSimplifiedLetters);
        add(kTraditionalFonts, resources::kTraditionalLetters);
    }
    add(kOtherFonts, resources::kSimplifiedLetters);
    add(kRareFonts, {});
    std::reverse(chain.left.begin(), chain.left.end());
    return chain;
}

std::vector<FontSource> FontFiles::ForLanguage(std::int16_t language, std::size_t count) {
    auto at = chains_.find(language);
    if (at == chains_.end()) at = chains_.emplace(language, MakeChain(language)).first;
    Chain& chain = at->second;
    while (chain.found.size() < count && !chain.left.empty()) {
        const Choice choice = chain.left.back();
        chain.left.pop_back();
        Look(choice, chain.found);
    }
    const std::size_t taken = std::min(count, chain.found.size());
    return {chain.found.begin(), chain.found.begin() + static_cast<std::ptrdiff_t>(taken)};
}

}  // namespace zv::report
