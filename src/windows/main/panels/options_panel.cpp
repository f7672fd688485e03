#include "windows/main/panels/options_panel.h"

#include <cmath>
#include <optional>
#include <utility>

#include "base/number.h"
#include "forms/field_keys.h"
#include "forms/layout/metrics.h"
#include "resources/error_texts.h"
#include "resources/switch_setting.h"
#include "resources/text_ids.h"
#include "session/choose_file.h"
#include "session/store_choice.h"

namespace zv::windows {
namespace {

using resources::DesignText;

constexpr int kTimerPeriodMs = 60000;
constexpr std::string_view kDefaultDays = "5";
constexpr std::string_view kDefaultMinutes = "5";

// Minutes as the clock shows them: 10:00:59 and 10:01:00 are a minute apart.
std::int64_t MinutesBetween(DateTime from, DateTime until) {
    constexpr std::int64_t kSecondsPerMinute = 60;
    return until.Seconds() / kSecondsPerMinute - from.Seconds() / kSecondsPerMinute;
}

}  // namespace

OptionsPanel::OptionsPanel(forms::Form& form, forms::TabPage page, Session& session, Ports ports)
    : form_(form),
      page_(page),
      session_(session),
      ports_(std::move(ports)),
      Timer1(form, "Timer1", kTimerPeriodMs),
      fraData(form, "fraData", &page.Content()),
      optAccess(form, "optAccess", &fraData),
      txtAccess(form, "txtAccess", &fraData),
      cmdAccess(form, "cmdAccess", &fraData),
      optSQL(form, "optSQL", &fraData),
      fraAlert(form, "fraAlert", &page.Content()),
      chkStartup(form, "chkStartup", &fraAlert),
      chkBirthDay(form, "chkBirthDay", &fraAlert),
      chkTimeSet(form, "chkTimeSet", &fraAlert),
      txtTimeSet(form, "txtTimeSet", &fraAlert),
      lblTimeSet(form, "lblTimeSet", &fraAlert),
      remindInterval(form, session, resources::kRemindInterval, "Remind", &fraAlert),
      historyDays(form, session, resources::kHistoryDays, "History", &fraAlert),
      fraStaff(form, "fraStaff", &page.Content()),
      optJBR(form, "optJBR", &fraStaff, 2) {
    txtTimeSet.SetNumericKeyboard(true);
    Wire();
}

void OptionsPanel::Wire() {
    optAccess.onClick = [this] { optAccess_Click(); };
    optSQL.onClick = [this] { optSQL_Click(); };
    cmdAccess.onClick = [this] { cmdAccess_Click(); };
    txtAccess.onGotFocus = [this] { txtAccess_GotFocus(); };
    txtAccess.onLostFocus = [this] { txtAccess_LostFocus(); };
    const auto users = static_cast<std::int16_t>(optJBR.Count());
    for (std::int16_t i = 0; i < users; i++) {
        optJBR[i].onClick = [this, i] { optJBR_Click(i); };
    }
    chkStartup.onClick = [this] { chkStartup_Click(); };
    chkBirthDay.onClick = [this] { chkBirthDay_Click(); };
    chkTimeSet.onClick = [this] { chkTimeSet_Click(); };
    txtTimeSet.onGotFocus = [this] { txtTimeSet.SelectAll(); };
    for (forms::TextBox* box : {&txtAccess, &txtTimeSet}) {
        box->onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(form_, event); };
    }
    txtTimeSet.onLostFocus = [this] { txtTimeSet_LostFocus(); };
    Timer1.onTimer = [this] { Timer1_Timer(); };
}

void OptionsPanel::SetCaptions() {
    lblTimeSet.SetCaption(session_.LoadText(DesignText::Minutes));
    txtTimeSet.SetAccessibleName(lblTimeSet.Caption());
    remindInterval.SetCaptions(session_.LoadText(resources::RemindText::Interval),
                               session_.LoadText(DesignText::Minutes));
    historyDays.SetCaptions(session_.LoadText(resources::ChangeText::KeptFor),
                            session_.LoadText(text_id::kDays));
    txtAccess.SetAccessibleName(session_.LoadText(text_id::kDesktopPath));
    fraData.SetCaption(session_.LoadText(DesignText::DatabaseGroup));
    fraAlert.SetCaption(session_.LoadText(DesignText::AlertGroup));
    fraStaff.SetCaption(session_.LoadText(DesignText::StaffGroup));
    cmdAccess.SetCaption(session_.LoadText(DesignText::Browse));
    chkBirthDay.SetCaption(session_.LoadText(DesignText::StartupBirthday));
    optSQL.SetCaption(session_.LoadText(DesignText::Server));
    optJBR[0].SetCaption(session_.LoadText(DesignText::StaffFromPersonnel));
    optJBR[1].SetCaption(session_.LoadText(DesignText::StaffFromEmployees));
    page_.SetCaption(session_.LoadText(DesignText::TabOptions));
}

void OptionsPanel::SetStartCaptions() {
    optAccess.SetCaption(session_.LoadText(text_id::kDesktopPath));
    chkStartup.SetCaption(session_.LoadText(text_id::kStartWithSystem));
    chkTimeSet.SetCaption(session_.LoadText(text_id::kReadInterval));
}

