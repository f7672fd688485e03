// One field value of a database row.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/date_time.h"

namespace zv::store {

/// Null, a whole number, a real number, a text (UTF-8) or a date.
class Value {
 public:
    Value() = default;
    Value(std::int64_t number) : data_(number) {}
    Value(std::int32_t number) : data_(std::int64_t{number}) {}
    Value(std::int16_t number) : data_(std::int64_t{number}) {}
    Value(double number) : data_(number) {}
    Value(std::string text) : data_(std::move(text)) {}
    Value(std::string_view text) : data_(std::string(text)) {}
    Value(const char* text) : data_(std::string(text)) {}
    Value(DateTime date) : data_(date) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(data_); }

    /// Null is the empty text, a date its stored form "YYYY-MM-DD HH:MM:SS".
    std::string ToText() const;
    /// Null is 0. A text is read whole; throws error 13 when it is not a number, 6 when the number
    /// does not fit.
    std::int32_t ToInt32() const;
    std::int16_t ToInt16() const;
    double ToDouble() const;
    /// A text is read in its stored form, a number as an automation date; throws error 13 otherwise
    /// and for null.
    DateTime ToDate() const;

    const std::string* TextIf() const { return std::get_if<std::string>(&data_); }
    const std::variant<std::monostate, std::int64_t, double, std::string, DateTime>& Data() const {
        return data_;
    }

    /// Takes this text; keeps the memory of a text that was here before, which makes reading rows
    /// into the same values cheap.
    void AssignText(std::string_view text) {
        if (auto* present = std::get_if<std::string>(&data_)) {
            present->assign(text);
        } else {
            data_.emplace<std::string>(text);
        }
    }

    bool operator==(const Value&) const = default;

 private:
    std::variant<std::monostate, std::int64_t, double, std::string, DateTime> data_;
};

}  // namespace zv::store
