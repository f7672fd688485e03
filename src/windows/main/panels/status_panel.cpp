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
    const int text = area.top + m.LabelDrop();
    const int statusWidth =
        std::min(m.Width(lblStatus.ShownText()) + kLabelGap, std::max(area.width, 0));
    lblStatus.Move({area.left, text, statusWidth, m.Text()});
    const int left = area.left + statusWidth + kGroupGap;
    const int buttonWidth = m.ButtonWidth(cmdShowSaved.Caption());
    const int room = area.Right() - left;
    const int kept = cmdShowSaved.OwnVisible() ? buttonWidth + kGap : 0;
    const int noticeWidth =
        std::clamp(m.Width(lblNotice.ShownText()) + kLabelGap, 0, std::max(room - kept, 0));
    lblNotice.Move({left, text, noticeWidth, m.Text()});
    cmdShowSaved.Move({left + noticeWidth + kGap, area.top, buttonWidth, m.Field()});
}

void StatusPanel::Show(std::string line) {
    lblStatus.SetCaption(std::move(line));
    Place(area_);
}

void StatusPanel::Notify(std::string notice, bool offersToShow) {
    lblNotice.SetCaption(std::move(notice));
    cmdShowSaved.SetVisible(offersToShow);
    Place(area_);
}

}  // namespace zv::windows
