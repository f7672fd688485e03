// Automation objects in which a print's texts and table reach the report component.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <atomic>
#include <span>
#include <string>
#include <vector>

#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "platform/report_printer.h"

namespace zv::platform::win32 {

/// An object whose members are only read, found by their names without regard to case.
class ReadingObject : public IDispatch {
 public:
    ReadingObject(const ReadingObject&) = delete;
    ReadingObject& operator=(const ReadingObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* info, UINT* badArgument) noexcept override;

 protected:
    struct MemberName {
        const wchar_t* name;
        DISPID id;
        UINT arguments;
    };
    /// The arguments of a call, whole numbers, in the order in which they are written.
    using Numbers = std::vector<std::int32_t>;

    explicit ReadingObject(std::span<const MemberName> members) : members_(members) {}
    virtual ~ReadingObject() = default;
    /// Throws RuntimeError, which the caller gets.
    virtual zv::win32::Variant Read(DISPID id, const Numbers& arguments) = 0;

 private:
    HRESULT ReadInto(const MemberName& member, const DISPPARAMS& parameters, VARIANT* result);

    std::span<const MemberName> members_;
    std::atomic<ULONG> references_{1};
};

/// Texts by their position from 1: Count, Item (the default member) and _NewEnum.
class TextCollection final : public ReadingObject {
 public:
    explicit TextCollection(std::vector<std::string> texts);
    const std::vector<std::string>& Texts() const { return texts_; }

 private:
    zv::win32::Variant Read(DISPID id, const Numbers& arguments) override;

    std::vector<std::string> texts_;
};

/// A table: RowCount, ColumnCount, Heading(column), ColumnWidth(column), Text(row, column).
class TableObject final : public ReadingObject {
 public:
    /// The table must outlive the object or be detached from it.
    explicit TableObject(const ReportTable& table);
    /// From now on everything is error 91.
    void Detach() { table_ = nullptr; }

 private:
    zv::win32::Variant Read(DISPID id, const Numbers& arguments) override;

    const ReportTable* table_;
};

}  // namespace zv::platform::win32
