// Who did what to an item or a plan, and what was deleted and can come back.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "changes/history.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "session/session.h"

namespace zv::windows {

class frmHistory : public forms::Form {
 public:
    static constexpr std::string_view kName = "frmHistory";

    /// Whose history is shown first, by the title that the user knows; without a row that of what
    /// was deleted.
    struct Subject {
        const changes::Table* table = nullptr;
        std::int32_t row = 0;
        std::string title{};
    };

    /// The session must outlive the window. `mayRestore` answers whether the user has the right to
    /// delete, and says so where he has not.
    frmHistory(forms::WindowSystem& windows, Session& session, Subject subject,
               std::function<bool()> mayRestore);

    // Order of creation is tab order.
    forms::Label lblSubject{*this, "lblSubject"};
    forms::Grid grdHistory{*this, "grdHistory"};
    forms::CheckBox chkDeleted{*this, "chkDeleted"};
    forms::CommandButton cmdRestore{*this, "cmdRestore"};
    forms::CommandButton cmdClose{*this, "cmdClose"};

    void cmdRestore_Click();

 protected:
    void Form_Load() override;
    void Form_Resize() override { PlaceControls(); }
    void Form_Rescale() override { PlaceControls(); }

 private:
    using Texts = std::vector<std::string>;
    void SetCaptions();
    void PlaceControls();
    void Fill();
    void FillWithChanges();
    void FillWithDeletions();
    void SetRows(const std::vector<Texts>& rows);
    void EnableRestore();

    Session& session_;
    const Subject subject_;
    const std::function<bool()> mayRestore_;
    std::vector<changes::RowChange> deleted_;  ///< of the rows shown, in the order of their numbers
};

/// Opens the window, modal. Where the database keeps no history a box says so.
void ShowHistory(Session& session, frmHistory::Subject subject, std::function<bool()> mayRestore);

}  // namespace zv::windows
