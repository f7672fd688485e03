// Work that may take long, done in pieces so that its user can watch and stop it.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/progress_bar.h"
#include "forms/timer.h"
#include "platform/machine.h"

namespace zv::progress {

class LongWork {
 public:
    /// Pieces that are done before the user is shown anything, as long as they take no second.
    static constexpr int kPiecesAtOnce = 10;
    /// A piece of work that goes through rows.
    static constexpr int kRowsInPiece = 10000;

    virtual ~LongWork() = default;
    /// Does the next piece, a fraction of a second's work; false when nothing is left to do.
    virtual bool Continue() = 0;
    /// 0 to 100; nothing while nobody knows how much there is to do.
    virtual std::optional<int> Percent() const { return {}; }
    /// A line about how far it has come.
    virtual std::string State() const { return {}; }
};

enum class WorkEnd { Finished, Cancelled };

/// Does the work; what takes longer than its first pieces in a window with a bar and a button that
/// stops it. An error of the work leaves here, after the window is gone.
WorkEnd RunLongWork(forms::WindowSystem& windows, const platform::Clock& clock,
                    std::int16_t language, const std::string& caption, LongWork& work);

/// The window: does one piece of the work at each tick.
class frmProgress : public forms::Form {
 public:
    static constexpr std::string_view kName = "frmProgress";

    /// How the work ended, for the one who waits for the window.
    struct Result {
        WorkEnd end = WorkEnd::Cancelled;
        std::exception_ptr error;
    };

    /// Work and result must outlive the window.
    frmProgress(forms::WindowSystem& windows, std::int16_t language, const std::string& caption,
                LongWork& work, Result& result);

    forms::Label lblState;
    forms::ProgressBar ProgressBar1;
    forms::CommandButton cmdCancel;
    forms::Timer Timer1;

    void Timer1_Timer();
    void cmdCancel_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceControls(); }
    void Form_Unload(bool& cancel) override;

 private:
    void ShowState();
    void PlaceControls();

    std::int16_t language_;
    LongWork* work_;  ///< null when the window is about to go
    Result& result_;
};

}  // namespace zv::progress
