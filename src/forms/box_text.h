// What a box says, and which parts of it are only inserted.
#pragma once

#include <string>
#include <string_view>

namespace zv::forms {

/// A name, a number or a reason inside the text of a box.
struct Inserted {
    std::string text;
};

/// Two boxes are of one kind when their texts differ in nothing but what is inserted. A plain text
/// has nothing inserted.
class BoxText {
 public:
    BoxText(std::string text) : text_(std::move(text)), kind_(text_) {}
    BoxText(const char* text) : BoxText(std::string(text)) {}
    BoxText(Inserted inserted) : text_(std::move(inserted.text)), kind_(1, kPlace) {}
    /// A text whose parts were put together elsewhere, and what is the same in all of its kind.
    BoxText(std::string text, std::string kind) : text_(std::move(text)), kind_(std::move(kind)) {}

    BoxText& operator+=(std::string_view fixed) {
        text_ += fixed;
        kind_ += fixed;
        return *this;
    }
    BoxText& operator+=(const Inserted& inserted) {
        text_ += inserted.text;
        kind_ += kPlace;
        return *this;
    }

    const std::string& Text() const { return text_; }
    const std::string& Kind() const { return kind_; }

 private:
    /// Stands in a kind for whatever is inserted; no text that a user reads holds it.
    static constexpr char kPlace = '\x01';

    std::string text_;
    std::string kind_;
};

inline BoxText operator+(BoxText left, std::string_view fixed) {
    left += fixed;
    return left;
}
inline BoxText operator+(BoxText left, const Inserted& inserted) {
    left += inserted;
    return left;
}

}  // namespace zv::forms
