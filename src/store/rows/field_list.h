// The fields of a recordset.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv::store::rows {

/// What the texts of a field may stand for.
enum class FieldUse {
    Plain,
    Date,      ///< a field of dates
    Computed,  ///< an expression, which may yield a date in stored form
};

struct FieldFacts {
    std::string name;
    FieldUse use = FieldUse::Plain;
};

/// Fields by number, from 0, and by name, in any letter case.
class FieldList {
 public:
    /// `errorSource`, a literal, is the source of all errors of the recordset.
    FieldList(const char* errorSource, std::vector<FieldFacts> fields)
        : errorSource_(errorSource), fields_(std::move(fields)) {}

    const char* ErrorSource() const { return errorSource_; }
    int Count() const { return static_cast<int>(fields_.size()); }
    /// These throw DatabaseColumn when there is no such field.
    void Check(int field) const {
        if (field < 0 || field >= Count()) ThrowUnknown(field);
    }
    const std::string& Name(int field) const;
    int Index(std::string_view name) const;
    /// The field must be there.
    FieldUse Use(int field) const { return fields_[static_cast<std::size_t>(field)].use; }

 private:
    [[noreturn]] void ThrowUnknown(int field) const;

    const char* errorSource_;
    std::vector<FieldFacts> fields_;
};

}  // namespace zv::store::rows
