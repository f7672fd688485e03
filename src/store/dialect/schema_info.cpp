#include "store/dialect/schema_info.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace zv::store::dialect {
namespace {

constexpr std::array<std::string_view, 6> kDateColumns{"tbegin",   "tend",     "tasktime",
                                                       "tduring1", "tduring2", "birthday"};

}  // namespace

bool WindowIndex::Holds(std::string_view column) const {
    return columns.contains(text::ToLower(column));
}

ColumnKind KindOfType(std::string_view declaredType) {
    const std::string type = text::ToLower(declaredType);
    const auto holds = [&](std::string_view part) { return text::Contains(type, part); };
    if (holds("date") || holds("time")) return ColumnKind::Date;
    if (holds("char") || holds("text") || holds("clob") || holds("memo")) return ColumnKind::Text;
    if (holds("int") || holds("real") || holds("floa") || holds("doub") || holds("num") ||
        holds("dec") || holds("bit") || holds("bool")) {
        return ColumnKind::Number;
    }
    return ColumnKind::Unknown;
}

bool IsKnownDateColumn(std::string_view column) {
    return std::find(kDateColumns.begin(), kDateColumns.end(), text::ToLower(column)) !=
           kDateColumns.end();
}

void SchemaInfo::AddColumn(std::string_view name, std::string_view declaredType) {
    const ColumnKind kind = KindOfType(declaredType);
    const auto [entry, added] = kinds_.try_emplace(text::ToLower(name), kind);
    if (!added && entry->second != kind) entry->second = ColumnKind::Unknown;
}

ColumnKind SchemaInfo::KindOf(std::string_view column) const {
    if (IsKnownDateColumn(column)) return ColumnKind::Date;
    const auto entry = kinds_.find(text::ToLower(column));
    return entry == kinds_.end() ? ColumnKind::Unknown : entry->second;
}

void SchemaInfo::AddKey(std::string_view table, std::string_view column) {
    keys_.emplace(text::ToLower(table), text::ToLower(column));
}

bool SchemaInfo::IsKey(std::string_view table, std::string_view column) const {
    return keys_.contains({text::ToLower(table), text::ToLower(column)});
}

}  // namespace zv::store::dialect
