// A backend of the window layer together with the driver that plays the user on it.
#pragma once

#include <functional>
#include <memory>

#include "forms/backend.h"
#include "forms/driver.h"

namespace zv::script {

enum class BackendKind { Headless, Win32 };

/// Runs while a modal window is open; returns when it is gone.
using ModalLoop = std::function<void(forms::Form&)>;

class BackendStand {
 public:
    virtual ~BackendStand() = default;
    virtual forms::Backend& GetBackend() = 0;
    virtual forms::Driver& GetDriver() = 0;
    /// Lets the windows handle what an act has left waiting.
    virtual void Settle() {}
};

bool IsAvailable(BackendKind kind);
/// `dialogs` must outlive the stand.
std::unique_ptr<BackendStand> MakeStand(BackendKind kind, forms::Dialogs& dialogs, ModalLoop loop);

}  // namespace zv::script
