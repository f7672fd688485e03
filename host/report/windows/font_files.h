// The system's fonts as files that the layout and the PDF writer can read.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "report/font_set.h"

namespace zv::report {

/// Copies of the fonts in the user's temporary folder, which are deleted with this object: the
/// system says what a font holds, but not in which file it stands.
class FontFiles {
 public:
    FontFiles() = default;
    ~FontFiles();
    FontFiles(const FontFiles&) = delete;
    FontFiles& operator=(const FontFiles&) = delete;

    /// At most `count` fonts for a language (1 Traditional, any other Simplified), the first choice
    /// first: those of its script, those of the other one, then what the system has for rare
    /// characters and signs. Each font is large, so ask for more only when it is needed.
    std::vector<FontSource> ForLanguage(std::int16_t language, std::size_t count);

 private:
    struct Kept {
        std::string identity;  ///< table of names
        std::string path;
        int index = 0;
    };

    struct Choice {
        const wchar_t* family;
        std::wstring_view sample;  ///< characters that it must hold; empty: any
    };
    struct Chain {
        std::vector<Choice> left;  ///< not looked at yet, the next one last
        std::vector<FontSource> found;
    };

    static Chain MakeChain(std::int16_t language);
    void Look(const Choice& choice, std::vector<FontSource>& found);
    const Kept* Keep(HDC dc);

    std::vector<Kept> kept_;
    std::map<std::int16_t, Chain> chains_;  ///< by language
};

}  // namespace zv::report
