#include "calls.h"

#include <array>
#include <vector>

#include "items/item_store.h"
#include "plans/occurrences.h"
#include "reports/print_report.h"
#include "scenario_stage.h"
#include "session/module_gate.h"
#include "session/text_checks.h"
#include "store/sql_text.h"
#include "values.h"
#include "windows/completion/frm_task_done.h"
#include "windows/generation/boxes.h"
#include "windows/main/frm_task_main.h"
#include "windows/plan_editor/frm_task_set.h"
#include "windows/query/ask_window.h"
#include "windows/staff/frm_list.h"

namespace zv::script {
namespace {

using Arguments = std::vector<std::string>;

struct Operation {
    std::string_view name;
    std::size_t arguments;
    std::string_view usage;
    /// Answers the result as text.
    std::string (*run)(ScenarioStage& stage, const Arguments& arguments);
};

std::string CallMarkItemState(ScenarioStage& stage, const Arguments& arguments) {
    const std::int16_t item = number::ToInt16(arguments[0]);
    const std::int16_t state = number::ToInt16(arguments[1]);
    stage.session.database.EnsureConnection();
    return std::to_string(items::Mark(stage.session.database, item, state, arguments[2]));
}

std::string CallMakeLikePattern(ScenarioStage&, const Arguments& arguments) {
    return store::MakeLikePattern(arguments[0]);
}

std::string CallQualifyFieldNames(ScenarioStage& stage, const Arguments& arguments) {
    return store::QualifyFieldNames(arguments[0], arguments[1], stage.session.state.SQLData);
}

std::string CallFitTextBytes(ScenarioStage& stage, const Arguments& arguments) {
    return FitTextBytes(stage.session, arguments[0], number::ToInt16(arguments[1]), arguments[2]);
}

std::string CallCountRows(ScenarioStage& stage, const Arguments& arguments) {
    stage.session.database.EnsureConnection();
    return std::to_string(stage.session.database.CountRows(arguments[0], arguments[1]));
}

std::string CallCheckText(ScenarioStage& stage, const Arguments& arguments) {
    return Truth(CheckText(stage.session, arguments[0]));
}

std::string CallCheckModule(ScenarioStage& stage, const Arguments& arguments) {
    return std::to_string(CheckModule(stage.session, arguments[0], number::ToInt16(arguments[1]),
                                      number::ToInt16(arguments[2])));
}

std::string CallLoadText(ScenarioStage& stage, const Arguments& arguments) {
    return stage.session.LoadText(number::ToInt16(arguments[0]));
}

DateTime ToDate(const std::string& text) {
    const auto date = DateTime::Parse(text);
    if (!date) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *date;
}

std::string CallMakeDate(ScenarioStage&, const Arguments& arguments) {
    return plans::MakeDate(number::ToInt16(arguments[0]), number::ToInt16(arguments[1]),
                           number::ToInt16(arguments[2]))
        .ShortIso();
}

std::string CallGenerateTaskList(ScenarioStage& stage, const Arguments& arguments) {
    windows::GenerateTaskList(stage.session, arguments[0]);
    return {};
}

std::string CallAddTaskInstance(ScenarioStage& stage, const Arguments& arguments) {
    return std::to_string(windows::AddTaskInstance(stage.session, number::ToInt16(arguments[0]),
                                                   ToDate(arguments[1])));
}

// For a routine of the main window: one that is not open yet is loaded.
windows::frmTaskMain& MainWindow(ScenarioStage& stage) {
    using windows::frmTaskMain;
    auto* window = stage.windows.Find<frmTaskMain>(frmTaskMain::kName);
    if (!window) {
        window = &stage.windows.Create<frmTaskMain>(stage.session);
        window->Load();
    }
    return *window;
}

std::string CallListBirthdays(ScenarioStage& stage, const Arguments& arguments) {
    windows::frmTaskMain& window = MainWindow(stage);
    window.birthdays.ListBirthdays(number::ToInt16(arguments[0]));
    return std::to_string(window.birthdays.Grid1.DataRowCount());
}

std::string CallPrintReport(ScenarioStage& stage, const Arguments& arguments) {
    reports::Report report;
    report.printMode = number::ToInt16(arguments[0]);
    report.name = arguments[1];
    report.title = arguments[2];
    report.filter = arguments[3];
    report.order = arguments[4];
    reports::PrintReport(stage.session, report);
    return {};
}

std::string CallPrintItem(ScenarioStage& stage, const Arguments& arguments) {
    const std::int16_t mode = number::ToInt16(arguments[0]);
    MainWindow(stage).printing.PrintItem(mode);
    return {};
}

std::string CallTaskDone(ScenarioStage& stage, const Arguments& arguments) {
    windows::ShowTaskDone(stage.session, number::ToInt16(arguments[0]), false);
    return {};
}

std::string CallTaskSet(ScenarioStage& stage, const Arguments& arguments) {
    windows::ShowPlanEditor(stage.session, number::ToInt16(arguments[0]), false);
    return {};
}

std::string CallList(ScenarioStage& stage, const Arguments& arguments) {
    windows::ShowStaffList(stage.session, number::ToInt16(arguments[0]), false);
    return {};
}

std::string CallAsk(ScenarioStage& stage, const Arguments&) {
    windows::ShowAsk(stage.session, false);
    return {};
}

std::string CallStartReminders(ScenarioStage& stage, const Arguments&) {
    stage.control.StartReminders();
    return {};
}

std::string CallStopReminders(ScenarioStage& stage, const Arguments&) {
    stage.control.StopReminders();
    return {};
}

std::string CallReminding(ScenarioStage& stage, const Arguments&) {
    return stage.control.Reminding() ? "true" : "false";
}

constexpr std::array kOperations = std::to_array<Operation>({
    {"MarkItemState", 3, "ITEM STATE NAME", CallMarkItemState},
    {"MakeLikePattern", 1, "TEXT", CallMakeLikePattern},
    {"QualifyFieldNames", 2, "WHERE ALIAS", CallQualifyFieldNames},
    {"FitTextBytes", 3, "TEXT BYTES FIELD", CallFitTextBytes},
    {"CountRows", 2, "TABLE FILTER", CallCountRows},
    {"CheckText", 1, "TEXT", CallCheckText},
    {"CheckModule", 3, "NAME MODE LAUNCH", CallCheckModule},
    {"LoadText", 1, "ID", CallLoadText},
    {"GenerateTaskList", 1, "PLAN", CallGenerateTaskList},
    {"AddTaskInstance", 2, "PLAN DATE", CallAddTaskInstance},
    {"MakeDate", 3, "YEAR MONTH DAY", CallMakeDate},
    {"ListBirthdays", 1, "DAYS", CallListBirthdays},
    {"PrintReport", 5, "MODE REPORT TITLE FILTER ORDER", CallPrintReport},
    {"PrintItem", 1, "MODE", CallPrintItem},
    {"frmTaskSet", 1, "PLAN", CallTaskSet},
    {"frmTaskDone", 1, "TYPE", CallTaskDone},
    {"frmList", 1, "ACTION", CallList},
    {"frmAsk", 0, "", CallAsk},
    {"StartReminders", 0, "", CallStartReminders},
    {"StopReminders", 0, "", CallStopReminders},
    {"Reminding", 0, "", CallReminding},
});

const Operation* FindOperation(const std::string& name) {
    for (const Operation& operation : kOperations) {
        if (operation.name == name) return &operation;
    }
    return nullptr;
}

}  // namespace

Action CompileCall(Words words) {
    const Operation* operation = FindOperation(words[0]);
    if (!operation) throw ScriptError("unknown operation " + Quote(words[0]));
    Arguments arguments;
    for (std::size_t i = 1; i < words.size(); i++) arguments.push_back(words[i]);
    if (arguments.size() != operation->arguments) {
        throw ScriptError("wrong number of words: call " + words[0] + ' ' +
                          std::string(operation->usage));
    }
    return [operation, arguments](ScenarioStage& stage) {
        stage.result.clear();
        stage.AsHost([&] { stage.result = operation->run(stage, arguments); });
    };
}

}  // namespace zv::script
