#include "windows/query/ask_rows.h"

#include <algorithm>

#include "base/number.h"

namespace zv::windows {

namespace {

std::string_view TextOfNumber(const store::Value& value, const std::vector<std::string>& texts) {
    const auto number = number::Parse(value.ToText());
    if (!number) return {};
    for (std::size_t row = 0; row < texts.size(); row++) {
        if (*number == static_cast<double>(row)) return texts[row];
    }
    return {};
}

}  // namespace

std::vector<const items::Field*> AskFields() {
    std::vector<const items::Field*> fields = items::ListedFields();
    std::erase_if(fields, [](const items::Field* field) { return !field->queried; });
    return fields;
}

AskRows::AskRows(Session& session, const std::string& statement, AskTexts texts)
    : connection_(session.database.OpenAnother(session.Settings())),
      texts_(std::move(texts)),
      shown_(AskFields()) {
    rows_ = connection_->Open(statement, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
    for (const items::Field* field : shown_) fields_.push_back(rows_->FieldIndex(field->column));
    kept_.resize(shown_.size());
    row_.resize(shown_.size());
}

AskRows::~AskRows() {
    // A reader that came to the end, or stopped before it, has what there was to have.
    try {
        if (rows_) rows_->Close();
        connection_->Close();
    } catch (const std::exception&) {
    }
}

std::string_view AskRows::DayOf(const store::Value& value, std::string& kept) {
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
    switch (shown_[column]->kind) {
        case items::FieldKind::Date:
            return DayOf(value, kept_[column]);
        case items::FieldKind::ItemKind:
            return TextOfNumber(value, texts_.types);
        case items::FieldKind::State:
            return TextOfNumber(value, texts_.states);
        default:
            break;
    }
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

}  // namespace zv::windows
