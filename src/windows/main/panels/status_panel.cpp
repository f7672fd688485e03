#include "windows/main/panels/status_panel.h"

#include <algorithm>
#include <utility>

#include "forms/layout/metrics.h"

namespace zv::windows {
namespace {

constexpr int kRestMs = 50;

}  // namespace

StatusPanel::StatusPanel(forms::Form& form, Session& session)
    : form_(form),
      session_(session),
      lblStatus(form, "lblStatus"),
      lblNotice(form, "lblNotice"),
      cmdShowSaved(form, "cmdShowSaved"),
      tmrRest(form, "tmrRest", kRestMs) {
    // Titles and what was looked for stand here as they were typed.
    lblStatus.SetUseMnemonic(false);
    lblNotice.SetUseMnemonic(false);
    lblNotice.SetVisible(false);
    cmdShowSaved.SetVisible(false);
    cmdShowSaved.onClick = [this] {
        if (onShow) onShow();
    };
    tmrRest.onTimer = [this] {
        Rest();
        if (onRest) onRest();
    };
}

void StatusPanel::SetCaptions() {
    cmdShowSaved.SetCaption(session_.LoadText(resources::StatusText::ShowSaved));
}

int StatusPanel::Height() const {
    return forms::layout::Metrics(form_.Windows().GetBackend()).Field();
}

void StatusPanel::Place(const forms::Rect& area) {
    using namespace forms::layout;
    area_ = area;
    const Metrics m(form_.Windows().GetBackend());
    const int top = area.top + m.LabelDrop();
    // As wide as its text where there is room; what is cut stands in a tip.
    const auto place = [&](forms::Label& label, int left, int room) {
        const std::string text = label.ShownText();
        const int wanted = text.empty() ? 0 : m.Width(text) + kLabelGap;
        const int width = std::clamp(wanted, 0, std::max(room, 0));
        label.Move({left, top, width, m.Text()});
        label.SetToolTip(width < wanted ? text : std::string());
        return left + width;
    };
    const int buttonWidth = m.ButtonWidth(cmdShowSaved.Caption());
    const int kept = cmdShowSaved.OwnVisible() ? buttonWidth + kGap : 0;
    const int line = place(lblStatus, area.left, area.width);
    const int left = line + kGroupGap;
    const int notice = place(lblNotice, left, area.Right() - left - kept);
    cmdShowSaved.Move({notice + kGap, area.top, buttonWidth, m.Field()});
}

void StatusPanel::Show(std::string line) {
    lblStatus.SetCaption(std::move(line));
    Place(area_);
}

void StatusPanel::Notify(std::string notice, bool offersToShow) {
    lblNotice.SetVisible(!notice.empty());
    lblNotice.SetCaption(std::move(notice));
    cmdShowSaved.SetVisible(offersToShow);
    Place(area_);
}

}  // namespace zv::windows
