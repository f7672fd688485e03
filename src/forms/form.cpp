#include "forms/form.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

#include "forms/buttons.h"
#include "forms/menu.h"
#include "forms/text_box.h"

namespace zv::forms {

Form::Form(WindowSystem& windows, std::string name)
    : windows_(windows), name_(std::move(name)), caption_(name_) {}

Form::~Form() = default;

void Form::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    if (peer_) peer_->CaptionChanged();
}

void Form::Load() {
    if (loaded_ || gone_) return;
    loaded_ = true;
    loading_ = true;
    try {
        // Texts are measured as the monitor shows them where the window starts.
        windows_.GetBackend().MeetMonitor();
        Form_Load();
    } catch (...) {
        loading_ = false;
        Vanish();
        throw;
    }
    loading_ = false;
}

void Form::Show(bool modal) {
    // If something unloads the window meanwhile, it is destroyed only after this has let it go.
    const WindowSystem::Scope scope(windows_);
    windows_.RefuseBeside(modal, this);
    Load();
    if (shown_) {
        if (peer_) peer_->Show();
        Activate();
        return;
    }
    try {
        Appear(modal);
    } catch (...) {
        Hide();
        throw;
    }
    if (!modal) return;
    loopDepth_ = windows_.depth_;
    try {
        if (shown_) windows_.RunModalLoop(*this);
    } catch (...) {
        EndModal();
        throw;
    }
    EndModal();
}

void Form::Appear(bool modal) {
    // A box shown while it loaded lets others in, who may have unloaded it.
    if (gone_) return;
    if (windows_.Interrupted()) throw RuntimeError(ErrorNumber::UserInterrupt);
    Realize();
    shown_ = true;
    seen_ = true;
    modal_ = modal;
    if (modal) windows_.EnterModal(*this);
    if (peer_) peer_->Show();
    if (!active_) MoveFocus(+1);
    Activate();
}

void Form::Realize() {
    if (peer_) return;
    Form_Resize();
    peer_ = windows_.GetBackend().Realize(*this);
}

void Form::LoadUnseen() {
    const WindowSystem::Scope scope(windows_);
    Load();
    if (!gone_) Realize();
}

void Form::Surface() {
    const WindowSystem::Scope scope(windows_);
    LoadUnseen();
    if (gone_ || shown_) return;
    if (windows_.Interrupted()) throw RuntimeError(ErrorNumber::UserInterrupt);
    shown_ = true;
    seen_ = true;
    if (peer_) peer_->Show();
    if (!active_) MoveFocus(+1);
}

void Form::EndModal() noexcept {
    windows_.LeaveModal(*this);
    // A loop that ends for another reason leaves a window that nobody could close any more.
    if (windows_.Holds(*this)) Dismiss();
}

void Form::Hide() {
    if (!shown_) return;
    shown_ = false;
    modal_ = false;
    windows_.LeaveModal(*this);
    if (peer_) peer_->Hide();
}

void Form::Unload() {
    if (unloading_) return;
    unloading_ = true;
    bool cancel = false;
    try {
        if (loaded_) Form_QueryUnload(cancel, false);
        if (!cancel && loaded_) Form_Unload(cancel);
    } catch (...) {
        unloading_ = false;
        throw;
    }
    if (cancel) {
        unloading_ = false;
        return;
    }
    Vanish();
}

void Form::Vanish() {
    Hide();
    ReportClosed();
    gone_ = true;
    loaded_ = false;
    active_ = nullptr;
    for (Control* control : controls_) control->DetachPeer();
    peer_.reset();
    windows_.Retire(*this);
}

void Form::ReportClosed() {
    if (!seen_ || gone_ || !windows_.onClosed) return;
    try {
        windows_.onClosed(name_);
    } catch (const std::bad_alloc&) {
        // The window goes all the same; nobody learns of it.
    }
}

void Form::Dismiss() noexcept {
    const bool asked = std::exchange(unloading_, true) || !loaded_;
    bool cancel = false;
    try {
        if (!asked && seen_) Form_QueryUnload(cancel, true);
        if (!asked) Form_Unload(cancel);
    } catch (const std::exception&) {
        // The window goes all the same. What is reported is the error that ends it, where there is
        // one.
    }
    Vanish();
}

void Form::Discard() noexcept {
    if (!windows_.Holds(*this)) return;
    seen_ = false;
    Dismiss();
}

