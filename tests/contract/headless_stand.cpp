#include "driver/headless/headless_driver.h"
#include "forms/headless/headless_backend.h"
#include "stand.h"

namespace zv::contract {
namespace {

class HeadlessStand : public Stand {
 public:
    forms::Backend& GetBackend() override { return backend_; }
    driver::Driver& GetDriver() override { return driver_; }
    void SetModalLoop(std::function<void(forms::Form&)> loop) override {
        backend_.modalLoop = std::move(loop);
    }
    void SetMenuLoop(std::function<void()> loop) override { backend_.onMenuIdle = std::move(loop); }
    void SetWorkArea(const forms::Rect& area) override {
        backend_.monitors = forms::Monitors({{area, area}});
    }
    void SetMonitors(const forms::Monitors& monitors) override { backend_.SetMonitors(monitors); }

 private:
    forms::headless::HeadlessBackend backend_{dialogs};
    driver::HeadlessDriver driver_;
};

}  // namespace

std::unique_ptr<Stand> MakeStand() {
    return std::make_unique<HeadlessStand>();
}

}  // namespace zv::contract
