#include "windows/main/panels/item_panel.h"

#include <utility>

#include "forms/field_keys.h"
#include "forms/layout/metrics.h"
#include "items/fields.h"
#include "items/names.h"

namespace zv::windows {
namespace {

// Elements of the editor's array of labels.
constexpr int kTitleLabel = 0;
constexpr int kDoerLabel = 1;
constexpr int kDateLabel = 2;
constexpr int kKindLabel = 3;
constexpr int kWriterLabel = 5;
constexpr int kStateLabel = 10;

constexpr int kHeadRows = 3;

}  // namespace

ItemPanel::ItemPanel(forms::Form& form, Session& session)
    : form_(form),
      session_(session),
      fraItem(form, "fraItem"),
      lblTitle(form, "lblList2", &fraItem, kTitleLabel),
      lblDoer(form, "lblList2", &fraItem, kDoerLabel),
      lblDate(form, "lblList2", &fraItem, kDateLabel),
      lblKind(form, "lblList2", &fraItem, kKindLabel),
      lblWriter(form, "lblList2", &fraItem, kWriterLabel),
      lblState(form, "lblList2", &fraItem, kStateLabel),
      txtTitle2(form, "txtTitle2", &fraItem),
      cboType2(form, "cboType2", &fraItem, forms::ComboStyle::ListOnly),
      DTPicker2(form, "DTPicker2", &fraItem),
      cboDone2(form, "cboDone2", &fraItem, forms::ComboStyle::ListOnly),
      cboJbr2(form, "cboJbr2", &fraItem, forms::ComboStyle::FreeText),
      txtUser2(form, "txtUser2", &fraItem),
      lblCardMemo(form, "lblCardMemo", &fraItem) {
    DTPicker2.SetFormat(forms::DateFormat::DateTime);
    txtUser2.SetLocked(true);
    const std::initializer_list<forms::Control*> boxes{&txtTitle2, &cboType2, &DTPicker2,
                                                       &cboDone2,  &cboJbr2,  &txtUser2};
    for (forms::Control* box : boxes) {
        box->onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(form_, event); };
    }
    txtTitle2.onGotFocus = [this] { txtTitle2.SelectAll(); };
    cboType2.onClick = [this] { cboType2_Click(); };
    txtTitle2.SetMaxLength(items::kFields[items::field::kTitle].length);
    cboJbr2.SetMaxLength(items::kFields[items::field::kDoer].length);
}

void ItemPanel::LoadLists() {
    cboType2.SetItems(items::KindNames(session_.state.Language));
    cboDone2.SetItems(items::StateNames(session_.state.Language));
}

std::vector<FieldBox> ItemPanel::Boxes() {
    using namespace items::field;
    return {{kTitle, &lblTitle, &txtTitle2}, {kDoer, &lblDoer, &cboJbr2},
            {kTime, &lblDate, &DTPicker2},   {kKind, &lblKind, &cboType2},
            {kUser, &lblWriter, &txtUser2},  {kState, &lblState, &cboDone2}};
}

int ItemPanel::Height() const {
    return kHeadRows * forms::layout::Metrics(form_.Windows().GetBackend()).Row();
}

void ItemPanel::Place(const forms::Rect& area) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    fraItem.Move(area);
    const int first = m.LabelWidth({&lblTitle, &lblKind, &lblDoer});
    const int second = m.LabelWidth({&lblDate, &lblWriter});
    const int third = m.LabelWidth({&lblState});
    // The column of the date takes what a date with its time needs.
    const int dateWidth = second + m.Width("0000-00-00 00:00") + kDropButton + 2 * kGap;
    const int others = area.width - dateWidth - 2 * kColumnGap;
    const int firstWidth = others * 54 / 100;
    const int thirdWidth = others - firstWidth;
    const int x2 = firstWidth + kColumnGap;
    const int x3 = x2 + dateWidth + kColumnGap;
    m.PlaceLabelled(lblTitle, txtTitle2, 0, 0, first, area.width);
    int y = m.Row();
    m.PlaceLabelled(lblKind, cboType2, 0, y, first, firstWidth);
    m.PlaceLabelled(lblDate, DTPicker2, x2, y, second, dateWidth);
    m.PlaceLabelled(lblState, cboDone2, x3, y, third, thirdWidth);
    y += m.Row();
    m.PlaceLabelled(lblDoer, cboJbr2, 0, y, first, firstWidth);
    m.PlaceLabelled(lblWriter, txtUser2, x2, y, second, dateWidth);
    lblCardMemo.Move({x3, y + m.LabelDrop(), thirdWidth, m.Text()});
}

void ItemPanel::BeginTitle() {
    FocusTitle();
    // It may have had the focus already.
    txtTitle2.SelectAll();
}

std::function<void()> ItemPanel::Remember() {
    return forms::RememberAll({&txtTitle2, &cboType2, &DTPicker2, &cboDone2, &cboJbr2, &txtUser2});
}

void ItemPanel::ShowFor(bool plans) {
    cboType2.SetVisible(!plans);
    cboDone2.SetVisible(!plans);
    lblKind.SetVisible(!plans);
    lblState.SetVisible(!plans);
}

void ItemPanel::SetLocked(bool locked) {
    txtTitle2.SetLocked(locked);
    cboJbr2.SetLocked(locked);
    DTPicker2.SetEnabled(!locked);
    cboType2.SetEnabled(!locked);
    cboDone2.SetEnabled(!locked);
}

void ItemPanel::SetStaff(std::vector<std::string> names) {
    const std::string shown = cboJbr2.Text();
    cboJbr2.SetItems(std::move(names));
    cboJbr2.SetText(shown);
}

void ItemPanel::cboType2_Click() const {
    if (onKind) onKind();
}

}  // namespace zv::windows