void Form::Form_QueryUnload(bool&, bool) {}
void Form::Form_Unload(bool&) {}

void Form::Move(const Rect& bounds) {
    if (bounds == bounds_) return;
    bounds_ = bounds;
    if (peer_) peer_->BoundsChanged();
}

void Form::Center() {
    const Rect area = windows_.GetBackend().WorkArea();
    // A window that is larger shows its title bar and its first controls.
    const auto middle = [](int start, int room, int size) {
        return start + std::max((room - size) / 2, 0);
    };
    Move({middle(area.left, area.width, bounds_.width),
          middle(area.top, area.height, bounds_.height), bounds_.width, bounds_.height});
}

void Form::SetClientSize(Size size) {
    // Until the native window reports its real frame the outer size keeps the present difference.
    bounds_.width += size.width - inside_.width;
    bounds_.height += size.height - inside_.height;
    inside_ = wanted_ = size;
    UpdateView();
    if (peer_) peer_->BoundsChanged();
    if (loaded_) Form_Resize();
}

void Form::SetMinimumClientSize(Size size) {
    minimumClientSize_ = size;
    UpdateView();
}

Size Form::SmallestInside() const {
    constexpr Size kSmallest{320, 240};
    return {std::min(minimumClientSize_.width, kSmallest.width),
            std::min(minimumClientSize_.height, kSmallest.height)};
}

void Form::SetSizable(bool sizable) {
    sizable_ = sizable;
    UpdateView();
}

void Form::UpdateView() {
    // What cannot be sized has one layout.
    view_.Set(inside_, sizable_ ? minimumClientSize_ : wanted_,
              windows_.GetBackend().ScrollBarSize());
    clientSize_ = view_.Content();
    if (peer_) peer_->ViewChanged();
}

void Form::Reveal(const Control& control) {
    if (view_.Reveal(control.PlaceInWindow()) && peer_) peer_->ViewChanged();
}

void Form::SetState(WindowState state) {
    if (state == state_) return;
    state_ = state;
    if (peer_) peer_->WindowStateChanged();
}

std::function<void()> Form::Remember() {
    std::vector<std::function<void()>> parts;
    for (Control* control : controls_) parts.push_back(control->Remember());
    for (MenuItem* item : menus_) parts.push_back(item->Remember());
    return [this, parts = std::move(parts), caption = caption_, active = active_] {
        SetCaption(caption);
        for (const auto& part : parts) part();
        active_ = active;
        if (active_ && active_->Peer()) active_->Peer()->TakeFocus();
    };
}

void Form::Refresh() {
    if (peer_) peer_->PaintNow();
}

Control* Form::FindControl(std::string_view name, int index) const {
    for (Control* control : controls_) {
        if (control->Name() == name && control->Index() == index) return control;
    }
    return nullptr;
}

MenuItem* Form::FindMenu(std::string_view name, int index) const {
    for (MenuItem* item : menus_) {
        if (item->Name() == name && item->Index() == index) return item;
    }
    return nullptr;
}

bool Form::FocusTo(Control& target) {
    if (active_ == &target) return true;
    if (!target.CanFocus()) return false;
    if (active_ && active_->onValidate && target.causesValidation) {
        bool cancel = false;
        active_->onValidate(cancel);
        if (cancel) return false;
        // Validation may have hidden or disabled the target.
        if (!target.CanFocus()) return false;
    }
    SetActive(&target);
    return active_ == &target;
}

void Form::SetActive(Control* control) {
    Control* previous = active_;
    active_ = control;
    // The focus has moved, whatever is wrong with what was entered.
    std::exception_ptr failure;
    try {
        if (previous && previous->onLostFocus) previous->onLostFocus();
    } catch (...) {
        failure = std::current_exception();
    }
    // LostFocus may have sent the focus elsewhere.
    if (active_ == control && control) {
        Reveal(*control);
        if (control->Peer()) control->Peer()->TakeFocus();
        if (control->onGotFocus) control->onGotFocus();
    }
    if (failure) std::rethrow_exception(failure);
}

