#include "windows/main/panels/tree_panel.h"

#include <charconv>

#include "base/number.h"
#include "forms/field_keys.h"
#include "forms/form.h"
#include "forms/layout/metrics.h"
#include "items/names.h"
#include "items/urgency.h"
#include "resources/text_ids.h"
#include "windows/main/panels/icons.h"

namespace zv::windows {
namespace {

using items::ItemKind;
using items::ItemState;
using resources::DesignText;

/// Of the editor's array of labels.
constexpr int kOrderLabel = 12;

constexpr char kItemLetter = 'Z';
constexpr std::array<std::string_view, items::kItemKinds.size()> kGroupLetters = {"A", "B", "C"};
constexpr std::array<std::string_view, items::kItemKinds.size()> kEmptyGroupImages = {
    "task1", "guest1", "diary1"};
constexpr std::string_view kGroupImage = "task1";
// By state.
constexpr std::array<std::string_view, items::kItemStates.size()> kItemImages = {"task2", "task4",
                                                                                 "task3"};
constexpr std::array<char, items::kItemStates.size()> kStateDigits = {'2', '4', '3'};
constexpr std::string_view kPlanRootKey = "E0";
constexpr std::string_view kPlanRootImage = "event1";
constexpr std::string_view kPlanImage = "event4";

// An item's text is its day between these, then its title.
constexpr std::string_view kBeforeDay = "(";
constexpr std::string_view kBehindDay = ")\t";

std::string_view DayOf(std::string_view text) {
    text.remove_prefix(kBeforeDay.size());
    return text.substr(0, text.find(kBehindDay));
}

// What a node carries beside its text: a group, or the state of an item.
constexpr std::uint8_t kGroup = 0;

constexpr std::uint8_t DataOf(ItemState state) {
    return static_cast<std::uint8_t>(Number(state) + 1);
}

void AppendNumber(std::string& text, std::int64_t number) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

void AppendText(std::string& text, const store::Value& value) {
    if (const std::string* plain = value.TextIf())
        text += *plain;
    else if (const auto* number = std::get_if<std::int64_t>(&value.Data()))
        AppendNumber(text, *number);
    else
        text += value.ToText();
}

int NumberAt(std::string_view text, std::size_t at, std::size_t digits) {
    int number = 0;
    for (std::size_t i = at; i < at + digits; i++) number = number * 10 + (text[i] - '0');
    return number;
}

// A date that the editor can read again: its form alone does not make it one.
bool IsIsoDate(std::string_view text) {
    constexpr std::string_view kForm = "0000-00-00";
    if (text.size() < kForm.size()) return false;
    for (std::size_t i = 0; i < kForm.size(); i++) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (kForm[i] == '-' ? text[i] != '-' : !digit) return false;
    }
    if (!DateTime::IsValidDate(NumberAt(text, 0, 4), NumberAt(text, 5, 2), NumberAt(text, 8, 2))) {
        return false;
    }
    constexpr std::string_view kMidnight = " 00:00:00";
    const std::string_view time = text.substr(kForm.size());
    return time.empty() || time == kMidnight || DateTime::Parse(text).has_value();
}

void AppendDay(std::string& text, const store::Value& value) {
    if (value.IsNull()) return;
    // The stored form already begins with the day.
    const std::string* stored = value.TextIf();
    if (stored && IsIsoDate(*stored))
        text.append(*stored, 0, 10);
    else
        text += value.ToDate().IsoDate();
}

}  // namespace

NodeKind KindFromKeyLetter(char letter, NodeKind present) {
    switch (letter) {
        case 'A':
            return NodeKind::Task;
        case 'B':
            return NodeKind::Guest;
        case 'C':
            return NodeKind::Diary;
        case 'E':
            return NodeKind::Plan;
        default:
            return present;
    }
}

TreePanel::TreePanel(forms::Form& form, Session& session)
    : form_(form),
      session_(session),
      tvwTask(form, "tvwTask"),
      lblOrder(form, "lblList2", nullptr, kOrderLabel),
      cboOrder(form, "cboOrder", nullptr, forms::ComboStyle::ListOnly),
      chkEvent(form, "chkEvent"),
      picImage(form, "picImage") {
    tvwTask.SetImageList(&TreeImages());
    tvwTask.describe = [this](int node) { return Describe(node); };
    tvwTask.sign = [this](int node) { return SignOf(node); };
    tvwTask.onNodeClick = [this](int node) {
        if (onNodeClick) onNodeClick(node);
    };
    tvwTask.onKeyDown = [this](forms::KeyEvent& event) { tvwTask_KeyDown(event); };
    tvwTask.onMouseDown = [this](const forms::MouseEvent& event) { tvwTask_MouseDown(event); };
    cboOrder.onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(form_, event); };
    chkEvent.onClick = [this] {
        if (onSwitch) onSwitch();
    };
    cboOrder.onClick = [this] {
        if (onOrder) onOrder();
    };
    picImage.onMouseMove = [this](const forms::MouseEvent& event) { picImage_MouseMove(event); };
}

