// The window in which the user sets up the pages: paper, direction, margins.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "report/page_setup.h"
#include "report/report_texts.h"

namespace zv::report {

class PageSetupForm : public forms::Form {
 public:
    /// `language`: one that has texts.
    PageSetupForm(forms::WindowSystem& windows, const PageSetup& setup, std::int16_t language);

    /// Called with the setup when it was accepted.
    std::function<void(const PageSetup&)> onAccepted;

    // Order of creation is tab order.
    forms::Label lblPaper{*this, "lblPaper"};
    forms::ComboBox cboPaper{*this, "cboPaper", nullptr, forms::ComboStyle::ListOnly};
    forms::Label lblDirection{*this, "lblDirection"};
    forms::ComboBox cboDirection{*this, "cboDirection", nullptr, forms::ComboStyle::ListOnly};
    forms::Frame fraMargins{*this, "fraMargins"};
    forms::Label lblLeft{*this, "lblLeft", &fraMargins};
    forms::TextBox txtLeft{*this, "txtLeft", &fraMargins};
    forms::Label lblRight{*this, "lblRight", &fraMargins};
    forms::TextBox txtRight{*this, "txtRight", &fraMargins};
    forms::Label lblTop{*this, "lblTop", &fraMargins};
    forms::TextBox txtTop{*this, "txtTop", &fraMargins};
    forms::Label lblBottom{*this, "lblBottom", &fraMargins};
    forms::TextBox txtBottom{*this, "txtBottom", &fraMargins};
    forms::CommandButton cmdUsual{*this, "cmdUsual"};
    forms::CommandButton cmdOK{*this, "cmdOK"};
    forms::CommandButton cmdCancel{*this, "cmdCancel"};

    void cmdUsual_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceControls(); }

 private:
    struct MarginField {
        forms::Label& label;
        forms::TextBox& text;
        int Margins::*side;
        ReportText caption;
    };
    std::array<MarginField, 4> MarginFields();
    void SetCaptions();
    void PlaceControls();
    void ShowSetup(const PageSetup& setup);
    std::string Text(ReportText id) const { return GetReportText(id, language_); }

    PageSetup setup_;
    std::int16_t language_;
};

/// Shows the window before its owner and returns when it is gone; `accepted` as onAccepted.
void AskForPageSetup(forms::WindowSystem& windows, const PageSetup& setup, std::int16_t language,
                     const std::function<void(const PageSetup&)>& accepted);

}  // namespace zv::report
