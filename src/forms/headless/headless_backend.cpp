#include "forms/headless/headless_backend.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"
#include "forms/form.h"

namespace zv::forms::headless {

namespace {

// A window that nobody sees; only its menus take their time.
class HeadlessFormPeer : public FormPeer {
 public:
    explicit HeadlessFormPeer(HeadlessBackend& backend) : backend_(backend) {}
    void Show() override {}
    void Hide() override {}
    void CaptionChanged() override {}
    void BoundsChanged() override {}
    void WindowStateChanged() override {}
    void MenuChanged(MenuItem&) override {}
    MenuItem* PopupMenu(MenuItem&, int, int) override {
        if (backend_.onMenuIdle) backend_.onMenuIdle();
        return nullptr;
    }

 private:
    HeadlessBackend& backend_;
};

}  // namespace

std::unique_ptr<FormPeer> HeadlessBackend::Realize(Form&) {
    return std::make_unique<HeadlessFormPeer>(*this);
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