void OptionsPanel::Place(const forms::Rect& page) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const int frameWidth = page.width - 2 * kMargin;
    const int inner = frameWidth - 2 * kFramePadding;
    int top = kMargin;
    const auto frame = [&](forms::Frame& target, int rows) {
        const int frameHeight = m.FrameTop() + rows * m.Row() + kGap;
        target.Move({kMargin, top, frameWidth, frameHeight});
        top += frameHeight + kMargin;
    };
    const auto row = [&](int number) { return m.FrameTop() + number * m.Row(); };

    frame(fraData, 3);
    optAccess.Move({kFramePadding, row(0), inner, m.Field()});
    const int browseWidth = m.ButtonWidth(cmdAccess.Caption());
    txtAccess.Move(
        {kFramePadding + kBoxWidth, row(1), inner - kBoxWidth - browseWidth - kGap, m.Field()});
    cmdAccess.Move({kFramePadding + inner - browseWidth, row(1), browseWidth, m.Field()});
    optSQL.Move({kFramePadding, row(2), inner, m.Field()});

    frame(fraAlert, 4);
    chkStartup.Move({kFramePadding, row(0), inner, m.Field()});
    chkBirthDay.Move({kFramePadding, row(1), inner, m.Field()});
    const int intervalWidth = m.BoxWidth(chkTimeSet.Caption());
    chkTimeSet.Move({kFramePadding, row(2), intervalWidth, m.Field()});
    int x = kFramePadding + intervalWidth + kLabelGap;
    txtTimeSet.Move({x, row(2), m.Number(), m.Field()});
    x += m.Number() + kLabelGap;
    lblTimeSet.Move(
        {x, row(2) + m.LabelDrop(), m.Width(lblTimeSet.Caption()) + kLabelGap, m.Text()});

    const int beside = remindInterval.Place(m, kFramePadding, row(3));
    historyDays.Place(m, beside + kGroupGap, row(3));

    frame(fraStaff, 1);
    x = kFramePadding;
    for (int i = 0; i < optJBR.Count(); i++) {
        const int optionWidth = m.BoxWidth(optJBR[i].Caption());
        optJBR[i].Move({x, row(0), optionWidth, m.Field()});
        x += optionWidth + kColumnGap;
    }
}

void OptionsPanel::LoadDatabase() {
    const bool file = !IsServer();
    showing_ = true;
    if (file)
        optAccess.SetValue(true);
    else
        optSQL.SetValue(true);
    showing_ = false;
    EnablePath(file);
}

void OptionsPanel::EnablePath(bool file) {
    const ControlState& control = session_.state;
    cmdAccess.SetEnabled(file);
    txtAccess.SetEnabled(file);
    txtAccess.SetLocked(!file);
    // The path of a server is no file's.
    const bool known = file && !IsServer();
    txtAccess.SetText(known ? control.storeChoice.path.value_or(control.UserPath).ForOwner()
                            : std::string());
    NoteAccess(txtAccess.Text());
}

void OptionsPanel::NoteAccess(const std::string& text) {
    accessBefore_ = text;
    txtAccess.tag = text;
}

bool OptionsPanel::IsServer() const {
    return session_.state.SQLData >= 1;
}

void OptionsPanel::SavePath() {
    if (IsServer() || !cmdAccess.Enabled()) return;
    const auto& accepted = session_.state.storeChoice.path;
    const store::ConnectionSettings* used = session_.database.OpenedWith();
    const std::string shown = txtAccess.Text();
    if (accepted) {
        session_.SaveSetting(resources::kTaskSection, "DataPath", accepted->ForOwner());
    } else if (cmdAccess.Visible() && used && used->kind < 1 &&
               used->dataPath == store::ConnectionText(shown)) {
        session_.SaveSetting(resources::kTaskSection, "DataPath", shown);
    }
}

void OptionsPanel::LoadStaffSource() {
    const double stored =
        number::ToDouble(session_.GetSetting(resources::kSuiteSection, "JbrFrom", "0"));
    // What is neither of the two checks no button, however large it is.
    const auto source = static_cast<std::int16_t>(stored == 0 || stored == 1 ? stored : 2);
    showing_ = true;
    if (source == 0 || source == 1) optJBR[source].SetValue(true);
    showing_ = false;
    ports_.staffSourceChanged(source, false);
}

void OptionsPanel::LoadStartup() {
    const auto setting = [this](std::string_view key, std::string_view fallback) {
        return session_.GetSetting(resources::kTaskSection, key, fallback);
    };
    chkStartup.SetValue(resources::SwitchOf(setting("Startup", "1")));

    const std::string days = setting("StartupBirthDay", "0");
    ports_.showDaysAhead(days);
    chkBirthDay.SetValue(resources::SwitchOf(days));
    if (number::ToDouble(days) == 0) ports_.showDaysAhead(std::string(kDefaultDays));

    remindInterval.Load();
    historyDays.Load();
    const std::string minutes = setting("TimeSetting", "0");
    txtTimeSet.SetText(minutes);
    txtTimeSet.SetEnabled(false);
    chkTimeSet.SetValue(number::ToDouble(minutes) > 0 ? 1 : 0);
}

