// Letters by which windows and papers measure and choose fonts. Nobody reads them as texts.
#pragma once

#include <string>

namespace zv::resources {

/// As wide as any letter.
inline constexpr char kWideLetter[] = "国";
/// From the highest to the lowest place of a line.
inline constexpr char kTallLetters[] = "国Wg";

/// A font of a script has all of its letters.
inline constexpr wchar_t kSimplifiedLetters[] = L"任务类状";
inline constexpr wchar_t kTraditionalLetters[] = L"任務類狀";
inline constexpr wchar_t kLettersOfBothScripts[] = L"任务任務";

inline std::string WideLetters(int count) {
    std::string letters;
    for (int i = 0; i < count; i++) letters += kWideLetter;
    return letters;
}

}  // namespace zv::resources
