// A panel of the main window alone, in a window that has nothing else.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "application/test_application.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "windows/main/main_model.h"

namespace zv::windows {

class PanelTest : public testing::Test {
 protected:
    PanelTest() : form(stage.windows.Create<EmptyForm>()), tabs(form, "SSTab1", nullptr, 4) {}

    /// After the panel has been made. What the test has not placed gets a place, because nobody can
    /// work what has none.
    void Show() {
        form.SetClientSize({1000, 700});
        tabs.Move({0, 0, 1000, 700});
        for (forms::Control* control : form.Controls()) {
            if (control->Bounds() == forms::Rect{}) control->Move({0, 0, 900, 600});
        }
        stage.windows.FromHost([this] { form.Show(false); });
    }

    class EmptyForm : public forms::Form {
     public:
        explicit EmptyForm(forms::WindowSystem& windows) : Form(windows, "frmEmpty") {}
    };

    test::TestApplication stage;
    forms::Form& form;
    forms::TabPanel tabs;
    MainModel model;
};

using Lines = std::vector<std::string>;

}  // namespace zv::windows
