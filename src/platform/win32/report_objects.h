// Automation objects in which a print's texts and table reach the report component. The component
// may keep them as long as it likes, which must not keep the control's file or connection.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/dispatch.h"
#include "platform/report_printer.h"

namespace zv::platform::win32 {

/// Texts by their position from 1: Count, Item (the default member) and _NewEnum.
class TextCollection final
    : public automation::DispatchObject<TextCollection, automation::KeepsNothing> {
 public:
    static constexpr std::string_view kSourceName = "zvTask";
    static std::span<const automation::MemberEntry<TextCollection>> Members();

    explicit TextCollection(std::vector<std::string> texts) : texts_(std::move(texts)) {}
    const std::vector<std::string>& Texts() const { return texts_; }

 private:
    ~TextCollection() override = default;
    zv::win32::Variant Count(const automation::Arguments& arguments);
    zv::win32::Variant Item(const automation::Arguments& arguments);
    zv::win32::Variant NewEnum(const automation::Arguments& arguments);

    std::vector<std::string> texts_;
};

/// A table: RowCount, ColumnCount, Heading(column), ColumnWidth(column), Text(row, column),
/// Sign(row).
class TableObject final : public automation::DispatchObject<TableObject, automation::KeepsNothing> {
 public:
    static constexpr std::string_view kSourceName = "zvTask";
    static std::span<const automation::MemberEntry<TableObject>> Members();

    /// The table must outlive the object or be detached from it.
    explicit TableObject(const ReportTable& table) : table_(&table) {}
    /// From now on everything is error 91.
    void Detach() { table_ = nullptr; }

 private:
    ~TableObject() override = default;
    zv::win32::Variant RowCount(const automation::Arguments& arguments);
    zv::win32::Variant ColumnCount(const automation::Arguments& arguments);
    zv::win32::Variant Heading(const automation::Arguments& arguments);
    zv::win32::Variant ColumnWidth(const automation::Arguments& arguments);
    zv::win32::Variant Text(const automation::Arguments& arguments);
    zv::win32::Variant Sign(const automation::Arguments& arguments);
    /// Throws error 91 once the table is detached.
    const ReportTable& Table() const;

    const ReportTable* table_;
};

}  // namespace zv::platform::win32
