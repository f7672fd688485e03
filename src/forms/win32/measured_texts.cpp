#include "forms/win32/measured_texts.h"

#include <utility>

#include "forms/win32/display.h"

namespace zv::forms::win32 {
namespace {

// Captions are few; what users type is measured, too.
constexpr std::size_t kMostTexts = 1000;

bool IsSame(const LOGFONTW& a, const LOGFONTW& b) {
    return a.lfHeight == b.lfHeight && a.lfWidth == b.lfWidth && a.lfWeight == b.lfWeight &&
           a.lfItalic == b.lfItalic && a.lfCharSet == b.lfCharSet && a.lfQuality == b.lfQuality &&
           lstrcmpW(a.lfFaceName, b.lfFaceName) == 0;
}

}  // namespace

SIZE MeasuredTexts::SizeOf(std::string_view text, const LOGFONTW& font) {
    if (!IsSame(font, font_) || sizes_.size() >= kMostTexts) sizes_.clear();
    font_ = font;
    std::string measured(text);
    const auto known = sizes_.find(measured);
    if (known != sizes_.end()) return known->second;
    const SIZE size = MeasureText(CreateUiFont(font).get(), text);
    sizes_.emplace(std::move(measured), size);
    return size;
}

}  // namespace zv::forms::win32
