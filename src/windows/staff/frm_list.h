// The staff pick list.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "session/session.h"
#include "session/store_client.h"

namespace zv::windows {

class frmList : public forms::Form, public StoreClient {
 public:
    static constexpr std::string_view kName = "frmList";
    /// An Action above this one: a cancel clears the picked name.
    static constexpr std::int16_t kLastKeepingAction = 3;

    /// The session must outlive the window.
    frmList(forms::WindowSystem& windows, Session& session);

    /// Set before the window is shown.
    std::int16_t Action = 0;
    /// Who is chosen so far: the list opens on his entry. Set before the window is shown.
    std::string present;
    /// Called with the name when a pick was accepted; the control's myName holds it as well.
    std::function<void(const std::string& name)> onPicked;

    // Order of creation is tab order.
    forms::Label lblList;
    forms::ListBox List1;
    forms::CommandButton cmdLogOK;
    forms::CommandButton cmdCancel;

    void ForgetStore() override { List1.SetItems({}); }
    /// Nobody is selected then.
    void ShowStore() override { FillList(); }

    void cmdLogOK_Click();
    void cmdCancel_Click();

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceControls(); }
    void Form_QueryUnload(bool& cancel, bool byUser) override;

 private:
    void SetCaptions();
    void FillList();
    void SelectPresent();
    void PlaceControls();

    Session& session_;
};

/// Shows the list: the one that is open, or a new one on the name that the host has. Modal: returns
/// after it is gone.
void ShowStaffList(Session& session, std::int16_t action, bool modal);

/// Shows a modal list on the entry of `present`; `onPicked` is called when a pick was accepted.
void PickStaff(Session& session, std::int16_t action, std::string present,
               std::function<void(const std::string& name)> onPicked);

}  // namespace zv::windows