void Form::PopupMenu(MenuItem& menu, int x, int y, const std::function<bool()>& stillMeant) {
    // As on a screen, where a second menu is refused while one is open.
    if (windows_.StandingMenu()) return;
    lastPopup_ = menu.Name();
    lastPopupAt_ = {x, y};
    const auto open = [&] {
        MenuItem* entry = nullptr;
        do {
            menuMoves_ = false;
            entry = peer_->PopupMenu(menu, x, y);
        } while (menuMoves_ && peer_ && !entry && !windows_.chosenItem_);
        return entry;
    };
    MenuItem* chosen = peer_ ? windows_.ShowMenu(menu, open) : nullptr;
    // While it was open the window may have gone, and what the menu was about may have changed.
    if (!chosen || !IsShown()) return;
    if (stillMeant && !stillMeant()) return;
    // The entry may have become grey.
    if (chosen->CanChoose()) chosen->UserChosen();
}

void Form::Activate() {
    Form_Activate();
}

void Form::Unregister(Control& control) {
    std::erase(controls_, &control);
    std::erase(tabOrder_, &control);
    if (active_ == &control) active_ = nullptr;
}

void Form::UserClose() {
    windows_.FromUser([this] {
        // Nobody reaches the frame below a box: what closes the window then is a program.
        if (!windows_.SomethingStands() && (!MayLeave() || !windows_.Holds(*this))) return;
        bool cancel = false;
        Form_QueryUnload(cancel, true);
        if (!cancel) Unload();
    });
}

bool Form::MayLeave() {
    return !HoldsUnsavedInput() || windows_.MayDropInput();
}

void Form::ClockChanged() {
    if (loaded_) windows_.FromTimer([this] { Form_ClockChange(); });
}

bool Form::UserMayEnd() {
    bool may = false;
    windows_.FromUser([&] { may = !shown_ || !HoldsUnsavedInput() || windows_.MayDropInput(); });
    return may;
}

void Form::UserResized(Rect bounds, Size inside) {
    // The size that it has after a change that it missed is not what anybody wants.
    if (missedMonitors_ && state_ != WindowState::Maximised) return;
    if (sizable_ && state_ == WindowState::Normal && inside != inside_) wanted_ = inside;
    WasPlaced(bounds, inside);
}

void Form::WasPlaced(Rect bounds, Size inside) {
    bounds_ = bounds;
    if (inside == inside_) return;
    inside_ = inside;
    const Size former = clientSize_;
    UpdateView();
    if (clientSize_ != former) windows_.FromUser([this] { Form_Resize(); });
}

void Form::WasRescaled(Rect bounds, Size inside) {
    MoveMenu();
    if (state_ == WindowState::Minimised) {
        missedMonitors_ = true;
        return;
    }
    bounds_ = bounds;
    inside_ = inside;
    UpdateView();
    LayOutAnew();
}

void Form::MonitorsChanged() {
    MoveMenu();
    missedMonitors_ = state_ != WindowState::Normal;
    if (state_ != WindowState::Minimised && peer_) peer_->FollowMonitor();
}

void Form::HasPlaceAgain() {
    if (state_ != WindowState::Normal || !missedMonitors_) return;
    if (peer_) peer_->FollowMonitor();
    // Another scale has laid it out already.
    if (missedMonitors_) LayOutAnew();
}

// A menu that is open stays where it was opened, whatever becomes of its monitor.
void Form::MoveMenu() {
    const MenuItem* standing = windows_.StandingMenu();
    menuMoves_ = standing && &standing->Owner() == this;
    if (peer_) peer_->CloseMenu();
}

void Form::LayOutAnew() {
    if (state_ == WindowState::Normal) missedMonitors_ = false;
    windows_.FromUser([this] {
        Form_Rescale();
        Form_Resize();
        if (active_) Reveal(*active_);
    });
}

void Form::UserScrolled(Position offset) {
    if (view_.ScrollTo(offset) && peer_) peer_->ViewChanged();
}

void Form::UserScrolled(Viewport::Axis axis, Viewport::Step step) {
    UserScrolled(view_.After(axis, step));
}

void Form::UserTurnedWheel(Viewport::Axis axis, int turned) {
    UserScrolled(view_.AfterWheel(axis, turned));
}

void Form::UserActivated() {
    windows_.FromUser([this] { Activate(); });
}

void Form::UserDestroyed() {
    windows_.FromUser([this] {
        if (modal_ && loopDepth_ > 0) windows_.InterruptFrom(loopDepth_);
        if (windows_.Holds(*this)) Dismiss();
    });
}

bool Form::UserFocused(Control& target) {
    bool moved = false;
    windows_.FromUser([&] { moved = FocusTo(target); });
    return moved;
}

}  // namespace zv::forms
