// The fields of a recordset's current row as automation objects.
#pragma once

#include <span>

#include "automation/dispatch.h"
#include "recordset_object.h"

namespace zv::host {

using automation::Arguments;
using automation::DispatchObject;
using automation::MemberEntry;

class FieldsObject final : public DispatchObject<FieldsObject> {
 public:
    // {BBB9EB43-B1EB-4C86-A5CF-C474FEB175A8}
    static constexpr IID kInterfaceId = {
        0xBBB9EB43, 0xB1EB, 0x4C86, {0xA5, 0xCF, 0xC4, 0x74, 0xFE, 0xB1, 0x75, 0xA8}};
    static constexpr std::string_view kSourceName = "zv_Host.Fields";
    static std::span<const MemberEntry<FieldsObject>> Members();

    explicit FieldsObject(win32::ComPtr<RecordsetObject> recordset);
    /// A field by name or by number from 0.
    win32::Variant Item(const Arguments& arguments);

 private:
    ~FieldsObject() override = default;
    win32::Variant Count(const Arguments& arguments);
    win32::Variant NewEnum(const Arguments& arguments);
    void AssignItem(const Arguments& arguments);

    win32::ComPtr<RecordsetObject> recordset_;
};

class FieldObject final : public DispatchObject<FieldObject> {
 public:
    // {58658729-ECEB-41C5-B46C-3510E93234E7}
    static constexpr IID kInterfaceId = {
        0x58658729, 0xECEB, 0x41C5, {0xB4, 0x6C, 0x35, 0x10, 0xE9, 0x32, 0x34, 0xE7}};
    static constexpr std::string_view kSourceName = "zv_Host.Field";
    static std::span<const MemberEntry<FieldObject>> Members();

    FieldObject(win32::ComPtr<RecordsetObject> recordset, int column);

 private:
    ~FieldObject() override = default;
    win32::Variant Value(const Arguments& arguments);
    void AssignValue(const Arguments& arguments);
    win32::Variant Name(const Arguments& arguments);
    void RequireSameOpening() const;

    win32::ComPtr<RecordsetObject> recordset_;
    int column_;
    unsigned opening_;
};

}  // namespace zv::host
