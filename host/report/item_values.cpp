#include "report/item_values.h"

#include <optional>

#include "base/text.h"
#include "report/report_texts.h"

namespace zv::report {
namespace {

std::optional<ReportText> KindName(std::string_view number) {
    if (number == "0") return ReportText::KindTask;
    if (number == "1") return ReportText::KindGuest;
    if (number == "2") return ReportText::KindDiary;
    return std::nullopt;
}

std::optional<ReportText> StateName(std::string_view number) {
    if (number == "0") return ReportText::StateNotDone;
    if (number == "1") return ReportText::StateDone;
    if (number == "2") return ReportText::StateInHand;
    return std::nullopt;
}

std::string DateText(const DateTime& date) {
    constexpr std::size_t kWithMinutes = 16;
    if (date == date.Date()) return date.IsoDate();
    return date.IsoDateTime().substr(0, kWithMinutes);
}

}  // namespace

std::string PrintedValue(std::string_view field, const store::Value& value, std::int16_t language) {
    if (const auto* date = std::get_if<DateTime>(&value.Data())) return DateText(*date);
    std::string text = value.ToText();
    std::optional<ReportText> name;
    if (text::EqualsIgnoreCase(field, "fType")) name = KindName(text);
    if (text::EqualsIgnoreCase(field, "tDone")) name = StateName(text);
    return name ? GetReportText(*name, language) : text;
}

}  // namespace zv::report
