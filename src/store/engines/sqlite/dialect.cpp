// The embedded engine: dates are texts in stored form, a condition is a number, and operands of
// any kind meet.
#include <cstdint>
#include <utility>

#include "base/date_time.h"
#include "base/text.h"
#include "store/dialect/target.h"
#include "store/engines/parts.h"
#include "store/engines/sqlite/window_index.h"

namespace zv::store::engines::sqlite {
namespace {

using namespace dialect;

constexpr const char* kClassesAlias = "zv_window";

struct Place {
    int begin;
    int length;
};

Place PlaceOf(DateField field) {
    switch (field) {
        case DateField::Year:
            return {1, 4};
        case DateField::Month:
            return {6, 2};
        case DateField::Day:
            return {9, 2};
        case DateField::Hour:
            return {12, 2};
        case DateField::Minute:
            return {15, 2};
        default:
            return {18, 2};
    }
}

// Stored dates have fixed places for their parts, so cutting them out is exact and far cheaper than
// the engine's date functions.
std::string Cut(const Expression& date, DateField field) {
    const auto [begin, length] = PlaceOf(field);
    return "substr(" + date.sql + "," + std::to_string(begin) + "," + std::to_string(length) + ")";
}

/// Columns bring their collation along; computed texts have none of their own.
bool NeedsCollation(const Expression& a, const Expression& b) {
    return a.kind == ColumnKind::Text && b.kind == ColumnKind::Text && a.column.empty() &&
           b.column.empty();
}

class SqliteTarget : public Target {
 public:
    const char* Engine() const override { return "SQLite"; }
    std::string Name(const std::string& name) const override { return QuoteName(name); }
    std::string DateLiteral(const std::string& stored) const override { return QuoteText(stored); }

    void FoldCase(Expression& value) const override {
        if (value.kind != ColumnKind::Text || !value.column.empty() || value.foldsCase) return;
        value.sql = At(value, Level::Primary) + " collate nocase";
        value.level = Level::Primary;
        value.foldsCase = true;
    }
    Expression Compare(const Expression& left, std::string_view op,
                       const Expression& right) const override {
        Expression result = Target::Compare(left, op, right);
        if (NeedsCollation(left, right)) {
            result.sql = At(left, Level::Add) + std::string(op) + At(right, Level::Primary) +
                         " collate nocase";
        }
        return result;
    }
    std::string Like(Expression left, Expression pattern, bool negated) const override {
        return At(left, Level::Add) + (negated ? " not like " : " like ") + At(pattern, Level::Add);
    }
    Expression Concatenate(Expression left, Expression right) const override {
        return Combine(left, "||", right, Level::Join, Level::Join, ColumnKind::Text);
    }
    std::string SortTerm(Expression term, bool descending, bool) const override {
        return descending ? term.sql + " desc" : term.sql;
    }
    bool NumbersRows() const override { return true; }

    std::string Part(const Expression& date, DateField field) const override {
        return "cast(" + Cut(date, field) + " as integer)";
    }
    std::string Weekday(const Expression& date) const override {
        return "(cast(strftime('%w'," + date.sql + ") as integer)+1)";
    }
    std::string FormatDate(const Expression& date,
                           const std::vector<FormatPiece>& pieces) const override {
        std::string sql;
        for (const FormatPiece& piece : pieces) {
            sql += sql.empty() ? "(" : "||";
            sql += piece.isField ? Cut(date, piece.field) : QuoteText(piece.text);
        }
        return sql + ")";
    }
    std::string PadNumber(const Expression& number, std::size_t digits) const override {
        return "printf('%0" + std::to_string(digits) + "d'," + number.sql + ")";
    }
    std::string Left(const Expression& text, const Expression& length) const override {
        return "substr(" + text.sql + ",1,max(0," + length.sql + "))";
    }
    // A name of a function that the engine's grammar does not accept; a length of 0 gives no text.
    std::string Right(const Expression& text, const Expression& length) const override {
        const std::string count = "max(0," + length.sql + ")";
        return "substr(" + text.sql + ",-" + count + "," + count + ")";
    }
    std::string Position(const Expression& text, const Expression& part) const override {
        return "instr(lower(" + text.sql + "),lower(" + part.sql + "))";
    }
    std::string ToText(const Expression& value) const override {
        return "cast(" + value.sql + " as text)";
    }
    std::string ToWhole(const Expression& value) const override {
        return "cast(round(" + value.sql + ") as integer)";
    }
    std::string ToReal(const Expression& value) const override {
        return "cast(" + value.sql + " as real)";
    }
    std::string LeadingNumber(const Expression& value) const override { return ToReal(value); }
    std::string ToDate(const Expression& value) const override {
        return "datetime(" + value.sql + ")";
    }
    std::string Round(const std::vector<Expression>& arguments) const override {
        return Call("round", arguments);
    }
    std::string Average(const Expression& value) const override { return Call("avg", {value}); }
    std::string Choose(const std::vector<Expression>& arguments) const override {
        return Call("iif", arguments);
    }
    std::string OrElse(const std::vector<Expression>& arguments) const override {
        return Call("ifnull", arguments);
    }
    std::string Now() const override { return "datetime('now','localtime')"; }
    std::string Today() const override { return "datetime('now','localtime','start of day')"; }

    WindowSearch SearchWindows(const std::string& alias, const std::string& first,
                               const std::string&) const override {
        std::string values;
        for (const WindowClassRange& range : WindowRanges(first)) {
            values += (values.empty() ? "(" : ",(") + std::to_string(range.windowClass) + "," +
                      range.start + ")";
        }
        return {"(values" + values + ") as " + kClassesAlias + " cross join ",
                " indexed by " + std::string(kWindowIndex) + " on " + WindowClass(alias) + "=" +
                    kClassesAlias + ".column1 and " + alias + "tDuring1>=" + kClassesAlias +
                    ".column2",
                {}};
    }
};

// Outside of any literal, "[...]" is a name and nothing else.
class SqliteOverOdbcTarget final : public SqliteTarget {
 public:
    std::string Name(const std::string& name) const override {
        return text::Contains(name, "]") ? QuoteName(name) : '[' + name + ']';
    }

    std::string TextLiteral(const std::string& text) const override {
        std::string codes;
        bool basic = true;
        for (std::size_t at = 0; at < text.size();) {
            const char32_t character = text::NextCodePoint(text, at);
            basic = basic && character <= kLastOfBasicPlane;
            codes += (codes.empty() ? "" : ",") + std::to_string(std::uint32_t{character});
        }
        return basic ? QuoteText(text) : "char(" + codes + ")";
    }

 private:
    static constexpr char32_t kLastOfBasicPlane = 0xFFFF;
};

}  // namespace

const Target* TheDialect() {
    static const SqliteTarget target;
    return &target;
}

const Target* TheDriverDialect() {
    static const SqliteOverOdbcTarget target;
    return &target;
}

}  // namespace zv::store::engines::sqlite
