#include "windows/query/query_builder.h"

#include <algorithm>
#include <utility>

#include "forms/field_keys.h"
#include "items/names.h"
#include "resources/text_ids.h"
#include "session/text_checks.h"
#include "windows/query/condition_words.h"

namespace zv::windows {
namespace {

using resources::ReportText;

constexpr int kLongestValue = 250;

}  // namespace

frmSeek::frmSeek(forms::WindowSystem& windows, Session& session)
    : Form(windows, std::string(kName)),
      lblField(*this, "lblField"),
      cboField(*this, "cboField", nullptr, forms::ComboStyle::ListOnly),
      lblCompare(*this, "lblCompare"),
      cboCompare(*this, "cboCompare", nullptr, forms::ComboStyle::ListOnly),
      lblValue(*this, "lblValue"),
      txtValue(*this, "txtValue"),
      DTPicker1(*this, "DTPicker1"),
      cboValue(*this, "cboValue", nullptr, forms::ComboStyle::ListOnly),
      picJoin(*this, "picJoin"),
      optAnd(*this, "optAnd", &picJoin),
      optOr(*this, "optOr", &picJoin),
      cmdAdd(*this, "cmdAdd"),
      lblConditions(*this, "lblConditions"),
      lstConditions(*this, "lstConditions"),
      lblHint(*this, "lblHint"),
      cmdRemove(*this, "cmdRemove"),
      cmdClear(*this, "cmdClear"),
      cmdOK(*this, "cmdOK"),
      cmdCancel(*this, "cmdCancel"),
      session_(session) {
    cboField.onClick = [this] { cboField_Click(); };
    cboCompare.onClick = [this] { cboCompare_Click(); };
    cmdAdd.onClick = [this] { cmdAdd_Click(); };
    lstConditions.onClick = [this] { lstConditions_Click(); };
    lstConditions.onDoubleClick = [this] { cmdRemove_Click(); };
    cmdRemove.onClick = [this] { cmdRemove_Click(); };
    cmdClear.onClick = [this] { cmdClear_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    const auto moveOn = [this](forms::KeyEvent& event) { forms::MoveOnEnter(*this, event); };
    for (forms::Control* field : std::initializer_list<forms::Control*>{
             &cboField, &cboCompare, &txtValue, &DTPicker1, &cboValue, &optAnd, &optOr}) {
        field->onKeyDown = moveOn;
    }
    txtValue.SetMaxLength(kLongestValue);
    shortcuts.Press({forms::key::kEnter, true}, cmdOK);
    defaultButton = &cmdOK;
    cancelButton = &cmdCancel;
}

std::string frmSeek::Text(ReportText id) const {
    return session_.LoadText(id);
}

void frmSeek::Form_Load() {
    fields_ =
        items::ListFields(suite::ReadFieldCaptions(session_.database, session_.state.Language),
                          session_.state.Language);
    SetCaptions();
    DTPicker1.SetValue(session_.machine.clock.Today());
    optAnd.SetValue(true);
    std::vector<std::string> captions;
    for (const items::ListField& field : fields_) captions.push_back(field.caption);
    cboField.SetItems(std::move(captions));
    PlaceControls();
    Center();
    cboField.SetListIndex(fields_.empty() ? -1 : 0);
    if (fields_.empty()) ShowValueField();
    ShowConditions(-1);
}

void frmSeek::SetCaptions() {
    SetCaption(Text(ReportText::SearchWindow));
    const auto label = [](forms::Label& target, std::string caption, auto&... fields) {
        (fields.SetAccessibleName(caption), ...);
        target.SetCaption(std::move(caption));
    };
    label(lblField, Text(ReportText::Field), cboField);
    label(lblCompare, Text(ReportText::Comparison), cboCompare);
    label(lblValue, Text(ReportText::ComparedValue), txtValue, DTPicker1, cboValue);
    label(lblConditions, Text(ReportText::Conditions), lstConditions);
    lblHint.SetCaption(Text(ReportText::ConditionsHint));
    optAnd.SetCaption(Text(ReportText::ButtonAnd));
    optOr.SetCaption(Text(ReportText::ButtonOr));
    cmdAdd.SetCaption(Text(ReportText::ButtonAddCondition));
    cmdRemove.SetCaption(Text(ReportText::ButtonRemove));
    cmdClear.SetCaption(Text(ReportText::ButtonClear));
    cmdOK.SetCaption(session_.LoadText(text_id::kOk));
    cmdCancel.SetCaption(session_.LoadText(text_id::kCancel));
    cmdOK.SetAccessKey('O');
    cmdCancel.SetAccessKey('C');
    lblField.SetAccessKey('F');
    lblCompare.SetAccessKey('Q');
    lblValue.SetAccessKey('V');
}

const items::ListField* frmSeek::Field() const {
    const int at = cboField.ListIndex();
    return at < 0 ? nullptr : &fields_.at(static_cast<std::size_t>(at));
}

items::Comparison frmSeek::ChosenComparison() const {
    const items::ListField* field = Field();
    const auto& comparisons = items::ComparisonsOf(field ? field->kind : items::FieldKind::Text);
    return comparisons.at(static_cast<std::size_t>(std::max(0, cboCompare.ListIndex())));
}

std::vector<std::string> frmSeek::ChoicesOf(items::FieldKind kind) const {
    return kind == items::FieldKind::ItemKind ? items::KindNames(session_.state.Language)
                                              : items::StateNames(session_.state.Language);
}

void frmSeek::cboField_Click() {
    const items::ListField* field = Field();
    if (!field) return;
    std::vector<std::string> names;
    for (const items::Comparison comparison : items::ComparisonsOf(field->kind)) {
        names.push_back(Text(NameOf(comparison, field->kind)));
    }
    cboCompare.SetItems(std::move(names));
    if (field->kind == items::FieldKind::ItemKind || field->kind == items::FieldKind::State) {
        cboValue.SetItems(ChoicesOf(field->kind));
        cboValue.SetListIndex(0);
    }
    txtValue.SetNumericKeyboard(field->kind == items::FieldKind::Number);
    cboCompare.SetListIndex(0);
    ShowValueField();
}

void frmSeek::cboCompare_Click() {
    ShowValueField();
}

void frmSeek::ShowValueField() {
    const items::ListField* field = Field();
    const items::FieldKind kind = field ? field->kind : items::FieldKind::Text;
    const bool takesValue = field && items::TakesValue(ChosenComparison());
    const bool date = kind == items::FieldKind::Date;
    const bool choice = kind == items::FieldKind::ItemKind || kind == items::FieldKind::State;
    txtValue.SetVisible(!date && !choice);
    DTPicker1.SetVisible(date);
    cboValue.SetVisible(choice);
    txtValue.SetEnabled(takesValue);
    DTPicker1.SetEnabled(takesValue);
    lblValue.SetEnabled(takesValue);
    cmdAdd.SetEnabled(field != nullptr);
}

bool frmSeek::ValueIsFit() {
    const items::ListField* field = Field();
    if (!items::TakesValue(ChosenComparison()) || !txtValue.OwnVisible()) return true;
    if (CheckFieldText(session_, txtValue, field->kind == items::FieldKind::Number)) {
        txtValue.SetFocus();
        return false;
    }
    if (!txtValue.Text().empty()) return true;
    session_.windows.ShowMessage(field->caption + session_.LoadText(text_id::kMustNotBeEmpty),
                                 forms::box::kExclamation);
    txtValue.SetFocus();
    return false;
}

bool frmSeek::AddCondition() {
    const items::ListField* field = Field();
    if (!field || !ValueIsFit()) return false;
    items::Condition condition;
    condition.join = optOr.Value() ? items::Join::Or : items::Join::And;
    condition.field = *field;
    condition.comparison = ChosenComparison();
    condition.value = txtValue.Text();
    condition.date = DTPicker1.Value().value_or(DateTime());
    condition.row = std::max(0, cboValue.ListIndex());
    conditions.push_back(std::move(condition));
    changed_ = true;
    txtValue.SetText("");
    ShowConditions(lstConditions.ListCount());
    return true;
}

void frmSeek::cmdAdd_Click() {
    if (AddCondition()) cboField.SetFocus();
}

void frmSeek::ShowConditions(int selected) {
    std::vector<std::string> lines;
    for (const items::Condition& condition : conditions) {
        lines.push_back(DescribeCondition(condition, lines.empty(), session_.state.Language));
    }
    const int count = static_cast<int>(lines.size());
    lstConditions.SetItems(std::move(lines));
    lstConditions.SetListIndex(std::min(selected, count - 1));
    lstConditions_Click();
    // The first condition has nothing before it to be joined to.
    optAnd.SetEnabled(count > 0);
    optOr.SetEnabled(count > 0);
    cmdClear.SetEnabled(count > 0);
}

void frmSeek::lstConditions_Click() {
    cmdRemove.SetEnabled(lstConditions.ListIndex() >= 0);
}

void frmSeek::cmdRemove_Click() {
    const int at = lstConditions.ListIndex();
    if (at < 0) return;
    conditions.erase(conditions.begin() + at);
    changed_ = true;
    ShowConditions(at);
}

void frmSeek::cmdClear_Click() {
    conditions.clear();
    changed_ = true;
    ShowConditions(-1);
}

void frmSeek::cmdOK_Click() {
    // A value that was typed and not added yet is meant as well.
    const bool pending = txtValue.Visible() && txtValue.Enabled() && !txtValue.Text().empty();
    if (pending && !AddCondition()) return;
    if (onAccepted) onAccepted(conditions);
    Unload();
}

void frmSeek::cmdCancel_Click() {
    if (MayLeave() && IsLoaded()) Unload();
}

std::string AskForConditions(Session& session, std::vector<items::Condition>& conditions) {
    std::string where;
    const auto accept = [&](const std::vector<items::Condition>& accepted) {
        conditions = accepted;
        where = items::WhereText(
            accepted, [&session](DateTime date) { return session.database.DateLiteral(date); });
    };
    session.windows.OpenNew<frmSeek>(
        true,
        [&](frmSeek& window) {
            window.conditions = conditions;
            window.onAccepted = accept;
        },
        session);
    return where;
}

}  // namespace zv::windows
