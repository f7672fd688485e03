#pragma once

#include <utility>

#include "backend_stand.h"
#include "driver/headless/headless_driver.h"
#include "forms/headless/headless_backend.h"

namespace zv::script {

class HeadlessStand : public BackendStand {
 public:
    HeadlessStand(forms::Dialogs& dialogs, Loops loops) : backend_(dialogs) {
        backend_.modalLoop = std::move(loops.modal);
        backend_.onMenuIdle = std::move(loops.menu);
    }
    forms::Backend& GetBackend() override { return backend_; }
    driver::Driver& GetDriver() override { return driver_; }
    void SetWorkArea(const forms::Rect& area) override {
        backend_.monitors = forms::Monitors({{area, area}});
    }
    void SetMonitors(const forms::Monitors& monitors) override { backend_.SetMonitors(monitors); }
    void SetTheme(const forms::SystemTheme& theme) override { backend_.theme = theme; }

 private:
    forms::headless::HeadlessBackend backend_;
    driver::HeadlessDriver driver_;
};

}  // namespace zv::script
