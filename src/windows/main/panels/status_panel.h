// The line at the bottom of the window: what is due, what the list shows, and what was just done.
#pragma once

#include <functional>
#include <string>

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/timer.h"
#include "session/session.h"

namespace zv::windows {

class StatusPanel {
 public:
    /// Both must outlive the panel.
    StatusPanel(forms::Form& form, Session& session);

    /// The item that the notice is about is to be shown.
    std::function<void()> onShow;
    /// The window is at rest: what takes a while can be found out.
    std::function<void()> onRest;

    void SetCaptions();
    int Height() const;
    void Place(const forms::Rect& area);

    void Show(std::string line);
    /// A notice stands beside the line until it is taken away. `offersToShow`: with the button that
    /// shows what it is about.
    void Notify(std::string notice, bool offersToShow);
    void ClearNotice() { Notify({}, false); }
    /// Whether the button may be pressed.
    void AllowShow(bool allowed) { cmdShowSaved.SetEnabled(allowed); }
    /// Calls onRest once, when nothing else is to be done.
    void CallAtRest() { tmrRest.SetRunning(true); }
    void Rest() { tmrRest.SetRunning(false); }

 private:
    forms::Form& form_;
    Session& session_;
    forms::Rect area_;

 public:
    // Order of creation is tab order.
    forms::Label lblStatus;
    forms::Label lblNotice;
    forms::CommandButton cmdShowSaved;
    forms::Timer tmrRest;
};

}  // namespace zv::windows
