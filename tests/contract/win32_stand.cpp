#include <windows.h>

#include "driver/win32/win32_driver.h"
#include "forms/win32/handles.h"
#include "stand.h"

namespace zv::contract {
namespace {

class Win32Stand : public Stand {
 public:
    forms::Backend& GetBackend() override { return backend_; }
    driver::Driver& GetDriver() override { return driver_; }
    void SetModalLoop(std::function<void(forms::Form&)> loop) override {
        backend_.modalLoop = std::move(loop);
    }
    void SetMenuLoop(std::function<void()> loop) override {
        backend_.onMenuIdle = [loop = std::move(loop)] {
            loop();
            EndMenu();
        };
    }
    void SetWorkArea(const forms::Rect& area) override { backend_.SetWorkArea(area); }
    void SetMonitors(const forms::Monitors& monitors) override { backend_.SetMonitors(monitors); }
    int LiveHandles() const override {
        return forms::win32::LiveHandles() - before_ + forms::win32::Win32Backend::OpenWindows();
    }

 private:
    driver::PlayedBackend backend_{GetModuleHandleW(nullptr), &dialogs};
    driver::Win32Driver driver_{backend_};
    // The backend itself holds the common controls as long as it lives.
    int before_ = forms::win32::LiveHandles();
};

}  // namespace

std::unique_ptr<Stand> MakeStand() {
    return std::make_unique<Win32Stand>();
}

}  // namespace zv::contract
