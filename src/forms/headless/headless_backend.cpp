#include "forms/headless/headless_backend.h"

#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "forms/form.h"
#include "forms/viewport.h"

namespace zv::forms::headless {

namespace {

// Its menus take their time.
class HeadlessFormPeer : public FormPeer {
 public:
    HeadlessFormPeer(HeadlessBackend& backend, Form& form)
        : backend_(backend), form_(form), window_(backend, form) {
        window_.Start();
    }
    void Show() override {
        if (!form_.ComesByItself()) backend_.Raise(form_);
        if (std::exchange(shown_, true)) window_.Restore();
    }
    void Hide() override { shown_ = false; }
    void CaptionChanged() override {}
    void BoundsChanged() override { window_.BoundsChanged(); }
    void WindowStateChanged() override { window_.StateChanged(); }
    void FollowMonitor() override { window_.FollowMonitor(); }
    void MenuChanged(MenuItem&) override {}
    MenuItem* PopupMenu(MenuItem&, int, int) override {
        if (backend_.onMenuIdle) backend_.onMenuIdle();
        return nullptr;
    }

 private:
    HeadlessBackend& backend_;
    Form& form_;
    HeadlessWindow window_;
    bool shown_ = false;
};

}  // namespace

HeadlessWindow::HeadlessWindow(HeadlessBackend& backend, Form& form)
    : backend_(backend), form_(form), scale_(backend.WhereTheUserWorks().dpi) {
    backend_.windows_.insert(backend_.windows_.begin(), this);
}

HeadlessWindow::~HeadlessWindow() {
    std::erase(backend_.windows_, this);
}

void HeadlessWindow::Start() {
    const bool isMeasured = !backend_.Meets(scale_.Dpi());
    BoundsChanged();
    // Another monitor may have less or more room for the texts than the ones known so far.
    if (!isMeasured) form_.WasRescaled(Units(), Inside());
    if (form_.View().Inside() != Inside()) BoundsChanged();
}

void HeadlessWindow::BoundsChanged() {
    if (std::exchange(placing_, true)) return;
    const Rect& wanted = form_.Bounds();
    place_.left = scale_.ToPixels(wanted.left);
    place_.top = scale_.ToPixels(wanted.top);
    PlaceWhole(scale_.ToPixels(Size{wanted.width, wanted.height}));
    form_.WasPlaced(Units(), Inside());
    placing_ = false;
}

void HeadlessWindow::PlaceWhole(Size pixels) {
    // One that grows may have most of its new size on the next monitor, where it does not go.
    const Rect area = backend_.monitors.Around(place_).workArea;
    place_ = FitInto({place_.left, place_.top, pixels.width, pixels.height}, area);
}

void HeadlessWindow::FollowScale(const Monitor& monitor) {
    scale_ = Scale(monitor.dpi);
    backend_.Meets(monitor.dpi);
    TakePlaceOn(monitor);
    form_.WasRescaled(Units(), Inside());
}

void HeadlessWindow::FollowMonitor() {
    const Monitor monitor = backend_.monitors.Around(place_);
    if (monitor.dpi != scale_.Dpi()) return FollowScale(monitor);
    TakePlaceOn(monitor);
    form_.WasPlaced(Units(), Inside());
}

void HeadlessWindow::TakePlaceOn(const Monitor& monitor) {
    const Size wanted = scale_.ToPixels(form_.WantedInside());
    place_ = restored_ ? monitor.workArea
                       : FitInto({place_.left, place_.top, wanted.width, wanted.height},
                                 monitor.workArea);
}

void HeadlessWindow::StateChanged() {
    if (form_.State() == WindowState::Minimised) return;
    if (form_.State() == WindowState::Maximised) {
        if (!restored_) restored_ = place_;
        place_ = backend_.monitors.Around(place_).workArea;
    } else if (const auto former = std::exchange(restored_, std::nullopt)) {
        place_ = *former;
    }
    form_.UserResized(Units(), Inside());
    form_.HasPlaceAgain();
}

void HeadlessWindow::Restore() {
    if (form_.State() != WindowState::Minimised) return;
    form_.UserChangedState(restored_ ? WindowState::Maximised : WindowState::Normal);
    StateChanged();
}

void HeadlessWindow::DraggedTo(Position corner) {
    place_.left = corner.x;
    place_.top = corner.y;
    const Monitor monitor = backend_.monitors.Around(place_);
    if (monitor.dpi != scale_.Dpi()) return FollowScale(monitor);
    form_.UserResized(Units(), Inside());
}

std::unique_ptr<FormPeer> HeadlessBackend::Realize(Form& form) {
    return std::make_unique<HeadlessFormPeer>(*this, form);
}

void HeadlessBackend::RunModal(Form& form) {
    if (!modalLoop) {
        throw RuntimeError(ErrorNumber::InternalError, "No message loop for a modal window");
    }
    modalLoop(form);
}

Size HeadlessBackend::MeasureText(std::string_view text) {
    constexpr int kLine = 16;
    constexpr int kNarrow = 6;
    constexpr int kWide = 12;
    constexpr char32_t kFirstWide = 0x1100;
    Size most;
    for (const int dpi : resolutions_) {
        const Scale scale(dpi);
        // A character has whole pixels, and what it needs is rounded up.
        const auto up = [&](int units) {
            const int pixels = scale.ToPixels(units);
            return pixels * Scale::kUsualDpi < units * dpi ? pixels + 1 : pixels;
        };
        Size size{0, up(kLine)};
        int width = 0;
        for (std::size_t position = 0; position < text.size();) {
            const char32_t c = text::NextCodePoint(text, position);
            if (c == '\r') continue;
            if (c == '\n') {
                size.height += up(kLine);
                width = 0;
                continue;
            }
            width += up(c < kFirstWide ? kNarrow : kWide);
            size.width = std::max(size.width, width);
        }
        most.width = std::max(most.width, scale.UnitsThatHold(size.width));
        most.height = std::max(most.height, scale.UnitsThatHold(size.height));
    }
    return most;
}

bool HeadlessBackend::Meets(int dpi) {
    if (std::find(resolutions_.begin(), resolutions_.end(), dpi) != resolutions_.end())
        return false;
    resolutions_.push_back(dpi);
    return true;
}

Rect HeadlessBackend::WorkArea() {
    const Monitor monitor = WhereTheUserWorks();
    return Scale(monitor.dpi).ToUnits(monitor.workArea);
}

Monitor HeadlessBackend::WhereTheUserWorks() const {
    const auto shown =
        std::find_if(windows_.rbegin(), windows_.rend(),
                     [](const HeadlessWindow* window) { return window->Logical().IsShown(); });
    return shown != windows_.rend() ? monitors.Around((*shown)->Place()) : monitors.Primary();
}

void HeadlessBackend::SetMonitors(Monitors others) {
    monitors = std::move(others);
    for (HeadlessWindow* window : std::vector(windows_)) {
        // What one window does when it is laid out may close another.
        const bool isThere = std::find(windows_.begin(), windows_.end(), window) != windows_.end();
        if (isThere) window->Logical().MonitorsChanged();
    }
}

void HeadlessBackend::Drag(const Form& form, Position corner) {
    Raise(form);
    if (HeadlessWindow* window = FindWindow(form)) window->DraggedTo(corner);
}

void HeadlessBackend::Raise(const Form& form) {
    HeadlessWindow* window = FindWindow(form);
    if (!window) return;
    std::erase(windows_, window);
    windows_.push_back(window);
}

HeadlessWindow* HeadlessBackend::FindWindow(const Form& form) const {
    const auto at = std::find_if(windows_.begin(), windows_.end(),
                                 [&](const auto* window) { return &window->Logical() == &form; });
    return at == windows_.end() ? nullptr : *at;
}

const HeadlessWindow* HeadlessBackend::Find(const Form& form) const {
    return FindWindow(form);
}

}  // namespace zv::forms::headless
