#include "zvdb/access/access_value.h"

#include <bit>
#include <cmath>
#include <optional>

#include "zvdb/access/access_text.h"
#include "zvdb/access/long_value.h"

namespace zv::zvdb::access {
namespace {

constexpr double kSecondsPerDay = 86400;
// The first day that Access knows, 0100-01-01, and the one behind its last.
constexpr double kFirstDay = -657434;
constexpr double kEndDay = 2958466;
// A time of day has about ten decimals of a day; what differs by more has parts of a second.
constexpr double kSameSecond = 0.001;

class FieldDecoder {
 public:
    FieldDecoder(MdbFile& file, const AccessColumn& column, CellRemark& remark)
        : file_(file), column_(column), remark_(remark) {}

    store::Value Decode(Bytes field) {
        switch (column_.type) {
            case FieldType::Boolean:
                return std::int64_t{field.Size() > 0};
            case FieldType::Byte:
                return std::int64_t{field.U8(0)};
            case FieldType::Integer:
                return std::int64_t{static_cast<std::int16_t>(field.U16(0))};
            case FieldType::Long:
                return std::int64_t{static_cast<std::int32_t>(field.U32(0))};
            case FieldType::Money:
                return Scaled(static_cast<double>(static_cast<std::int64_t>(field.U64(0))), 4);
            case FieldType::Single:
                return static_cast<double>(std::bit_cast<float>(field.U32(0)));
            case FieldType::Double:
                return std::bit_cast<double>(field.U64(0));
            case FieldType::Date:
                return Date(std::bit_cast<double>(field.U64(0)));
            case FieldType::Text:
                return Text(field);
            case FieldType::Memo: {
                // A memo without a head is an empty one.
                if (field.Size() == 0) return "";
                const auto bytes = ReadLongValue(file_, field);
                return Text(Bytes(bytes.data(), bytes.size()));
            }
            case FieldType::Decimal:
                return Decimal(field);
            case FieldType::Binary:
            case FieldType::Object:
            case FieldType::Guid:
            case FieldType::Complex:
                break;
        }
        return Lost("binary values are not copied");
    }

    store::Value Lost(std::string why) {
        remark_.lost = true;
        remark_.text = std::move(why);
        return {};
    }

 private:
    static store::Value Scaled(double number, std::size_t digits) {
        const double value = number / std::pow(10.0, static_cast<double>(digits));
        const double whole = std::trunc(value);
        if (whole == value && std::abs(value) < 9e15) return static_cast<std::int64_t>(value);
        return value;
    }

    /// The sign, then four groups of four bytes, the highest group first.
    store::Value Decimal(Bytes field) const {
        double number = 0;
        for (std::size_t group = 1; group < 17; group += 4) {
            number = number * 4294967296.0 + static_cast<double>(field.U32(group));
        }
        return Scaled((field.U8(0) & 0x80) != 0 ? -number : number, column_.scale);
    }

    store::Value Date(double day) {
        if (!(day > kFirstDay - 1 && day < kEndDay)) return Lost("a date outside of the calendar");
        const double seconds = std::abs(day - std::trunc(day)) * kSecondsPerDay;
        const DateTime date = DateTime::FromAutomation(day);
        // Rounding can carry the last second of the calendar over its end.
        if (date >= DateTime(9999, 12, 31).AddDays(1)) {
            return Lost("a date outside of the calendar");
        }
        if (std::abs(seconds - std::round(seconds)) > kSameSecond) {
            remark_.text = "dates with parts of a second, rounded to whole ones";
        }
        return date;
    }

    store::Value Text(Bytes stored) {
        DecodedText decoded = DecodeText(stored);
        if (decoded.halves > 0) {
            remark_.text = "texts with halves of characters, written as U+FFFD";
        }
        return std::move(decoded.utf8);
    }

    MdbFile& file_;
    const AccessColumn& column_;
    CellRemark& remark_;
};

}  // namespace

bool DecodeField(MdbFile& file, const AccessRow& row, const AccessColumn& column,
                 store::Value& value, CellRemark& remark) {
    const std::optional<Bytes> field = row.Field(column);
    if (!field) {
        value = {};
        return false;
    }
    FieldDecoder decoder(file, column, remark);
    try {
        value = decoder.Decode(*field);
    } catch (const Damage& damage) {
        value = decoder.Lost(std::string("cannot be read: ") + damage.what());
    }
    return !remark.text.empty();
}

}  // namespace zv::zvdb::access
