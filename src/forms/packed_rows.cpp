#include "forms/packed_rows.h"

#include <algorithm>
#include <cstring>

namespace zv::forms {
namespace {

constexpr std::size_t kMore = 0x80;

std::size_t BytesOfLength(std::size_t length) {
    std::size_t bytes = 1;
    for (; length >= kMore; length >>= 7) bytes++;
    return bytes;
}

char* PutLength(char* at, std::size_t length) {
    for (; length >= kMore; length >>= 7) *at++ = static_cast<char>((length & 0x7F) | kMore);
    *at++ = static_cast<char>(length);
    return at;
}

std::size_t TakeLength(const char*& at) {
    std::size_t length = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*at++);
        length |= static_cast<std::size_t>(byte & 0x7F) << shift;
        if (byte < kMore) return length;
    }
}

}  // namespace

PackedRows::Row PackedRows::Pack(std::span<const std::string_view> texts) {
    std::size_t bytes = 0;
    for (const std::string_view text : texts) bytes += BytesOfLength(text.size()) + text.size();
    Row row(new char[std::max<std::size_t>(bytes, 1)]);
    char* at = row.get();
    for (const std::string_view text : texts) at = PutLength(at, text.size());
    for (const std::string_view text : texts) {
        if (text.empty()) continue;
        std::memcpy(at, text.data(), text.size());
        at += text.size();
    }
    return row;
}

PackedRows PackedRows::Copy() const {
    PackedRows copy;
    copy.columns_ = columns_;
    copy.rows_.resize(rows_.size());
    for (std::size_t row = 0; row < rows_.size(); row++) {
        if (rows_[row]) copy.rows_[row] = Pack(Texts(row));
    }
    return copy;
}

std::string_view PackedRows::Get(std::size_t row, std::size_t column) const {
    const char* at = rows_[row].get();
    if (!at) return {};
    std::size_t before = 0;
    std::size_t length = 0;
    for (std::size_t i = 0; i < columns_; i++) {
        const std::size_t next = TakeLength(at);
        if (i < column) before += next;
        if (i == column) length = next;
    }
    return {at + before, length};
}

std::vector<std::string_view> PackedRows::Texts(std::size_t row) const {
    std::vector<std::string_view> texts(columns_);
    for (std::size_t column = 0; column < columns_; column++) texts[column] = Get(row, column);
    return texts;
}

void PackedRows::SetColumns(std::size_t columns) {
    for (std::size_t row = 0; row < rows_.size(); row++) {
        if (!rows_[row]) continue;
        std::vector<std::string_view> texts = Texts(row);
        texts.resize(columns);
        rows_[row] = Pack(texts);
    }
    columns_ = columns;
}

void PackedRows::Clear() {
    rows_.clear();
    rows_.shrink_to_fit();
}

void PackedRows::Append(std::span<const std::string_view> texts) {
    texts_.assign(columns_, {});
    std::copy_n(texts.begin(), std::min(texts.size(), columns_), texts_.begin());
    rows_.push_back(Pack(texts_));
}

void PackedRows::Set(std::size_t row, std::size_t column, std::string_view text) {
    std::vector<std::string_view> texts = Texts(row);
    texts[column] = text;
    rows_[row] = Pack(texts);
}

std::size_t PackedRows::MemoryBytes() const {
    std::size_t bytes = rows_.capacity() * sizeof(Row);
    for (std::size_t row = 0; row < rows_.size(); row++) {
        if (!rows_[row]) continue;
        for (const std::string_view text : Texts(row)) {
            bytes += BytesOfLength(text.size()) + text.size();
        }
    }
    return bytes;
}

void PackedRows::Permute(const std::vector<std::size_t>& order) {
    std::vector<Row> rows(order.size());
    for (std::size_t i = 0; i < order.size(); i++) rows[i] = std::move(rows_[order[i]]);
    rows_ = std::move(rows);
}

}  // namespace zv::forms
