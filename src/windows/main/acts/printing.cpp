#include "windows/main/acts/printing.h"

#include <string>

#include "items/asked_words.h"
#include "items/fields.h"
#include "platform/report_printer.h"
#include "reports/print_grid.h"
#include "reports/print_report.h"
#include "resources/ask_texts.h"
#include "resources/fixed_texts.h"
#include "resources/text_ids.h"
#include "windows/query/layout_chooser.h"

namespace zv::windows {

Printing::Printing(forms::Form& form, Session& session, CommandPanel& commands,
                   BirthdayPanel& reminder, FieldLabels& labels, const ItemView& view,
                   const Listing& listing)
    : form_(form),
      session_(session),
      commands_(commands),
      reminder_(reminder),
      labels_(labels),
      view_(view),
      listing_(listing) {
    commands_.cmdPrint.onClick = [this] { cmdPrint_Click(); };
    commands_.cmdItemSet.onClick = [this] { cmdItemSet_Click(); };
    commands_.menus.mnuPrintItem.onClick = [this] { PrintItem(reports::kPreview); };
    commands_.menus.mnuPrintList.onClick = [this] { PrintItemList(); };
}

void Printing::PrintItem(int printMode) {
    // A window that was never shown has not read them; screen and print use the same names.
    labels_.FillIfNeeded();
    FillParameters();
    reports::Report report;
    report.printMode = printMode;
    report.name = "zvTask01";
    report.title = "Customer Report";
    report.order = "a.fType,a.taskTitle,a.taskTime";
    reports::PrintReport(session_, report);
}

void Printing::FillParameters() {
    auto& parameters = session_.state.reportParameters;
    parameters.clear();
    for (const items::Field* field : items::PrintedFields()) {
        const auto position = static_cast<std::size_t>(field - items::kFields.data());
        parameters.push_back(
            platform::HeadingEntry(labels_.Of(position)->ShownText(), std::string(field->heading)));
        parameters.push_back(view_.Values().Text(position));
    }
}

void Printing::PrintItemList() {
    session_.state.reportParameters.clear();
    reports::Report report;
    report.name = "zvTask02";
    report.title = session_.LoadText(text_id::kTask) + session_.LoadText(text_id::kList);
    report.filter = listing_.Shown().condition;
    // Keeps the condition's end and the order apart.
    if (!report.filter.empty()) report.filter += ' ';
    report.order = listing_.Shown().order;
    report.asked = listing_.Shown().asked;
    report.columns = reports::ChosenColumns(session_);
    reports::PrintReport(session_, report);
}

void Printing::cmdItemSet_Click() {
    const std::string layout = windows::ChooseListLayout(session_);
    // The host may have closed everything meanwhile.
    if (layout.empty() || !form_.IsLoaded()) return;
    if (commands_.menus.mnuPrintList.Enabled()) PrintItemList();
}

void Printing::cmdPrint_Click() {
    if (!reminder_.ShowsGrid()) return PrintItem(reports::kPreview);
    items::AskedWords asked(session_.state.Language);
    asked.Add(session_.LoadText(resources::DesignText::Birthday),
              session_.LoadText(resources::AskText::AskedSince, reminder_.ShownDay().IsoDate()));
    reports::PrintGrid(session_, reminder_.Grid1, resources::fixed::kBirthdays, "", asked.Text());
}

}  // namespace zv::windows
