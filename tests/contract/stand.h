// What the contract of the window layer is checked on: one backend with its driver, and boxes that
// are answered from a queue. Each backend brings a MakeStand of its own.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "doubles/queued_dialogs.h"
#include "driver/driver.h"
#include "forms/form.h"
#include "forms/monitors.h"
#include "forms/window_system.h"

namespace zv::contract {

class Stand {
 public:
    Stand() { dialogs.mustHaveAnswers = true; }
    virtual ~Stand() = default;
    virtual forms::Backend& GetBackend() = 0;
    virtual driver::Driver& GetDriver() = 0;
    /// What runs while a modal window is open; it must close that window.
    virtual void SetModalLoop(std::function<void(forms::Form&)> loop) = 0;
    /// What runs while a popup menu is open; the menu closes when it returns.
    virtual void SetMenuLoop(std::function<void()> loop) = 0;
    /// What windows may cover of the screen, in units.
    virtual void SetWorkArea(const forms::Rect& area) = 0;
    /// From now on there are these monitors; windows that are open follow.
    virtual void SetMonitors(const forms::Monitors& monitors) = 0;
    /// Native windows and graphics objects that are still held; 0 after the last window is gone.
    virtual int LiveHandles() const { return 0; }

    doubles::QueuedDialogs dialogs;
};

std::unique_ptr<Stand> MakeStand();

/// A window whose handlers a test can set.
class TestForm : public forms::Form {
 public:
    explicit TestForm(forms::WindowSystem& windows, std::string name = "frmTest")
        : Form(windows, std::move(name)) {}

    std::function<void()> onLoad, onActivate, onResize;
    std::function<void(bool&)> onUnload;

 protected:
    void Form_Load() override {
        if (onLoad) onLoad();
    }
    void Form_Activate() override {
        if (onActivate) onActivate();
    }
    void Form_Resize() override {
        if (onResize) onResize();
    }
    void Form_Unload(bool& cancel) override {
        if (onUnload) onUnload(cancel);
    }
};

/// Gives each test a stand, and afterwards asks whether everything was given back.
class Contract : public testing::Test {
 protected:
    Contract() : stand_(MakeStand()), windows_(stand_->GetBackend()) {
        windows_.describeError = [](const RuntimeError& error) {
            return std::to_string(static_cast<int>(error.Number())) + " " + error.Text();
        };
    }
    void TearDown() override {
        windows_.UnloadAll();
        EXPECT_EQ(stand_->LiveHandles(), 0);
    }

    /// Places the controls of a form below each other, as wide as the window.
    static void Arrange(forms::Form& form);
    /// The control's property as the user sees it.
    std::string Read(forms::Control& control, const std::string& property,
                     const std::vector<int>& arguments = {});

    driver::Driver& driver() { return stand_->GetDriver(); }
    doubles::QueuedDialogs& dialogs() { return stand_->dialogs; }

    std::unique_ptr<Stand> stand_;
    forms::WindowSystem windows_;
    std::vector<std::string> events_;  ///< what handlers of a test noted, in order
};

}  // namespace zv::contract