void TreePanel::LoadLists() {
    cboOrder.SetItems({session_.LoadText(DesignText::OrderByDate),
                       session_.LoadText(DesignText::OrderByTitle),
                       session_.LoadText(DesignText::OrderByPlan)});
}

void TreePanel::SetCaptions() {
    lblOrder.SetCaption(session_.LoadText(DesignText::Order));
    cboOrder.SetAccessibleName(lblOrder.Caption());
    tvwTask.SetAccessibleName(session_.LoadText(text_id::kTask) +
                              session_.LoadText(text_id::kList));
}

void TreePanel::SetStartCaption() {
    chkEvent.SetCaption(session_.LoadText(text_id::kManage) + session_.LoadText(text_id::kEvent));
}

void TreePanel::Place(const forms::Rect& area) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const int below = m.Field() + kGap;
    tvwTask.Move({area.left, area.top, area.width, area.height - below});
    const int y = area.Bottom() - m.Field();
    const int eventWidth = m.BoxWidth(chkEvent.Caption());
    m.PlaceLabelled(lblOrder, cboOrder, area.left, y, m.LabelWidth({&lblOrder}),
                    area.width - eventWidth - kColumnGap);
    chkEvent.Move({area.Right() - eventWidth, y, eventWidth, m.Field()});
    picImage.Move({area.Right(), area.top, kDivider, area.height + kMargin});
}

void TreePanel::FillItems(store::Recordset& rows, const items::Filter& filter, FillResult& result) {
    const std::vector<std::string> names = items::KindNames(session_.state.Language);
    const int idColumn = rows.FieldIndex("fID");
    const int typeColumn = rows.FieldIndex("fType");
    const int timeColumn = rows.FieldIndex("taskTime");
    const int titleColumn = rows.FieldIndex("taskTitle");
    const int doneColumn = rows.FieldIndex("tDone");
    std::optional<ItemKind> lastKind;
    int group = kNone;
    int groups = 0;
    std::string key;
    std::string text;

    const auto addGroup = [&](ItemKind kind, std::string_view image) {
        groups++;
        key = kGroupLetters[Position(kind)];
        AppendNumber(key, groups);
        return tvwTask.Add(kNone, key, names[Position(kind)], image);
    };

    for (; !rows.Eof(); rows.MoveNext()) {
        const auto kind = items::KindOf(rows.Field(typeColumn).ToInt32());
        const auto state = items::StateOf(rows.Field(doneColumn).ToInt32());
        if (!kind || !state) {
            result.rowsLeftOut++;
            continue;
        }
        text = kBeforeDay;
        try {
            AppendDay(text, rows.Field(timeColumn));
        } catch (const RuntimeError&) {
            result.rowsLeftOut++;
            continue;
        }
        text += kBehindDay;
        AppendText(text, rows.Field(titleColumn));

        if (kind != lastKind) {
            lastKind = kind;
            result.any[Position(*kind)] = true;
            group = addGroup(*kind, kGroupImage);
            tvwTask.SetExpanded(group, true);
        }
        key = kItemLetter;
        AppendText(key, rows.Field(idColumn));
        const int node = tvwTask.Add(group, key, text, kItemImages[Position(*state)]);
        tvwTask.SetData(node, DataOf(*state));
    }
    for (const ItemKind kind : items::kItemKinds) {
        if (filter.Takes(kind) && !result.any[Position(kind)]) {
            addGroup(kind, kEmptyGroupImages[Position(kind)]);
        }
    }
}

void TreePanel::FillPlans(store::Recordset& rows) {
    const int idColumn = rows.FieldIndex("fID");
    const int titleColumn = rows.FieldIndex("taskTitle");
    const int root = tvwTask.Add(kNone, kPlanRootKey, chkEvent.Caption(), kPlanRootImage);
    tvwTask.SetExpanded(root, true);
    std::string key;
    std::string title;
    for (; !rows.Eof(); rows.MoveNext()) {
        key = kItemLetter;
        AppendText(key, rows.Field(idColumn));
        title.clear();
        AppendText(title, rows.Field(titleColumn));
        tvwTask.SetData(tvwTask.Add(root, key, title, kPlanImage), DataOf(ItemState::Done));
    }
}

int TreePanel::ItemsShown() const {
    int groups = 0;
    for (int group = tvwTask.FirstRoot(); group != kNone; group = tvwTask.NextSibling(group))
        groups++;
    return tvwTask.Count() - groups;
}

std::string TreePanel::KeyOf(int node) const {
    return node == kNone ? std::string() : std::string(tvwTask.Key(node));
}

int TreePanel::Find(const ItemRef& item) const {
    const int node = tvwTask.Find(kItemLetter + std::to_string(item.number));
    if (node == kNone) return kNone;
    // Items and plans have numbers of their own, which may be the same.
    return (GroupKindOf(node) == NodeKind::Plan) == item.plan ? node : kNone;
}

