#include "store/odbc/row_store.h"

#include <cstring>

namespace zv::store::odbc {
namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

}  // namespace

void RowStore::BeginRow() {
    if (blocks_.empty() || blocks_.back().bytes.size() >= kBlock) {
        blocks_.emplace_back();
        blocks_.back().bytes.reserve(kBlock + kBlock / 8);
    }
}

void RowStore::EndRow() {
    blocks_.back().rows++;
    left_++;
}

void RowStore::Append(const void* data, std::size_t size) {
    std::vector<char>& bytes = blocks_.back().bytes;
    const auto* first = static_cast<const char*>(data);
    bytes.insert(bytes.end(), first, first + size);
}

void RowStore::AddTag(Tag tag) {
    blocks_.back().bytes.push_back(static_cast<char>(tag));
}

void RowStore::AddText(std::string_view text) {
    AddPlain(Tag::Text, text.size());
    Append(text.data(), text.size());
}

void RowStore::AddText(const char16_t* text, std::size_t units) {
    AddTag(Tag::Text);
    std::vector<char>& bytes = blocks_.back().bytes;
    const std::size_t start = bytes.size();
    constexpr std::size_t kLength = sizeof(std::size_t);
    constexpr std::size_t kMostBytesAUnit = 3;
    bytes.resize(start + kLength + units * kMostBytesAUnit);
    char* const first = bytes.data() + start + kLength;
    char* to = first;
    for (std::size_t i = 0; i < units; i++) {
        char32_t c = text[i];
        if (c < 0x80) {
            *to++ = static_cast<char>(c);
            continue;
        }
        if (c < 0x800) {
            *to++ = static_cast<char>(0xC0 | (c >> 6));
            *to++ = static_cast<char>(0x80 | (c & 0x3F));
            continue;
        }
        if (c >= 0xD800 && c < 0xE000) {
            const bool pair =
                c < 0xDC00 && i + 1 < units && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
            if (pair) {
                c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
                *to++ = static_cast<char>(0xF0 | (c >> 18));
                *to++ = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
                *to++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
                *to++ = static_cast<char>(0x80 | (c & 0x3F));
                continue;
            }
            c = 0xFFFD;
        }
        *to++ = static_cast<char>(0xE0 | (c >> 12));
        *to++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        *to++ = static_cast<char>(0x80 | (c & 0x3F));
    }
    const auto length = static_cast<std::size_t>(to - first);
    std::memcpy(bytes.data() + start, &length, kLength);
    bytes.resize(start + kLength + length);
}

bool RowStore::Advance() {
    if (started_) {
        if (left_ == 0) return false;
        left_--;
        passedInBlock_++;
    }
    started_ = true;
    if (left_ == 0) {
        Clear();
        return false;
    }
    if (passedInBlock_ == blocks_.front().rows) {
        blocks_.pop_front();
        passedInBlock_ = 0;
        next_ = 0;
    }
    fields_.resize(static_cast<std::size_t>(columns_));
    const std::vector<char>& bytes = blocks_.front().bytes;
    for (std::size_t& field : fields_) {
        field = next_;
        const auto tag = static_cast<Tag>(bytes[next_++]);
        if (tag == Tag::Text) {
            std::size_t length = 0;
            std::memcpy(&length, bytes.data() + next_, sizeof length);
            next_ += sizeof length + length;
        } else if (tag != Tag::Null) {
            next_ += sizeof(std::int64_t);
        }
    }
    return true;
}

void RowStore::Read(int column, Value& value) const {
    const char* from = blocks_.front().bytes.data() + fields_[static_cast<std::size_t>(column)];
    const auto tag = static_cast<Tag>(*from++);
    std::int64_t number = 0;
    double real = 0;
    std::size_t length = 0;
    switch (tag) {
        case Tag::Null:
            value = Value();
            break;
        case Tag::Number:
            std::memcpy(&number, from, sizeof number);
            value = Value(number);
            break;
        case Tag::Real:
            std::memcpy(&real, from, sizeof real);
            value = Value(real);
            break;
        case Tag::Date:
            std::memcpy(&number, from, sizeof number);
            value = Value(DateTime(number));
            break;
        case Tag::Text:
            std::memcpy(&length, from, sizeof length);
            value.AssignText(std::string_view(from + sizeof length, length));
            break;
    }
}

void RowStore::Clear() {
    blocks_.clear();
    left_ = 0;
}

}  // namespace zv::store::odbc
