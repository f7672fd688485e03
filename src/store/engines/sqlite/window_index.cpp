#include "store/engines/sqlite/window_index.h"

#include <array>
#include <charconv>
#include <cstdio>

#include "base/text.h"

namespace zv::store::engines::sqlite {
namespace {

// Days are counted as year * 800 + month * 40 + day. That number grows with the text of every date
// that has the pattern below, be it in the calendar or not, which makes the ranges exact for
// whatever a client may have written.
constexpr int kYear = 800;
constexpr int kMonth = 40;
constexpr std::string_view kPattern = "[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]*";

// Widths below this have a class each; from there on a class spans a power of two.
constexpr int kNarrow = 16;
constexpr int kWidest = 1 << 23;
// Windows of any width: bounds that are not texts of the pattern.
constexpr int kOpenClass = 99;

constexpr std::array<std::string_view, 8> kColumns{"fid",   "ftype",  "tasktime", "tasktitle",
                                                   "tdone", "taskid", "tduring1", "tduring2"};

std::string DayText(int day) {
    if (day < 0) return "''";
    char text[40];
    std::snprintf(text, sizeof text, "'%04d-%02d-%02d'", day / kYear, day % kYear / kMonth,
                  day % kMonth);
    return text;
}

int Digits(std::string_view text) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string Squeeze(std::string_view statement) {
    std::string result = text::ToLower(statement);
    std::erase_if(result, [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; });
    return result;
}

}  // namespace

std::string WindowClass(std::string_view alias) {
    const std::string start = std::string(alias) + "tDuring1";
    const std::string end = std::string(alias) + "tDuring2";
    const auto difference = [&](const char* place) {
        return "(substr(" + end + place + ")-substr(" + start + place + "))";
    };
    const std::string width = difference(",1,4") + "*" + std::to_string(kYear) + "+" +
                              difference(",6,2") + "*" + std::to_string(kMonth) + "+" +
                              difference(",9,2");
    const std::string pattern = " not glob '" + std::string(kPattern) + "'";
    std::string sql = "case when " + start + " is null or " + end + " is null then null when " +
                      start + pattern + " or " + end + pattern + " or typeof(" + end +
                      ")='blob' then " + std::to_string(kOpenClass);
    sql += " when " + width + "<" + std::to_string(kNarrow) + " then max(0," + width + ")";
    int windowClass = kNarrow;
    for (int limit = 2 * kNarrow; limit <= kWidest; limit *= 2) {
        sql += " when " + width + "<" + std::to_string(limit) + " then " +
               std::to_string(windowClass++);
    }
    return sql + " end";
}

std::string WindowIndexStatement() {
    return "create index " + std::string(kWindowIndex) + " on " + std::string(kWindowTable) + "(" +
           WindowClass("") + ",tDuring1,tDuring2,tDone,fType,taskTime,taskTitle,TaskID)";
}

std::set<std::string, std::less<>> WindowIndexColumns() {
    return {kColumns.begin(), kColumns.end()};
}

std::vector<WindowClassRange> WindowRanges(std::string_view firstDay) {
    const int day = Digits(firstDay.substr(0, 4)) * kYear + Digits(firstDay.substr(5, 2)) * kMonth +
                    Digits(firstDay.substr(8, 2));
    std::vector<WindowClassRange> ranges;
    ranges.reserve(kNarrow);
    for (int width = 0; width < kNarrow; width++) ranges.push_back({width, DayText(day - width)});
    int windowClass = kNarrow;
    for (int limit = 2 * kNarrow; limit <= kWidest; limit *= 2) {
        ranges.push_back({windowClass++, DayText(day - limit + 1)});
    }
    // Less than every number and text.
    ranges.push_back({kOpenClass, "-9e999"});
    return ranges;
}

bool SameStatement(std::string_view a, std::string_view b) {
    return Squeeze(a) == Squeeze(b);
}

}  // namespace zv::store::engines::sqlite
