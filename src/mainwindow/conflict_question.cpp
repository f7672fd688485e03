#include "mainwindow/conflict_question.h"

#include <algorithm>

#include "mainwindow/frm_task_main.h"
#include "resources/text_ids.h"

namespace zv::mainwindow {
namespace {

using store::RowValues;

bool IsVisit(const RowValues& row) {
    return row[ItemFieldIndex("fType")].ToInt32() == kGuest;
}

}  // namespace

std::optional<store::RowMerge::Version> ConflictQuestion::Ask(
    const std::vector<std::size_t>& fields) const {
    std::vector<ConflictLine> lines;
    for (const std::size_t field : fields) {
        const std::string_view name = kItemFields[field];
        ConflictLine line{Caption(name), Shown(name, stored_), Shown(name, own_)};
        // The ends of the alert window mostly say what the date says.
        const bool said = std::any_of(lines.begin(), lines.end(), [&line](const auto& other) {
            return line.stored == other.stored && line.own == other.own;
        });
        if (!said || !name.starts_with("tDuring")) lines.push_back(std::move(line));
    }
    return AskForVersion(window_.session, lines);
}

std::string ConflictQuestion::Caption(std::string_view field) const {
    if (field == "TaskID") {
        return IsVisit(stored_) || IsVisit(own_) ? window_.lblList2[8].Caption()
                                                 : window_.chkEvent.Caption();
    }
    if (const forms::Label* label = window_.labels.Of(field)) return label->Caption();
    return window_.session.LoadText(text_id::kAlertRange);
}

std::string ConflictQuestion::Shown(std::string_view field, const RowValues& row) const {
    const store::Value& value = row[ItemFieldIndex(field)];
    if (field == "fType" || field == "tDone") {
        const forms::ComboBox& list = field == "fType" ? window_.cboType2 : window_.cboDone2;
        const std::int32_t position = value.ToInt32();
        if (position >= 0 && position < list.ListCount()) return list.List(position);
    }
    if (field == "TaskID" && IsVisit(row)) return CardText(value.ToInt32());
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

}  // namespace zv::mainwindow
