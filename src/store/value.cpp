#include "store/value.h"

#include <charconv>

#include "base/errors.h"
#include "base/number.h"

namespace zv::store {
namespace {

template <class... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

std::string RealText(double number) {
    char buffer[40];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    return error == std::errc() ? std::string(buffer, end) : std::string();
}

}  // namespace

std::string Value::ToText() const {
    return std::visit(Overloaded{[](std::monostate) { return std::string(); },
                                 [](std::int64_t number) { return std::to_string(number); },
                                 [](double number) { return RealText(number); },
                                 [](const std::string& text) { return text; },
                                 [](DateTime date) { return date.IsoDateTime(); }},
                      data_);
}

double Value::ToDouble() const {
    return std::visit(Overloaded{[](std::monostate) { return 0.0; },
                                 [](std::int64_t number) { return static_cast<double>(number); },
                                 [](double number) { return number; },
                                 [](const std::string& text) { return number::ToDouble(text); },
                                 [](DateTime date) { return date.ToAutomation(); }},
                      data_);
}

std::int32_t Value::ToInt32() const {
    return number::ToInt32(ToDouble());
}
std::int16_t Value::ToInt16() const {
    return number::ToInt16(ToDouble());
}

DateTime Value::ToDate() const {
    if (const auto* date = std::get_if<DateTime>(&data_)) return *date;
    if (const auto* text = TextIf()) {
        if (const auto date = DateTime::Parse(*text)) return *date;
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    if (IsNull()) throw RuntimeError(ErrorNumber::TypeMismatch);
    const auto date = DateTime::InCalendar(ToDouble());
    if (!date) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *date;
}

}  // namespace zv::store
