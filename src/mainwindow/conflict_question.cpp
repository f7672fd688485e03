#include "mainwindow/conflict_question.h"

#include <algorithm>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "resources/item_texts.h"
#include "resources/text_ids.h"

namespace zv::mainwindow {
namespace {

using resources::ItemText;
using store::Value;

constexpr std::size_t kMostCharacters = 60;
/// How much of what is alike is shown before the difference.
constexpr std::size_t kLead = 10;
constexpr std::string_view kLeftOut = "...";

std::size_t AlikeCharacters(std::string_view one, std::string_view other) {
    std::size_t first = 0;
    std::size_t second = 0;
    while (first < one.size() && second < other.size()) {
        const std::size_t before = first;
        if (text::NextCodePoint(one, first) != text::NextCodePoint(other, second)) {
            return text::Length(one.substr(0, before));
        }
    }
    return text::Length(one.substr(0, first));
}

std::string ExcerptFrom(std::string_view whole, std::size_t skipped) {
    std::string part = text::Mid(whole, skipped + 1);
    if (text::Length(part) > kMostCharacters) {
        part = text::Left(part, kMostCharacters).append(kLeftOut);
    }
    return skipped > 0 ? std::string(kLeftOut) + part : part;
}

}  // namespace

std::pair<std::string, std::string> Excerpts(std::string_view one, std::string_view other) {
    const std::size_t longer = std::max(text::Length(one), text::Length(other));
    const std::size_t alike = longer > kMostCharacters ? AlikeCharacters(one, other) : 0;
    const std::size_t skipped = alike > kMostCharacters / 2 ? alike - kLead : 0;
    return {ExcerptFrom(one, skipped), ExcerptFrom(other, skipped)};
}

bool ConflictQuestion::MayOverwrite(const std::vector<std::size_t>& fields) const {
    const auto text = [this](ItemText id) {
        return resources::GetItemText(id, window_.session.state.Language);
    };
    std::string question = text(ItemText::ChangedByOthers) + "\r\n";
    for (const std::size_t field : fields) question += "\r\n" + Line(field);
    question += "\r\n\r\n" + text(ItemText::OverwriteQuestion);
    return window_.session.windows.ShowMessage(
               question, forms::box::kYesNo + forms::box::kQuestion) == forms::Answer::Yes;
}

std::string ConflictQuestion::Line(std::size_t field) const {
    const std::string_view name = kItemFields[field];
    const std::string stored = Shown(name, now_[field], IsVisitNow());
    const auto [now, own] = Excerpts(stored, Shown(name, *own_[field], IsVisitInEditor()));
    const auto word = [this](ItemText id) {
        return resources::GetItemText(id, window_.session.state.Language);
    };
    return Caption(name) + ": " + word(ItemText::StoredNow) + " [" + now + "], " +
           word(ItemText::YourInput) + " [" + own + "]";
}

std::string ConflictQuestion::Caption(std::string_view field) const {
    if (field == "TaskID") {
        return IsVisitNow() || IsVisitInEditor() ? window_.lblList2[8].Caption()
                                                 : window_.chkEvent.Caption();
    }
    if (const forms::Label* label = window_.labels.Of(field)) return label->Caption();
    return window_.session.LoadText(text_id::kAlertRange);
}

std::string ConflictQuestion::Shown(std::string_view field, const Value& value, bool visit) const {
    if (field == "fType" || field == "tDone") {
        const forms::ComboBox& list = field == "fType" ? window_.cboType2 : window_.cboDone2;
        const std::int32_t row = value.ToInt32();
        if (row >= 0 && row < list.ListCount()) return list.List(row);
    }
    if (field == "TaskID" && visit) return CardText(value.ToInt32());
    return value.ToText();
}

std::string ConflictQuestion::CardText(std::int32_t card) const {
    const std::string number = std::to_string(card);
    if (card < 1) return number;
    const auto row =
        window_.session.database.Open("select compname from cards where fID=" + number);
    const std::string company = row->Eof() ? std::string() : row->Field("compname").ToText();
    row->Close();
    return company.empty() ? number : company + " (" + number + ")";
}

bool ConflictQuestion::IsVisitNow() const {
    return now_[ItemFieldIndex("fType")].ToInt32() == kGuest;
}

bool ConflictQuestion::IsVisitInEditor() const {
    return window_.cboType2.ListIndex() == kGuest;
}

}  // namespace zv::mainwindow