void OptionsPanel::optAccess_Click() {
    if (!showing_) AcceptKind(0);
}

void OptionsPanel::optSQL_Click() {
    if (!showing_) AcceptKind(session_.state.hostSQLData);
}

void OptionsPanel::AcceptKind(std::int16_t kind) {
    const bool other = (kind >= 1) != IsServer();
    if (other) {
        Accept([&] {
            ChooseKind(session_.state, kind);
            session_.TakeDataPath();
        });
    }
    // A host without a server has none to choose, but the button takes the file away all the same.
    EnablePath(!optSQL.Value());
}

void OptionsPanel::cmdAccess_Click() {
    constexpr std::int16_t kExistingFile = 1;
    const std::string path = ChooseFile(
        session_, kExistingFile, session_.LoadText(text_id::kDatabaseFile) + " (*.MDB)|*.mdb",
        txtAccess.Text(), session_.LoadText(text_id::kOpenFile), "");
    if (path.empty()) return;
    txtAccess.SetText(path);
    NoteAccess(path);
    AcceptPath();
}

void OptionsPanel::txtAccess_GotFocus() {
    NoteAccess(txtAccess.Text());
}

void OptionsPanel::txtAccess_LostFocus() {
    if (txtAccess.Text() == accessBefore_) return;
    NoteAccess(txtAccess.Text());
    AcceptPath();
}

void OptionsPanel::optJBR_Click(std::int16_t index) {
    if (showing_) return;
    session_.SaveSetting(resources::kSuiteSection, "JbrFrom", std::to_string(index));
    ports_.staffSourceChanged(index, true);
}

void OptionsPanel::AcceptPath() {
    const std::string path = txtAccess.Text();
    Accept([&] {
        // A path that is typed where the file is chosen chooses the file.
        if (IsServer()) ChooseKind(session_.state, 0);
        ChoosePath(session_.state, path);
    });
}

void OptionsPanel::Accept(const std::function<void()>& choose) {
    if (ports_.editUnderWay()) {
        session_.windows.ShowMessage(session_.LoadText(DesignText::StoreInUse),
                                     forms::box::kExclamation);
        LoadDatabase();
        return;
    }
    std::optional<RuntimeError> refusal;
    {
        TentativeChoice choice(session_.state);
        choose();
        // Nothing is known yet that could be opened; the user names it next.
        if (!IsServer() && session_.state.UserPath.IsEmpty() && !session_.state.storeChoice.path)
            return;
        try {
            session_.database.OpenConnection(session_.Settings());
            choice.Keep();
        } catch (const RuntimeError& error) {
            refusal = error;
        }
    }
    if (refusal) {
        session_.windows.ShowMessage(
            forms::Inserted{resources::DescribeError(*refusal, session_.state.Language)},
            forms::box::kExclamation);
        return;
    }
    ports_.storeChanged();
}

void OptionsPanel::chkStartup_Click() {
    if (!chkStartup.Visible()) return;
    session_.SaveSetting(resources::kTaskSection, "Startup", std::to_string(chkStartup.Value()));
}

void OptionsPanel::chkBirthDay_Click() {
    if (!chkBirthDay.Visible()) return;
    std::string days = "0";
    if (chkBirthDay.Checked()) {
        const std::int16_t typed = number::ToInt16(number::Val(ports_.daysAhead()));
        days = typed == 0 ? std::string(kDefaultDays) : std::to_string(typed);
    }
    session_.SaveSetting(resources::kTaskSection, "StartupBirthDay", days);
}

void OptionsPanel::chkTimeSet_Click() {
    if (chkTimeSet.Checked()) {
        txtTimeSet.SetEnabled(true);
        if (txtTimeSet.Visible()) txtTimeSet.SetFocus();
        if (number::Val(txtTimeSet.Text()) == 0) {
            txtTimeSet.SetText(std::string(kDefaultMinutes));
        }
        return;
    }
    txtTimeSet.SetEnabled(false);
    txtTimeSet.SetText("0");
    // Only switching off is stored; a typed interval holds for this window.
    session_.SaveSetting(resources::kTaskSection, "TimeSetting", "0");
}

void OptionsPanel::txtTimeSet_LostFocus() {
    const auto typed = number::Parse(txtTimeSet.Text());
    const std::int16_t minutes = typed ? number::ToInt16(std::abs(*typed)) : std::int16_t{0};
    txtTimeSet.SetText(std::to_string(minutes));
    // Meant this way round: the timer runs until its first tick finds the interval switched off.
    Timer1.SetRunning(minutes == 0);
    if (minutes == 0) lastRead_ = session_.machine.clock.Now();
}

void OptionsPanel::Timer1_Timer() {
    const double interval = number::Val(txtTimeSet.Text());
    if (interval == 0) {
        Timer1.SetRunning(false);
        return;
    }
    const DateTime now = session_.machine.clock.Now();
    if (interval >= static_cast<double>(MinutesBetween(lastRead_, now))) lastRead_ = now;
}

}  // namespace zv::windows
