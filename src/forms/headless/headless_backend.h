// A backend without a display: windows are nothing but the state that their controls keep, and
// their places on monitors that exist nowhere else.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/backend.h"
#include "forms/monitors.h"

namespace zv::forms::headless {

class HeadlessWindow;

class HeadlessBackend : public Backend {
 public:
    /// `dialogs` answers message boxes and the like; it must outlive the backend.
    explicit HeadlessBackend(Dialogs& dialogs) : dialogs_(dialogs) {}

    /// Runs while a modal window is open and must return only after it is gone, as the user's
    /// closing it would. Without one a modal window is an error, because nobody could close it.
    std::function<void(Form&)> modalLoop;
    /// Windows that are open do not notice a change.
    Monitors monitors{{{{0, 0, 1280, 960}, {0, 0, 1280, 960}}}};
    SystemTheme theme;

    /// Called while a popup menu is open and the user does nothing; the menu closes when it
    /// returns.
    std::function<void()> onMenuIdle;

    std::unique_ptr<FormPeer> Realize(Form& form) override;
    void RunModal(Form& form) override;
    /// By fixed widths: 12 for a wide character, 6 for any other, 16 a line; more where a monitor
    /// on which a window is or was needs a whole pixel for it.
    Size MeasureText(std::string_view text) override;
    Rect WorkArea() override;
    void MeetMonitor() override { Meets(WhereTheUserWorks().dpi); }
    int ScrollBarSize() override { return 16; }
    SystemTheme GetTheme() override { return theme; }
    Dialogs& GetDialogs() override { return dialogs_; }
    void SetClipboardText(std::string_view text) override { clipboard_ = text; }
    std::string ClipboardText() override { return clipboard_; }

    /// From now on there are these; windows that are open follow, as they do when a system says
    /// so.
    void SetMonitors(Monitors others);
    /// The user drags a window by its frame until its corner is there, in pixels of the desktop.
    void Drag(const Form& form, Position corner);
    /// The user works at the window: new ones start on its monitor.
    void Raise(const Form& form);
    /// The native window; null when the form has none.
    const HeadlessWindow* Find(const Form& form) const;

 private:
    friend class HeadlessWindow;
    Monitor WhereTheUserWorks() const;
    HeadlessWindow* FindWindow(const Form& form) const;
    /// A window has, or will have, this resolution. True when none had it so far.
    bool Meets(int dpi);

    Dialogs& dialogs_;
    std::string clipboard_;
    std::vector<HeadlessWindow*> windows_;  ///< the one at which the user works is the last
    std::vector<int> resolutions_{Scale::kUsualDpi};
};

/// A window that nobody sees, without a frame; it lies within the work area as others do.
class HeadlessWindow {
 public:
    HeadlessWindow(HeadlessBackend& backend, Form& form);
    ~HeadlessWindow();
    HeadlessWindow(const HeadlessWindow&) = delete;
    HeadlessWindow& operator=(const HeadlessWindow&) = delete;

    Form& Logical() const { return form_; }
    /// In pixels of the desktop.
    const Rect& Place() const { return place_; }
    int Dpi() const { return scale_.Dpi(); }

    void Start();
    void BoundsChanged();
    void StateChanged();
    /// Brings it back when it is minimised.
    void Restore();
    void FollowMonitor();
    void DraggedTo(Position corner);

 private:
    void PlaceWhole(Size pixels);
    void FollowScale(const Monitor& monitor);
    void TakePlaceOn(const Monitor& monitor);
    Rect Units() const { return scale_.ToUnits(place_); }
    Size Inside() const { return {Units().width, Units().height}; }

    HeadlessBackend& backend_;
    Form& form_;
    Scale scale_;
    Rect place_;
    bool placing_ = false;
    std::optional<Rect> restored_;  ///< while it is maximised
};

}  // namespace zv::forms::headless
