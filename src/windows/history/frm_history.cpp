#include "windows/history/frm_history.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/number.h"
#include "forms/layout/row.h"
#include "resources/change_texts.h"
#include "resources/text_ids.h"
#include "session/key_list.h"
#include "windows/history/history_words.h"

namespace zv::windows {
namespace {

using forms::layout::Metrics;
using forms::layout::dialog::kGap;
using forms::layout::dialog::kMargin;
using forms::layout::dialog::kRowGap;
using resources::ChangeText;
using resources::KeyText;

constexpr forms::Size kStartSize{720, 420};
constexpr forms::Size kSmallestSize{520, 260};
constexpr std::size_t kMostDeletions = 1000;
/// Hidden: the place of a deletion, by which it is found when the user has sorted the rows.
constexpr int kPlaceColumn = 5;

std::string ShownTime(DateTime when) {
    return when.IsoDate() + " " + when.HourAndMinute();
}

}  // namespace

frmHistory::frmHistory(forms::WindowSystem& windows, Session& session, Subject subject,
                       std::function<bool()> mayRestore)
    : Form(windows, std::string(kName)),
      session_(session),
      subject_(std::move(subject)),
      mayRestore_(std::move(mayRestore)) {
    SetSizable(true);
    SetMinimumClientSize(kSmallestSize);
    SetClientSize(kStartSize);
    // It holds what somebody typed.
    lblSubject.SetUseMnemonic(false);
    chkDeleted.onClick = [this] {
        if (IsLoaded()) Fill();
    };
    grdHistory.onSelect = [this] { EnableRestore(); };
    cmdRestore.onClick = [this] { cmdRestore_Click(); };
    cmdClose.onClick = [this] { Unload(); };
    cancelButton = &cmdClose;
    static constexpr forms::KeyChord kAll{'A', true};
    static constexpr forms::KeyChord kReadAgain{forms::key::kF5};
    static constexpr forms::KeyChord kThisList{forms::key::kF1};
    shortcuts.Do(kAll, [this] {
        grdHistory.SelectAll();
        EnableRestore();
    });
    shortcuts.Do(kReadAgain, [this] { Fill(); });
    shortcuts.Do(kThisList, [this] {
        ShowKeyList(session_, {{{kAll}, KeyText::SelectAll},
                               {{kReadAgain}, KeyText::ReadAgain},
                               {{{forms::key::kEscape}}, KeyText::Leave},
                               {{kThisList}, KeyText::ThisList}});
    });
}

void frmHistory::Form_Load() {
    SetCaptions();
    Center();
    PlaceControls();
    chkDeleted.SetValue(subject_.row == 0 ? 1 : 0);
    chkDeleted.SetEnabled(subject_.row != 0);
    Fill();
}

void frmHistory::SetCaptions() {
    const auto text = [this](auto id) { return session_.LoadText(id); };
    SetCaption(text(ChangeText::HistoryCaption));
    chkDeleted.SetCaption(text(ChangeText::Deletions));
    cmdRestore.SetCaption(text(ChangeText::ButtonRestore));
    cmdClose.SetCaption(text(ChangeText::ButtonClose));
    chkDeleted.SetAccessKey('D');
    cmdRestore.SetAccessKey('R');
    cmdClose.SetAccessKey('X');
    grdHistory.SetAccessibleName(Caption());
}

void frmHistory::PlaceControls() {
    const Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const forms::Size client = ClientSize();
    const int width = client.width - 2 * kMargin;
    const int buttons = client.height - kMargin - m.Button();
    lblSubject.Move({kMargin, kMargin, width, m.Line()});
    const int list = kMargin + m.Line() + kRowGap;
    grdHistory.Move({kMargin, list, width, std::max(buttons - kRowGap - list, m.Line())});
    const int left =
        forms::layout::PlaceFromRight(m, kMargin + width, buttons, {&cmdClose, &cmdRestore});
    const int box =
        std::min(m.BoxWidth(chkDeleted.Marked(chkDeleted.Caption())), left - kMargin - kGap);
    chkDeleted.Move({kMargin, buttons + (m.Button() - m.Field()) / 2, box, m.Field()});
}

void frmHistory::Fill() {
    if (chkDeleted.Checked())
        FillWithDeletions();
    else
        FillWithChanges();
    EnableRestore();
}

void frmHistory::FillWithChanges() {
    const std::int16_t language = session_.state.Language;
    const auto text = [this](auto id) { return session_.LoadText(id); };
    lblSubject.SetCaption("[" + subject_.title + "]");
    deleted_.clear();
    grdHistory.SetColumns({{text(ChangeText::ColumnWhen), 130},
                           {text(ChangeText::ColumnWho), 80},
                           {text(ChangeText::ColumnAct), 70},
                           {text(ChangeText::ColumnField), 90},
                           {text(ChangeText::ColumnBefore), 140},
                           {text(ChangeText::ColumnAfter), 140}});
    std::vector<Texts> rows;
    for (const changes::Record& record :
         changes::History(session_.database).Of(*subject_.table, subject_.row)) {
        rows.push_back({ShownTime(record.when), record.who, ActName(record.act, language),
                        FieldName(record, language), ShownValue(record, record.before, language),
                        ShownValue(record, record.after, language)});
    }
    SetRows(rows);
}

void frmHistory::FillWithDeletions() {
    const std::int16_t language = session_.state.Language;
    const auto text = [this](auto id) { return session_.LoadText(id); };
    lblSubject.SetCaption(text(ChangeText::Deletions));
    deleted_.clear();
    grdHistory.SetColumns({{text(ChangeText::ColumnWhen), 130},
                           {text(ChangeText::ColumnWho), 80},
                           {text(resources::DesignText::Kind), 80},
                           {text(text_id::kTitle), 300},
                           {"", 0, false}});
    std::vector<Texts> rows;
    std::set<std::pair<const changes::Table*, std::int32_t>> listed;
    for (const changes::Record& record :
         changes::History(session_.database).Deletions(kMostDeletions)) {
        changes::RowChange deleted = Deleted(record);
        // What was deleted more than once comes back as it was the last time.
        if (!deleted.table || !listed.emplace(deleted.table, deleted.row).second) continue;
        rows.push_back({ShownTime(record.when), record.who, KindOf(deleted, language),
                        TitleOf(deleted), std::to_string(deleted_.size())});
        deleted_.push_back(std::move(deleted));
    }
    SetRows(rows);
}

void frmHistory::SetRows(const std::vector<Texts>& rows) {
    grdHistory.SetDataRowCount(0);
    forms::Grid::Filling filling(grdHistory);
    for (const Texts& row : rows) {
        const std::vector<std::string_view> texts(row.begin(), row.end());
        filling.Append(texts);
    }
}

void frmHistory::EnableRestore() {
    cmdRestore.SetEnabled(chkDeleted.Checked() && grdHistory.SelectedCount() > 0);
}

void frmHistory::cmdRestore_Click() {
    std::vector<changes::RowChange> wanted;
    for (int row = 1; row <= grdHistory.DataRowCount(); row++) {
        if (!grdHistory.IsSelected(row)) continue;
        const auto place =
            static_cast<std::size_t>(number::ToInt32(grdHistory.Cell(row, kPlaceColumn)));
        wanted.push_back(deleted_.at(place));
    }
    if (wanted.empty() || !mayRestore_() || !IsLoaded()) return;
    session_.acts.Restore(wanted);
    if (IsLoaded()) Fill();
}

void ShowHistory(Session& session, frmHistory::Subject subject, std::function<bool()> mayRestore) {
    if (!session.acts.KeepsHistory()) {
        session.windows.ShowMessage(session.LoadText(ChangeText::NoHistory),
                                    forms::box::kInformation);
        return;
    }
    if (forms::Form* open = session.windows.Find(frmHistory::kName)) open->Unload();
    session.windows.Open<frmHistory>(
        true, [](frmHistory&) {}, session, std::move(subject), std::move(mayRestore));
}

}  // namespace zv::windows
