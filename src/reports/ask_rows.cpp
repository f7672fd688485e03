#include "reports/ask_rows.h"

#include <algorithm>

#include "base/number.h"

namespace zv::reports {

const std::array<std::string_view, kAskColumns> kAskFields = {
    "taskTime", "taskTitle", "fContent", "tDoneMan", "fUser",   "fType",  "tDone",
    "fOther0",  "fOther1",   "fOther2",  "fOther3",  "fOther4", "fOther5"};

namespace {

constexpr std::size_t kDayColumn = 0;
constexpr std::size_t kTypeColumn = 5;
constexpr std::size_t kStateColumn = 6;

std::string_view TextOfNumber(const store::Value& value, const std::vector<std::string>& texts) {
    const auto number = number::Parse(value.ToText());
    if (!number) return {};
    for (std::size_t row = 0; row < texts.size(); row++) {
        if (*number == static_cast<double>(row)) return texts[row];
    }
    return {};
}

}  // namespace

AskRows::AskRows(Session& session, const std::string& statement, AskTexts texts)
    : connection_(session.OpenOwnConnection()), texts_(std::move(texts)) {
    rows_ = connection_->Open(statement, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
    for (std::size_t column = 0; column < kAskFields.size(); column++) {
        fields_[column] = rows_->FieldIndex(kAskFields[column]);
    }
}

AskRows::~AskRows() {
    // Whoever read to the end, or stopped before it, has what there was to have.
    try {
        if (rows_) rows_->Close();
        connection_->Close();
    } catch (const std::exception&) {
    }
}

std::string_view AskRows::DayOf(const store::Value& value, std::string& kept) const {
    constexpr std::size_t kDayLength = 10;
    if (value.IsNull()) return {};
    if (const std::string* text = value.TextIf()) {
        // What is no date is shown as it stands, so that it can be found and mended.
        const auto date = DateTime::Parse(*text);
        if (!date) return *text;
        const bool stored = text->size() > kDayLength && (*text)[4] == '-' && (*text)[7] == '-';
        if (stored) return std::string_view(*text).substr(0, kDayLength);
        kept = date->IsoDate();
        return kept;
    }
    kept = value.ToDate().IsoDate();
    return kept;
}

std::string_view AskRows::TextOf(std::size_t column) {
    const store::Value& value = rows_->Field(fields_[column]);
    if (column == kDayColumn) return DayOf(value, kept_[column]);
    if (column == kTypeColumn) return TextOfNumber(value, texts_.types);
    if (column == kStateColumn) return TextOfNumber(value, texts_.states);
    if (const std::string* text = value.TextIf()) return *text;
    kept_[column] = value.ToText();
    return kept_[column];
}

void AskRows::TakeRow() {
    for (std::size_t column = 0; column < row_.size(); column++) row_[column] = TextOf(column);
}

bool AskRows::Fill(forms::Grid& grid, int most) {
    forms::Grid::Filling filling(grid);
    for (int count = 0; count < most && !rows_->Eof(); count++, rows_->MoveNext()) {
        TakeRow();
        filling.Append(row_);
    }
    return !rows_->Eof();
}

}  // namespace zv::reports
