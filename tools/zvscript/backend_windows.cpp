// Real windows, real messages.
#include <windows.h>

#include "backend_headless.h"
#include "backend_stand.h"
#include "driver/win32/win32_driver.h"

namespace zv::script {
namespace {

class Win32Stand : public BackendStand {
 public:
    Win32Stand(forms::Dialogs& dialogs, Loops loops)
        : backend_(GetModuleHandleW(nullptr), &dialogs), driver_(backend_) {
        backend_.modalLoop = std::move(loops.modal);
        backend_.onMenuIdle = [menu = std::move(loops.menu)] {
            menu();
            EndMenu();
        };
        backend_.timersRun = false;  // a scenario has its own clock
    }
    forms::Backend& GetBackend() override { return backend_; }
    driver::Driver& GetDriver() override { return driver_; }
    void SetWorkArea(const forms::Rect& area) override { backend_.SetWorkArea(area); }
    void SetMonitors(const forms::Monitors& monitors) override {
        backend_.SetMonitors(monitors);
        driver::PumpMessages();
    }
    void SetTheme(const forms::SystemTheme& theme) override { backend_.theme = theme; }
    void Settle() override { driver::PumpMessages(); }

 private:
    driver::PlayedBackend backend_;
    driver::Win32Driver driver_;
};

}  // namespace

bool IsAvailable(BackendKind) {
    return true;
}

std::unique_ptr<BackendStand> MakeStand(BackendKind kind, forms::Dialogs& dialogs, Loops loops) {
    if (kind == BackendKind::Win32) return std::make_unique<Win32Stand>(dialogs, std::move(loops));
    return std::make_unique<HeadlessStand>(dialogs, std::move(loops));
}

}  // namespace zv::script
