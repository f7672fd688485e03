#include "forms/headless/headless_backend.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"
#include "forms/form.h"

namespace zv::forms::headless {

std::unique_ptr<FormPeer> HeadlessBackend::Realize(Form&) {
    return nullptr;
}

void HeadlessBackend::RunModal(Form& form) {
    if (!modalLoop) {
        throw RuntimeError(ErrorNumber::InternalError, "No message loop for a modal window");
    }
    modalLoop(form);
}

Size HeadlessBackend::MeasureText(std::string_view text) {
    Size size{0, 16};
    int width = 0;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = text::NextCodePoint(text, position);
        if (c == '\r') continue;
        if (c == '\n') {
            size.height += 16;
            width = 0;
            continue;
        }
        width += c < 0x1100 ? 6 : 12;
        size.width = std::max(size.width, width);
    }
    return size;
}

}  // namespace zv::forms::headless
