#pragma once

#include <utility>

#include "backend_stand.h"
#include "forms/headless/headless_backend.h"
#include "forms/headless/headless_driver.h"

namespace zv::script {

class HeadlessStand : public BackendStand {
 public:
    HeadlessStand(forms::Dialogs& dialogs, Loops loops) : backend_(dialogs) {
        backend_.modalLoop = std::move(loops.modal);
        backend_.onMenuIdle = std::move(loops.menu);
    }
    forms::Backend& GetBackend() override { return backend_; }
    forms::Driver& GetDriver() override { return driver_; }

 private:
    forms::headless::HeadlessBackend backend_;
    forms::headless::HeadlessDriver driver_;
};

}  // namespace zv::script