std::optional<std::int32_t> TreePanel::NumberOf(int node) const {
    const std::string_view key = tvwTask.Key(node);
    if (!key.starts_with(kItemLetter)) return std::nullopt;
    return number::ToInt32(number::Val(key.substr(1)));
}

std::optional<NodeKind> TreePanel::GroupKindOf(int node) const {
    const std::string_view key = tvwTask.Key(node);
    const int group = key.starts_with(kItemLetter) ? tvwTask.Parent(node) : node;
    if (group == kNone || tvwTask.Key(group).empty()) return std::nullopt;
    return KindFromKeyLetter(tvwTask.Key(group).front(), NodeKind::Task);
}

std::optional<ItemState> TreePanel::StateOf(int node) const {
    const std::uint8_t data = tvwTask.Data(node);
    return data == kGroup ? std::nullopt : items::StateOf(data - 1);
}

void TreePanel::ShowState(int node, ItemState state) {
    std::string image = tvwTask.Image(node);
    image.back() = kStateDigits[Position(state)];
    tvwTask.SetData(node, DataOf(state));
    tvwTask.SetImage(node, image);
    if (onItemsChanged) onItemsChanged();
}

void TreePanel::Remove(int node) {
    tvwTask.Remove(node);
    if (onItemsChanged) onItemsChanged();
}

std::optional<ItemState> TreePanel::ItemStateOf(int node) const {
    return GroupKindOf(node) == NodeKind::Plan ? std::nullopt : StateOf(node);
}

std::optional<forms::Sign> TreePanel::SignOf(int node) const {
    const auto state = ItemStateOf(node);
    if (!state) return std::nullopt;
    const DateTime today = session_.machine.clock.Today();
    const auto day = DateTime::Parse(DayOf(tvwTask.Text(node)));
    return forms::Sign{
        items::SignOf(day, *state, today, resources::SpokenLanguage(session_.state.Language)),
        items::ColorOf(items::UrgencyOf(day, *state, today))};
}

items::DueCount TreePanel::CountItems() const {
    const DateTime today = session_.machine.clock.Today();
    items::DueCount count;
    for (int node = tvwTask.FirstRoot(); node != kNone; node = tvwTask.NextInOrder(node)) {
        const auto state = ItemStateOf(node);
        if (state) count.Add(DateTime::Parse(DayOf(tvwTask.Text(node))), *state, today);
    }
    return count;
}

std::string TreePanel::Describe(int node) const {
    const auto group = GroupKindOf(node);
    const auto kind = group ? ItemKindOf(*group) : std::nullopt;
    const auto state = StateOf(node);
    if (!kind || !state) return {};
    const std::int16_t language = session_.state.Language;
    const std::string_view day = DayOf(tvwTask.Text(node));
    std::string said = items::Describe(*kind, *state, day, language);
    const std::string due =
        items::DueOf(DateTime::Parse(day), *state, session_.machine.clock.Today(), language);
    if (due.empty()) return said;
    return LoadText(resources::StatusText::SpokenSign, language, said, due);
}

int TreePanel::Find(const items::SavedItem& item) const {
    // The numbers of plans are not those of items.
    if (WantsPlans()) return kNone;
    if (item.id != 0) return tvwTask.Find(kItemLetter + std::to_string(item.id));
    const std::string text =
        std::string(kBeforeDay) + item.date.IsoDate() + std::string(kBehindDay) + item.title;
    for (int group = tvwTask.FirstRoot(); group != kNone; group = tvwTask.NextSibling(group)) {
        if (!tvwTask.Key(group).starts_with(kGroupLetters[Position(item.kind)])) continue;
        for (int node = tvwTask.FirstChild(group); node != kNone;
             node = tvwTask.NextSibling(node)) {
            if (tvwTask.Text(node) == text) return node;
        }
    }
    return kNone;
}

void TreePanel::tvwTask_KeyDown(forms::KeyEvent& event) {
    if (event.code != forms::key::kEnter) return;
    if (onEnter) onEnter();
    event.code = 0;
}

void TreePanel::tvwTask_MouseDown(const forms::MouseEvent& event) {
    if (event.button != forms::MouseButton::Right || !onContextMenu) return;
    onContextMenu(event.x / forms::kTwipsPerUnit + tvwTask.Bounds().left,
                  event.y / forms::kTwipsPerUnit + tvwTask.Bounds().top);
}

void TreePanel::picImage_MouseMove(const forms::MouseEvent& event) {
    constexpr int kSpot = 0x1E3C;  // twips from the picture's top
    if (event.y != kSpot || !onPictureMenu) return;
    onPictureMenu(picImage.Bounds().left + event.x / forms::kTwipsPerUnit,
                  picImage.Bounds().top + event.y / forms::kTwipsPerUnit);
}

}  // namespace zv::windows
