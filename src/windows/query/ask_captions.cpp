// What every part of the query window is called, in the language at hand.
#include <string_view>
#include <utility>

#include "base/text.h"
#include "items/names.h"
#include "resources/ask_texts.h"
#include "resources/design_texts.h"
#include "resources/text_ids.h"
#include "windows/query/ask_window.h"

namespace zv::windows {
namespace {

using resources::AskText;
using resources::DesignText;

constexpr std::pair<std::string_view, int> kWidths[] = {
    {"taskTime", 180}, {"taskTitle", 200}, {"fContent", 240}, {"tDone", 70}};

}  // namespace

void frmAsk::SetCaptions() {
    const auto text = [this](auto id) { return session_.LoadText(id); };
    SetCaption(text(text_id::kQuery) + text(text_id::kTask));
    chkUser.SetCaption(text(AskText::WrittenBy));
    chkType.SetCaption(text(DesignText::Kind));
    Check1[kTitleCheck].SetCaption(text(text_id::kTitle));
    Check1[kDateCheck].SetCaption(text(text_id::kScheduledDate));
    Check1[kStateCheck].SetCaption(text(text_id::kState));
    chkDoneMan.SetCaption(text(text_id::kExecutor));
    lblUntil.SetCaption("-");
    cmdAsk.SetCaption(text(text_id::kQuery));
    cmdPrint.SetCaption(text(text_id::kPrint));
    cmdExport.SetCaption(text(AskText::ButtonExport));
    cmdQuit.SetCaption(text(text_id::kLeave));
    lblCount.SetCaption({});
    chkUser.SetAccessKey('U');
    chkType.SetAccessKey('K');
    Check1[kTitleCheck].SetAccessKey('T');
    Check1[kDateCheck].SetAccessKey('D');
    Check1[kStateCheck].SetAccessKey('S');
    chkDoneMan.SetAccessKey('M');
    cmdAsk.SetAccessKey('Q');
    cmdPrint.SetAccessKey('P');
    cmdQuit.SetAccessKey('X');

    txtUser.SetAccessibleName(chkUser.Caption());
    cboType2.SetAccessibleName(chkType.Caption());
    Text1[kTitleCheck].SetAccessibleName(Check1[kTitleCheck].Caption());
    DTPicker1.SetAccessibleName(Check1[kDateCheck].Caption() + " 1");
    DTPicker2.SetAccessibleName(Check1[kDateCheck].Caption() + " 2");
    Combo1.SetAccessibleName(Check1[kStateCheck].Caption());
    txtDoneMan.SetAccessibleName(chkDoneMan.Caption());
    Grid1.SetAccessibleName(Caption());

    cboType2.SetItems(items::KindNames(session_.state.Language));
    Combo1.SetItems(items::StateNames(session_.state.Language));
}

void frmAsk::SetColumns() {
    constexpr int kUsualWidth = 80;
    std::vector<forms::Grid::Column> columns;
    for (const items::Field* field : AskFields()) {
        columns.push_back({HeadingOf(*field), kUsualWidth});
        for (const auto& [column, width] : kWidths) {
            if (column == field->column) columns.back().width = width;
        }
        for (const suite::FieldCaption& entry : fieldCaptions) {
            const bool names = text::EqualsIgnoreCase(entry.field, field->column);
            if (names && !entry.caption.empty()) columns.back().heading = entry.caption;
        }
    }
    Grid1.SetColumns(std::move(columns));
}

// What has a switch is called as the switch is.
std::string frmAsk::HeadingOf(const items::Field& field) const {
    if (field.column == "taskTime") return Check1[kDateCheck].Caption();
    if (field.column == "fUser") return chkUser.Caption();
    return field.caption.Text(session_.state.Language);
}

}  // namespace zv::windows
