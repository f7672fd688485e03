#include "mainwindow/options_page.h"

#include "base/number.h"
#include "mainwindow/frm_task_main.h"
#include "resources/text_ids.h"

namespace zv::mainwindow {

void OptionsPage::LoadDatabase() {
    const ControlState& control = window_.session.state;
    const bool file = control.SQLData < 1;
    if (file)
        window_.optAccess.SetValue(true);
    else
        window_.optSQL.SetValue(true);
    window_.cmdAccess.SetEnabled(file);
    window_.txtAccess.SetEnabled(file);
    window_.txtAccess.SetText(control.UserPath);
    window_.txtAccess.tag = control.UserPath;
}

void OptionsPage::LoadStaffSource() {
    const std::int16_t source =
        number::ToInt16(window_.session.GetSetting(resources::kSuiteSection, "JbrFrom", "0"));
    if (source == 0 || source == 1) window_.optJBR[source].SetValue(true);
    window_.staff.SetSource(source);
}

void OptionsPage::optAccess_Click() {
    window_.session.state.SQLData = 0;
    window_.cmdAccess.SetEnabled(true);
}

void OptionsPage::optSQL_Click() {
    window_.session.state.SQLData = window_.session.state.hostSQLData;
    window_.cmdAccess.SetEnabled(false);
}

void OptionsPage::cmdAccess_Click() {
    constexpr std::int16_t kExistingFile = 1;
    const std::string path = window_.getFilePath(
        kExistingFile, window_.session.LoadText(text_id::kDatabaseFile) + " (*.MDB)|*.mdb",
        window_.txtAccess.Text(), window_.session.LoadText(text_id::kOpenFile), "");
    if (path.empty()) return;
    window_.txtAccess.SetText(path);
    window_.txtAccess.tag = path;
    Reopen();
}

void OptionsPage::txtAccess_GotFocus() {
    window_.txtAccess.tag = window_.txtAccess.Text();
}

void OptionsPage::txtAccess_LostFocus() {
    if (window_.txtAccess.Text() == window_.txtAccess.tag) return;
    window_.txtAccess.tag = window_.txtAccess.Text();
    Reopen();
}

void OptionsPage::optJBR_Click(std::int16_t index) {
    // Setting the button while the window loads is no choice of the user's.
    if (window_.state.starting) return;
    window_.session.SaveSetting(resources::kSuiteSection, "JbrFrom", std::to_string(index));
    window_.staff.SetSource(index);
    window_.staff.FillIfNeeded();
}

void OptionsPage::Reopen() {
    Session& session = window_.session;
    store::ConnectionSettings settings = session.Settings();
    settings.dataPath = window_.txtAccess.Text();
    try {
        session.OpenConnection(settings);
    } catch (const RuntimeError& error) {
        session.windows.ShowMessage(
            forms::Inserted{resources::DescribeError(error, session.state.Language)},
            forms::box::kExclamation);
        return;
    }
    session.state.UserPath = settings.dataPath.ForDriver();
    window_.staff.Fill();
    window_.tree.FillItems();
}

}  // namespace zv::mainwindow
