#include "monkey/invariants.h"

#include <algorithm>
#include <array>

#include "base/path.h"
#include "driver/driver_checks.h"
#include "failure.h"
#include "forms/form.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "scenario_stage.h"
#include "script_engine.h"
#include "script_text.h"
#include "stored_rows.h"
#include "temporary_folder.h"

namespace zv::script {
namespace {

std::string TreeFault(const forms::Form& form, const forms::TreeView& tree) {
    std::set<std::string> keys;
    for (int node = tree.FirstRoot(); node != forms::TreeView::kNone;
         node = tree.NextInOrder(node)) {
        const std::string key(tree.Key(node));
        if (!key.empty() && !keys.insert(key).second) {
            return form.Name() + ": two nodes have the key " + Quote(key);
        }
    }
    return {};
}

// Where the save button does nothing, nothing can be typed that it would have to save.
std::string EditorFault(const forms::Form& form) {
    const forms::Control* save = form.FindControl("cmdSave");
    const auto* title = dynamic_cast<const forms::TextBox*>(form.FindControl("txtTitle2"));
    if (!save || !title || save->Enabled() || title->Locked()) return {};
    return form.Name() + ": the title can be typed in and not saved";
}

std::string FocusFault(const forms::Form& form) {
    if (form.State() == forms::WindowState::Minimised) return {};
    const forms::Control* active = form.ActiveControl();
    if (active) {
        return active->CanInteract() ? std::string()
                                     : form.Name() + ": the focus is in " + active->DisplayName() +
                                           ", which is hidden or disabled";
    }
    for (const forms::Control* control : form.TabOrder()) {
        if (control->CanFocus()) {
            return form.Name() + ": nothing has the focus, though " + control->DisplayName() +
                   " could";
        }
    }
    return {};
}

std::string ScreenFault(driver::Driver& driver, forms::Control& control, bool behindBox) {
    constexpr auto kShownProperties = std::to_array<std::string_view>(
        {"focus", "visible", "enabled", "caption", "text", "value", "locked", "index", "tab",
         "count", "nodes", "selected", "rows", "selection"});
    for (const std::string_view name : kShownProperties) {
        if (behindBox && name == "focus") continue;
        const std::string property(name);
        const auto held = driver::ReadState(control, property, {});
        const auto shown = driver.Read(control, property, {});
        if (held == shown) continue;
        const auto words = [](const auto& text) { return text ? Quote(*text) : "nothing"; };
        return "the screen shows something else: " + control.DisplayName() + ' ' + property + ' ' +
               words(shown) + " for " + words(held);
    }
    return {};
}

std::string WindowFault(const forms::Form& form) {
    for (const forms::Control* control : form.Controls()) {
        const auto* tree = dynamic_cast<const forms::TreeView*>(control);
        std::string fault = tree ? TreeFault(form, *tree) : std::string();
        if (!fault.empty()) return fault;
    }
    const std::string fault = EditorFault(form);
    return fault.empty() ? FocusFault(form) : fault;
}

// Acts that change rows without a question: the dialog of completion is one itself, a call of the
// host asks nobody, what is taken back or done again was asked about before, and what is restored
// was chosen for it.
bool NeedsNoQuestion(const std::string& line) {
    return line.starts_with("refresh ") || line.find("frmTaskDone") != std::string::npos ||
           line.ends_with(" Ctrl+Z") || line.ends_with(" Ctrl+Y") ||
           line.find("frmHistory.cmdRestore") != std::string::npos;
}

// What marks items in the window of reminders: it asks nobody about one, and about several always.
bool MarksReminders(const std::string& line) {
    constexpr auto kEnds = std::to_array<std::string_view>(
        {".cmdDone", ".cmdInHand", " Ctrl+D", " Ctrl+H", " Alt+D", " Alt+H"});
    return line.find(" frmRemind") != std::string::npos &&
           std::any_of(kEnds.begin(), kEnds.end(),
                       [&line](std::string_view end) { return line.ends_with(end); });
}

bool IsCancelled(const std::string& box) {
    return box.ends_with("|cancel");
}

}  // namespace

std::string ScreenFault(driver::Driver& driver, const forms::Form& form, bool behindBox) {
    for (forms::Control* control : form.Controls()) {
        if (!control->Visible()) continue;
        std::string fault = ScreenFault(driver, *control, behindBox);
        if (!fault.empty()) return fault;
    }
    return {};
}

bool IsOfAnotherProgram(const std::string& line) {
    constexpr auto kWords = std::to_array<std::string_view>(
        {"sql", "item", "plan", "card", "staff", "database", "call"});
    return std::find(kWords.begin(), kWords.end(), line.substr(0, line.find(' '))) != kWords.end();
}

/// An engine with all tables and no item, which shows what a statement is worth.
class Invariants::EmptyDatabase {
 public:
    EmptyDatabase() {
        const std::string file = Utf8Of(folder_ / "empty.db");
        const auto engine = MakeScriptEngine("embedded");
        engine->Create(file);
        engine->AddSideTables(file);
        connection_ = engine->Open(file);
    }
    ~EmptyDatabase() = default;
    EmptyDatabase(const EmptyDatabase&) = delete;
    EmptyDatabase& operator=(const EmptyDatabase&) = delete;

