// A whole number among the workstation settings, in a box between its name and its unit.
#pragma once

#include <string>

#include "forms/form.h"
#include "forms/label.h"
#include "forms/layout/metrics.h"
#include "forms/text_box.h"
#include "resources/number_setting.h"
#include "session/session.h"

namespace zv::windows {

class NumberField {
 public:
    /// All must outlive this. `name` ends the names of the controls.
    NumberField(forms::Form& form, Session& session, const resources::NumberSetting& setting,
                const std::string& name, forms::Control* parent);

    void SetCaptions(const std::string& caption, const std::string& unit);
    /// Answers the right end.
    int Place(const forms::layout::Metrics& metrics, int left, int top);
    /// Shows what is stored.
    void Load();

 private:
    /// Stores what was typed; shows what is stored where that is no such number.
    void Store();

    forms::Form& form_;
    Session& session_;
    const resources::NumberSetting& setting_;

 public:
    // Order of creation is tab order.
    forms::Label lblName;
    forms::TextBox txtNumber;
    forms::Label lblUnit;
};

}  // namespace zv::windows
