#include "progress/long_work.h"

#include <algorithm>

#include "forms/layout/row.h"
#include "resources/ask_texts.h"
#include "resources/text_ids.h"
#include "resources/texts.h"

namespace zv::progress {
namespace {

constexpr int kTickMs = 10;

}  // namespace

frmProgress::frmProgress(forms::WindowSystem& windows, std::int16_t language,
                         const std::string& caption, LongWork& work, Result& result)
    : Form(windows, std::string(kName)),
      lblState(*this, "lblState"),
      ProgressBar1(*this, "ProgressBar1"),
      cmdCancel(*this, "cmdCancel"),
      Timer1(*this, "Timer1", kTickMs),
      language_(language),
      work_(&work),
      result_(result) {
    SetCaption(caption);
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    Timer1.onTimer = [this] { Timer1_Timer(); };
    cancelButton = &cmdCancel;
}

void frmProgress::Form_Load() {
    cmdCancel.SetCaption(resources::LoadText(text_id::kCancel, language_));
    ShowState();
    PlaceControls();
    Center();
    Timer1.SetRunning(true);
}

void frmProgress::Form_Unload(bool&) {
    work_ = nullptr;
    Timer1.SetRunning(false);
}

void frmProgress::PlaceControls() {
    using forms::layout::dialog::kGap;
    using forms::layout::dialog::kMargin;
    const forms::layout::Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const int width = std::max(320, m.Width(Caption()) + 120);
    int top = kMargin;
    lblState.Move({kMargin, top, width, m.Line()});
    top += m.Line() + kGap;
    ProgressBar1.Move({kMargin, top, width, m.Text()});
    top += m.Text() + kMargin;
    const int button = m.ButtonWidth(cmdCancel.Caption());
    cmdCancel.Move({kMargin + width - button, top, button, m.Button()});
    SetClientSize({width + 2 * kMargin, top + m.Button() + kMargin});
}

void frmProgress::ShowState() {
    const std::string state = work_->State();
    lblState.SetCaption(state.empty() ? LoadText(resources::AskText::Working, language_) : state);
    ProgressBar1.SetAccessibleName(lblState.Caption());
    ProgressBar1.SetPercent(work_->Percent());
}

void frmProgress::Timer1_Timer() {
    if (!work_) return;
    try {
        if (work_->Continue()) {
            ShowState();
            return;
        }
        result_.end = WorkEnd::Finished;
    } catch (...) {
        // Reported by the caller that began the work, when no window is in the way.
        result_.error = std::current_exception();
    }
    Unload();
}

void frmProgress::cmdCancel_Click() {
    Unload();
}

WorkEnd RunLongWork(forms::WindowSystem& windows, const platform::Clock& clock,
                    std::int16_t language, const std::string& caption, LongWork& work) {
    constexpr std::int64_t kPatienceSeconds = 1;
    const DateTime patience = clock.Now().AddSeconds(kPatienceSeconds);
    for (int piece = 0; piece < LongWork::kPiecesAtOnce; piece++) {
        if (!work.Continue()) return WorkEnd::Finished;
        if (clock.Now() > patience) break;
    }
    frmProgress::Result result;
    windows.OpenNew<frmProgress>(
        true, [](frmProgress&) {}, language, caption, work, result);
    if (result.error) std::rethrow_exception(result.error);
    return result.end;
}

}  // namespace zv::progress
