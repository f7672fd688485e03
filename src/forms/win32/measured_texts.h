// The sizes of texts in the windows' font at one resolution. A window is laid out again and again
// by the same captions, and a font is dear: each text is measured once.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <unordered_map>

namespace zv::forms::win32 {

class MeasuredTexts {
 public:
    explicit MeasuredTexts(int dpi) : dpi_(dpi) {}

    int Dpi() const { return dpi_; }
    /// In pixels; lines are broken at line feeds. `font` is the one that the user has chosen for
    /// messages: with another one everything is measured anew.
    SIZE SizeOf(std::string_view text, const LOGFONTW& font);

 private:
    int dpi_;
    LOGFONTW font_{};
    std::unordered_map<std::string, SIZE> sizes_;
};

}  // namespace zv::forms::win32
