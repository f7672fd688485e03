#include "windows/staff/frm_list.h"

#include <algorithm>

#include "forms/layout/row.h"
#include "resources/plan_texts.h"
#include "resources/text_ids.h"
#include "staff/staff_store.h"

namespace zv::windows {
namespace {

constexpr char kKeySeparator = '\t';

// What picking an entry gives.
std::string NameOf(const std::string& entry) {
    const auto separator = entry.find(kKeySeparator);
    return separator == std::string::npos ? entry : entry.substr(separator + 1);
}

}  // namespace

frmList::frmList(forms::WindowSystem& windows, Session& session)
    : Form(windows, std::string(kName)),
      lblList(*this, "lblList"),
      List1(*this, "List1"),
      cmdLogOK(*this, "cmdLogOK"),
      cmdCancel(*this, "cmdCancel"),
      session_(session) {
    cmdLogOK.onClick = [this] { cmdLogOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    List1.onDoubleClick = [this] { cmdLogOK_Click(); };
    defaultButton = &cmdLogOK;
    cancelButton = &cmdCancel;
}

void frmList::Form_Load() {
    SetCaptions();
    FillList();
    SelectPresent();
    PlaceControls();
    Center();
}

void frmList::SetCaptions() {
    SetCaption(session_.LoadText(text_id::kOptions) + session_.LoadText(text_id::kList));
    const std::string heading = session_.LoadText(resources::PlanText::ListPrefix) +
                                session_.LoadText(text_id::kList) +
                                session_.LoadText(text_id::kStaff);
    lblList.SetCaption(heading);
    List1.SetAccessibleName(heading);
    cmdLogOK.SetCaption(session_.LoadText(text_id::kTake));
    cmdCancel.SetCaption(session_.LoadText(text_id::kLeave));
    lblList.SetAccessKey('L');
    cmdLogOK.SetAccessKey('O');
    cmdCancel.SetAccessKey('X');
}

void frmList::FillList() {
    std::vector<std::string> entries;
    const staff::Source source = staff::PresentSource(session_.database);
    for (const staff::Person& person : staff::List(session_.database, source)) {
        entries.push_back(person.code + kKeySeparator + person.name);
    }
    List1.SetItems(std::move(entries));
}

// Enter then keeps what is chosen. A name that nobody in the list has selects nothing.
void frmList::SelectPresent() {
    if (present.empty()) return;
    for (int row = 0; row < List1.ListCount(); ++row) {
        if (NameOf(List1.List(row)) == present) {
            List1.SetListIndex(row);
            return;
        }
    }
}

void frmList::PlaceControls() {
    using forms::layout::dialog::kGap;
    using forms::layout::dialog::kMargin;
    constexpr int kListWidth = 280;
    constexpr int kRows = 15;
    const forms::layout::Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const int buttons = m.ButtonWidth(cmdLogOK) + kGap + m.ButtonWidth(cmdCancel);
    const int width = std::max({kListWidth, m.Widest({&lblList}), buttons});
    int top = kMargin;
    lblList.Move({kMargin, top, width, m.Line()});
    top += m.Line() + kGap / 2;
    List1.Move({kMargin, top, width, m.ListHeight(kRows)});
    top = List1.Bounds().Bottom() + kMargin;
    PlaceFromRight(m, kMargin + width, top, {&cmdCancel, &cmdLogOK});
    SetClientSize({width + 2 * kMargin, top + m.Button() + kMargin});
}

void frmList::cmdLogOK_Click() {
    const std::string name = NameOf(List1.Text());
    session_.state.myName = name;
    if (onPicked) onPicked(name);
    Unload();
}

void frmList::cmdCancel_Click() {
    if (Action > kLastKeepingAction) session_.state.myName.clear();
    Unload();
}

// Closing the frame is a cancel.
void frmList::Form_QueryUnload(bool&, bool byUser) {
    if (byUser && Action > kLastKeepingAction) session_.state.myName.clear();
}

void ShowStaffList(Session& session, std::int16_t action, bool modal) {
    // One that stands keeps what it was opened for: its cancel is not the caller's.
    session.windows.Open<frmList>(
        modal,
        [&session, action](frmList& list) {
            if (list.IsLoaded()) return;
            list.Action = action;
            list.present = session.state.myName;
        },
        session);
}

void PickStaff(Session& session, std::int16_t action, std::string present,
               std::function<void(const std::string& name)> onPicked) {
    // A list that stands open beside the other windows gives way to the modal one.
    if (auto* open = session.windows.Find<frmList>(frmList::kName)) open->Unload();
    session.windows.OpenNew<frmList>(
        true,
        [&](frmList& list) {
            list.Action = action;
            list.present = std::move(present);
            list.onPicked = std::move(onPicked);
        },
        session);
}

}  // namespace zv::windows
