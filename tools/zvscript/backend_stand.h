// A backend of the window layer together with the driver that plays the user on it.
#pragma once

#include <functional>
#include <memory>

#include "driver/driver.h"
#include "forms/backend.h"
#include "forms/monitors.h"

namespace zv::script {

enum class BackendKind { Headless, Win32 };

/// What runs while something waits for the user.
struct Loops {
    std::function<void(forms::Form&)> modal;  ///< returns when the modal window is gone
    std::function<void()> menu;               ///< the menu closes when it returns
};

class BackendStand {
 public:
    virtual ~BackendStand() = default;
    virtual forms::Backend& GetBackend() = 0;
    virtual driver::Driver& GetDriver() = 0;
    /// What windows may cover of the screen, in units.
    virtual void SetWorkArea(const forms::Rect& area) = 0;
    /// From now on there are these monitors; windows that are open follow.
    virtual void SetMonitors(const forms::Monitors& monitors) = 0;
    /// The system's colours.
    virtual void SetTheme(const forms::SystemTheme& theme) = 0;
    /// Lets the windows handle what an act has left waiting.
    virtual void Settle() {}
};

bool IsAvailable(BackendKind kind);
/// `dialogs` must outlive the stand.
std::unique_ptr<BackendStand> MakeStand(BackendKind kind, forms::Dialogs& dialogs, Loops loops);

}  // namespace zv::script
