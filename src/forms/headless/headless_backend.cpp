#include "forms/headless/headless_backend.h"

#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "forms/form.h"

namespace zv::forms::headless {

namespace {

// A window that nobody sees, without a frame; it lies within the work area as others do, and its
// menus take their time.
class HeadlessFormPeer : public FormPeer {
 public:
    HeadlessFormPeer(HeadlessBackend& backend, Form& form) : backend_(backend), form_(form) {}
    void Show() override {}
    void Hide() override {}
    void CaptionChanged() override {}
    void BoundsChanged() override {
        if (std::exchange(placing_, true)) return;
        const Rect outer = FitInto(form_.Bounds(), backend_.workArea);
        form_.UserResized(outer, {outer.width, outer.height});
        placing_ = false;
    }
    void WindowStateChanged() override {}
    void MenuChanged(MenuItem&) override {}
    MenuItem* PopupMenu(MenuItem&, int, int) override {
        if (backend_.onMenuIdle) backend_.onMenuIdle();
        return nullptr;
    }

 private:
    HeadlessBackend& backend_;
    Form& form_;
    bool placing_ = false;
};

}  // namespace

std::unique_ptr<FormPeer> HeadlessBackend::Realize(Form& form) {
    auto peer = std::make_unique<HeadlessFormPeer>(*this, form);
    peer->BoundsChanged();
    return peer;
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
