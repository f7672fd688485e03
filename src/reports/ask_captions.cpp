// What every part of the query window is called, in the language at hand.
#include "base/text.h"
#include "reports/ask_window.h"
#include "reports/item_names.h"
#include "resources/ask_texts.h"
#include "resources/design_texts.h"
#include "resources/text_ids.h"

namespace zv::reports {
namespace {

using resources::AskText;
using resources::DesignText;

}  // namespace

void frmAsk::SetCaptions() {
    const auto text = [this](std::int16_t id) { return session_.LoadText(id); };
    const auto design = [this](DesignText id) {
        return resources::GetDesignText(id, session_.state.Language);
    };
    SetCaption(text(text_id::kQuery) + text(text_id::kTask));
    chkUser.SetCaption(GetAskText(AskText::WrittenBy, session_.state.Language));
    chkType.SetCaption(design(DesignText::Kind));
    Check1[kTitleCheck].SetCaption(text(text_id::kTitle));
    Check1[kDateCheck].SetCaption(text(text_id::kScheduledDate));
    Check1[kStateCheck].SetCaption(text(text_id::kState));
    chkDoneMan.SetCaption(text(text_id::kExecutor));
    lblUntil.SetCaption("-");
    cmdAsk.SetCaption(text(text_id::kQuery));
    cmdPrint.SetCaption(text(text_id::kPrint));
    cmdExport.SetCaption(GetAskText(AskText::ButtonExport, session_.state.Language));
    cmdQuit.SetCaption(text(text_id::kLeave));
    lblCount.SetCaption({});

    txtUser.SetAccessibleName(chkUser.Caption());
    cboType2.SetAccessibleName(chkType.Caption());
    Text1[kTitleCheck].SetAccessibleName(Check1[kTitleCheck].Caption());
    DTPicker1.SetAccessibleName(Check1[kDateCheck].Caption() + " 1");
    DTPicker2.SetAccessibleName(Check1[kDateCheck].Caption() + " 2");
    Combo1.SetAccessibleName(Check1[kStateCheck].Caption());
    txtDoneMan.SetAccessibleName(chkDoneMan.Caption());
    Grid1.SetAccessibleName(Caption());

    cboType2.SetItems(KindNames(session_));
    Combo1.SetItems(StateNames(session_));
}

void frmAsk::SetColumns() {
    const auto design = [this](DesignText id) {
        return resources::GetDesignText(id, session_.state.Language);
    };
    std::vector<forms::Grid::Column> columns = {
        {Check1[kDateCheck].Caption(), 90},
        {Check1[kTitleCheck].Caption(), 200},
        {design(DesignText::Content), 240},
        {chkDoneMan.Caption(), 80},
        {chkUser.Caption(), 80},
        {chkType.Caption(), 80},
        {Check1[kStateCheck].Caption(), 70},
    };
    for (std::size_t i = columns.size(); i < kAskFields.size(); i++) {
        columns.push_back({DesignCaption(session_, kAskFields[i]), 80});
    }
    for (std::size_t i = 0; i < columns.size(); i++) {
        for (const FieldCaption& entry : fieldCaptions) {
            const bool names = text::EqualsIgnoreCase(entry.field, kAskFields[i]);
            if (names && !entry.caption.empty()) columns[i].heading = entry.caption;
        }
    }
    Grid1.SetColumns(std::move(columns));
}

}  // namespace zv::reports
