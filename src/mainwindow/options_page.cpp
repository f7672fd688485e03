#include "mainwindow/options_page.h"

#include <optional>

#include "base/number.h"
#include "mainwindow/frm_task_main.h"
#include "mainwindow/store_switch.h"
#include "resources/text_ids.h"
#include "session/store_choice.h"

namespace zv::mainwindow {

void OptionsPage::LoadDatabase() {
    const bool file = !IsServer();
    showing_ = true;
    if (file)
        window_.optAccess.SetValue(true);
    else
        window_.optSQL.SetValue(true);
    showing_ = false;
    EnablePath(file);
}

void OptionsPage::EnablePath(bool file) {
    const ControlState& control = window_.session.state;
    window_.cmdAccess.SetEnabled(file);
    window_.txtAccess.SetEnabled(file);
    window_.txtAccess.SetLocked(!file);
    // The path of a server is no file's.
    const bool known = file && !IsServer();
    const std::string path =
        known ? control.storeChoice.path.value_or(control.UserPath).ForOwner() : std::string();
    window_.txtAccess.SetText(path);
    window_.txtAccess.tag = path;
}

bool OptionsPage::IsServer() const {
    return window_.session.state.SQLData >= 1;
}

void OptionsPage::SavePath() {
    Session& session = window_.session;
    if (IsServer() || !window_.cmdAccess.Enabled()) return;
    const auto& accepted = session.state.storeChoice.path;
    const store::ConnectionSettings* used = session.database.OpenedWith();
    const std::string shown = window_.txtAccess.Text();
    if (accepted) {
        session.SaveSetting(resources::kTaskSection, "DataPath", accepted->ForOwner());
    } else if (window_.cmdAccess.Visible() && used && used->kind < 1 &&
               used->dataPath == store::ConnectionText(shown)) {
        session.SaveSetting(resources::kTaskSection, "DataPath", shown);
    }
}

void OptionsPage::LoadStaffSource() {
    const double stored =
        number::ToDouble(window_.session.GetSetting(resources::kSuiteSection, "JbrFrom", "0"));
    // What is neither of the two checks no button, however large it is.
    const auto source = static_cast<std::int16_t>(stored == 0 || stored == 1 ? stored : 2);
    if (source == 0 || source == 1) window_.optJBR[source].SetValue(true);
    window_.staff.SetSource(source);
}

void OptionsPage::optAccess_Click() {
    if (!showing_) AcceptKind(0);
}

void OptionsPage::optSQL_Click() {
    if (!showing_) AcceptKind(window_.session.state.hostSQLData);
}

void OptionsPage::AcceptKind(std::int16_t kind) {
    Session& session = window_.session;
    const bool other = (kind >= 1) != IsServer();
    if (other) {
        Accept([&] {
            ChooseKind(session.state, kind);
            session.TakeDataPath();
        });
    }
    // A host without a server has none to choose, but the button takes the file away all the same.
    EnablePath(!window_.optSQL.Value());
}

void OptionsPage::cmdAccess_Click() {
    constexpr std::int16_t kExistingFile = 1;
    const std::string path = window_.getFilePath(
        kExistingFile, window_.session.LoadText(text_id::kDatabaseFile) + " (*.MDB)|*.mdb",
        window_.txtAccess.Text(), window_.session.LoadText(text_id::kOpenFile), "");
    if (path.empty()) return;
    window_.txtAccess.SetText(path);
    window_.txtAccess.tag = path;
    AcceptPath();
}

void OptionsPage::txtAccess_GotFocus() {
    window_.txtAccess.tag = window_.txtAccess.Text();
}

void OptionsPage::txtAccess_LostFocus() {
    if (window_.txtAccess.Text() == window_.txtAccess.tag) return;
    window_.txtAccess.tag = window_.txtAccess.Text();
    AcceptPath();
}

void OptionsPage::optJBR_Click(std::int16_t index) {
    // Setting the button while the window loads is no choice of the user's.
    if (window_.state.starting) return;
    window_.session.SaveSetting(resources::kSuiteSection, "JbrFrom", std::to_string(index));
    window_.staff.SetSource(index);
    window_.staff.FillIfNeeded();
}

void OptionsPage::AcceptPath() {
    Session& session = window_.session;
    const std::string path = window_.txtAccess.Text();
    Accept([&] {
        // A path that is typed where the file is chosen chooses the file.
        if (IsServer()) ChooseKind(session.state, 0);
        ChoosePath(session.state, path);
    });
}

void OptionsPage::Accept(const std::function<void()>& choose) {
    Session& session = window_.session;
    if (EditUnderWay(session)) {
        session.windows.ShowMessage(window_.captions.Text(resources::DesignText::StoreInUse),
                                    forms::box::kExclamation);
        LoadDatabase();
        return;
    }
    std::optional<RuntimeError> refusal;
    {
        TentativeChoice choice(session.state);
        choose();
        // Nothing is known yet that could be opened; the user names it next.
        if (!IsServer() && session.state.UserPath.IsEmpty() && !session.state.storeChoice.path)
            return;
        try {
            session.OpenConnection(session.Settings());
            choice.Keep();
        } catch (const RuntimeError& error) {
            refusal = error;
        }
    }
    if (refusal) {
        session.windows.ShowMessage(
            forms::Inserted{resources::DescribeError(*refusal, session.state.Language)},
            forms::box::kExclamation);
        return;
    }
    ShowNewStore(session);
}

}  // namespace zv::mainwindow
