#include "mainwindow/item_list.h"

#include <array>
#include <charconv>
#include <string_view>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "store/sql_text.h"

namespace zv::mainwindow {
namespace {

using forms::TreeView;

constexpr std::array<std::string_view, kItemKinds> kGroupLetters = {"A", "B", "C"};
constexpr std::array<std::string_view, kItemKinds> kEmptyGroupImages = {"task1", "guest1",
                                                                        "diary1"};
constexpr std::string_view kGroupImage = "task1";
// By completion state.
constexpr std::array<std::string_view, 3> kItemImages = {"task2", "task4", "task3"};
constexpr std::string_view kPlanRootKey = "E0";
constexpr std::string_view kPlanRootImage = "event1";
constexpr std::string_view kPlanImage = "event4";
constexpr std::string_view kWhereWord = "Where";

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

std::string WhereText(const std::string& where, int databaseKind) {
    if (where.empty() || where == "1=1") return {};
    if (std::string_view(where).substr(0, 7).find(kWhereWord) != std::string_view::npos)
        return where;
    const bool qualified = text::Contains(where, "a.");
    return " Where " + (qualified ? where : store::QualifyFieldNames(where, "a.", databaseKind));
}

// Who reads the items by themselves has no cards to compare.
std::string Condition(const std::string& source, const std::string& filter) {
    if (filter.empty()) return {};
    if (text::Contains(filter, "b.")) return "a.fID in (select a.fID" + source + filter + ")";
    return std::string(
        text::Trim(std::string_view(filter).substr(filter.find(kWhereWord) + kWhereWord.size())));
}

}  // namespace

std::string ItemList::Source() const {
    std::string source = " from tTaskList a ";
    if (!window_.txtComp.Text().empty()) source += " Left Join cards b on a.taskID=b.fID ";
    return source;
}

std::string ItemList::Order() const {
    switch (window_.cboOrder.ListIndex()) {
        case 0:
            return "a.fType,a.taskTime desc,a.taskTitle";
        case 1:
            return "a.fType,a.taskTitle,a.taskTime desc";
        default:
            return "a.fType,a.taskID,a.taskTime desc,a.taskTitle";
    }
}

void ItemList::LoadItemList(const std::string& where) {
    window_.session.EnsureConnection();
    const std::string source = Source();
    const std::string filter = WhereText(where, window_.session.DatabaseKind());
    const std::string order = Order();
    const auto rows = window_.session.database.Open(
        "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID" + source + filter +
        " Order by " + order);
    shownCondition_ = Condition(source, filter);
    shownOrder_ = order;
    Rebuild(*rows, [&] { FillItems(*rows); });
}

void ItemList::LoadTaskPlanList() {
    window_.session.EnsureConnection();
    const auto rows = window_.session.database.Open(
        "select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by taskTitle");
    Rebuild(*rows, [&] { FillPlans(*rows); });
}

void ItemList::Rebuild(store::Recordset& rows, const std::function<void()>& fill) {
    rowsLeftOut_ = 0;
    std::string reason;
    {
        const TreeView::Fill deferred(window_.tvwTask);
        window_.tvwTask.Clear();
        try {
            fill();
        } catch (const RuntimeError& error) {
            reason = window_.session.Describe(error);
        }
    }
    window_.state.currentItemId = 0;
    window_.editor.ClearItemEditor();
    if (window_.tvwTask.Count() > 0) window_.tvwTask.Select(window_.tvwTask.First());
    rows.Close();
    if (!reason.empty() || rowsLeftOut_ > 0) Tell(reason);
}

std::function<void()> ItemList::Remember() {
    return [this, condition = shownCondition_, order = shownOrder_] {
        shownCondition_ = condition;
        shownOrder_ = order;
    };
}

void ItemList::FillItems(store::Recordset& rows) {
    TreeView& tree = window_.tvwTask;
    for (int kind = 0; kind < kItemKinds; kind++) window_.chkType[kind].tag = "0";

    const int idColumn = rows.FieldIndex("fID");
    const int typeColumn = rows.FieldIndex("fType");
    const int timeColumn = rows.FieldIndex("taskTime");
    const int titleColumn = rows.FieldIndex("taskTitle");
    const int doneColumn = rows.FieldIndex("tDone");
    constexpr std::int32_t kNoKind = 99;
    std::int32_t lastKind = kNoKind;
    int group = TreeView::kNone;
    int groups = 0;
    std::string key;
    std::string text;

    const auto addGroup = [&](int kind, std::string_view image) {
        groups++;
        key = kGroupLetters[static_cast<std::size_t>(kind)];
        AppendNumber(key, groups);
        return tree.Add(TreeView::kNone, key, window_.chkType[kind].Caption(), image);
    };

    for (; !rows.Eof(); rows.MoveNext()) {
        const std::int32_t kind = rows.Field(typeColumn).ToInt32();
        const std::int32_t done = rows.Field(doneColumn).ToInt32();
        if (kind < 0 || kind >= kItemKinds || done < kNotDone || done > kInHand) {
            rowsLeftOut_++;
            continue;
        }
        text = "(";
        try {
            AppendDay(text, rows.Field(timeColumn));
        } catch (const RuntimeError&) {
            rowsLeftOut_++;
            continue;
        }
        text += ")\t";
        AppendText(text, rows.Field(titleColumn));

        if (kind != lastKind) {
            lastKind = kind;
            window_.chkType[kind].tag = "1";
            group = addGroup(kind, kGroupImage);
            tree.SetExpanded(group, true);
        }
        key = "Z";
        AppendText(key, rows.Field(idColumn));
        tree.Add(group, key, text, kItemImages[static_cast<std::size_t>(done)]);
    }
    for (int kind = 0; kind < kItemKinds; kind++) {
        if (window_.chkType[kind].Checked() && window_.chkType[kind].tag == "0") {
            addGroup(kind, kEmptyGroupImages[static_cast<std::size_t>(kind)]);
        }
    }
}

void ItemList::FillPlans(store::Recordset& rows) {
    TreeView& tree = window_.tvwTask;
    const int idColumn = rows.FieldIndex("fID");
    const int titleColumn = rows.FieldIndex("taskTitle");
    const int root =
        tree.Add(TreeView::kNone, kPlanRootKey, window_.chkEvent.Caption(), kPlanRootImage);
    tree.SetExpanded(root, true);
    std::string key;
    std::string title;
    for (; !rows.Eof(); rows.MoveNext()) {
        key = "Z";
        AppendText(key, rows.Field(idColumn));
        title.clear();
        AppendText(title, rows.Field(titleColumn));
        tree.Add(root, key, title, kPlanImage);
    }
}

void ItemList::Empty() {
    window_.tvwTask.Clear();
    window_.state.currentItemId = 0;
    window_.editor.ClearItemEditor();
}

bool ItemList::Shows(const SavedItem& item) const {
    const TreeView& tree = window_.tvwTask;
    // The numbers of plans are not those of items.
    if (window_.chkEvent.Checked()) return false;
    if (item.id != 0) return tree.Find("Z" + std::to_string(item.id)) != TreeView::kNone;
    const std::string text = "(" + item.date.IsoDate() + ")\t" + item.title;
    for (int group = tree.FirstRoot(); group != TreeView::kNone; group = tree.NextSibling(group)) {
        if (!tree.Key(group).starts_with(kGroupLetters.at(item.kind))) continue;
        for (int node = tree.FirstChild(group); node != TreeView::kNone;
             node = tree.NextSibling(node)) {
            if (tree.Text(node) == text) return true;
        }
    }
    return false;
}

void ItemList::Tell(const std::string& reason) {
    const std::string heading = window_.captions.Text(resources::DesignText::RowsNotShown);
    std::string message = heading;
    if (rowsLeftOut_ > 0) message += ": " + std::to_string(rowsLeftOut_);
    if (!reason.empty()) message += "\r\n" + reason;
    window_.session.windows.ShowMessage({message, heading}, forms::box::kExclamation);
}

}  // namespace zv::mainwindow