    /// Why it does not take the statement; empty when it does.
    std::string Refusal(const std::string& sql) {
        try {
            if (sql.starts_with("select") || sql.starts_with("Select") ||
                sql.starts_with("SELECT")) {
                connection_->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly)
                    ->Close();
            } else {
                connection_->Execute(sql);
            }
            return {};
        } catch (const RuntimeError& error) {
            return error.Text().empty() ? "refused" : error.Text();
        }
    }

 private:
    const test::TemporaryFolder folder_;
    std::unique_ptr<store::Connection> connection_;
};

Invariants::Invariants() = default;
Invariants::~Invariants() = default;

void Invariants::LineBegins(ScenarioStage& stage, const std::string& line) {
    if (!frames_.empty()) frames_.back().nests = true;
    frames_.push_back({line, StoredRows(stage), false, {}});
}

void Invariants::BoxAnswered(const std::string& box) {
    if (!frames_.empty()) frames_.back().boxes.push_back(box);
}

std::string Invariants::LineEnded(ScenarioStage& stage) {
    const Frame frame = std::move(frames_.back());
    frames_.pop_back();
    for (const forms::Form* form : stage.windows.Windows()) {
        if (!form->IsShown()) continue;
        std::string fault = WindowFault(*form);
        if (fault.empty()) fault = ScreenFault(stage.driver, *form, stage.dialogs.Innermost());
        if (!fault.empty()) return fault;
    }
    const std::string fault = StatementFault(stage, frame);
    return fault.empty() ? RowFault(stage, frame) : fault;
}

// What no engine takes may be sent where a box says so.
std::string Invariants::StatementFault(ScenarioStage& stage, const Frame& frame) {
    const std::vector<std::string>& sent = stage.statements.lines;
    // A look has emptied them.
    if (sent.size() < seen_) seen_ = 0;
    for (; seen_ < sent.size(); seen_++) {
        if (!taken_.insert(sent[seen_]).second) continue;
        if (!empty_) empty_ = std::make_unique<EmptyDatabase>();
        const std::string refusal = empty_->Refusal(sent[seen_]);
        if (!refusal.empty() && frame.boxes.empty()) {
            return "the engine does not take " + Quote(sent[seen_]) + ": " + refusal;
        }
    }
    return {};
}

// What nests was looked at line by line.
std::string Invariants::RowFault(ScenarioStage& stage, const Frame& frame) {
    if (frame.nests || IsOfAnotherProgram(frame.line) || NeedsNoQuestion(frame.line)) return {};
    const std::string rows = StoredRows(stage);
    if (rows == frame.rows) return {};
    const std::vector<std::string> differences = Differences(frame.rows, rows);
    if (frame.boxes.empty() && differences.size() == 1 && MarksReminders(frame.line)) return {};
    if (!frame.boxes.empty() && !std::all_of(frame.boxes.begin(), frame.boxes.end(), IsCancelled)) {
        return {};
    }
    return std::string(frame.boxes.empty() ? "rows changed and nobody was asked or told: "
                                           : "rows changed although everything was cancelled: ") +
           differences.front();
}

std::string Invariants::AtEnd(ScenarioStage& stage) {
    constexpr int kTries = 40;
    int answers = 0;
    // Some boxes let go by their first button, some by their last.
    stage.dialogs.whileStanding = [&](const StandingBox& box) {
        if (box.kind == Standing::Input) {
            stage.dialogs.QueueInput(std::nullopt);
        } else {
            stage.dialogs.QueueAnswer(++answers % 2 ? box.buttons.front() : box.buttons.back());
        }
    };
    std::string left;
    for (int i = 0; i < kTries; i++) {
        forms::Form* last = nullptr;
        for (forms::Form* form : stage.windows.Windows()) {
            if (form->IsShown()) last = form;
        }
        if (!last) return {};
        left = last->Name();
        try {
            stage.driver.Close(*last);
            stage.stand->Settle();
        } catch (const driver::DriverError& error) {
            return std::string("a window cannot be closed: ") + error.what();
        }
    }
    return left + " does not close";
}

}  // namespace zv::script
