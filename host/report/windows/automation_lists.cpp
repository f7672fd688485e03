#include "report/windows/automation_lists.h"

#include "automation/variant_readers.h"
#include "base/errors.h"
#include "report/row_reader.h"
#include "store/ado/calls.h"
#include "store/ado/value_conversion.h"

namespace zv::report {
namespace {

using store::ado::Call;
using store::ado::GetObjectProperty;
using store::ado::GetProperty;
using store::ado::Member;
using win32::ComPtr;
using win32::Variant;

std::string ToText(Variant value) {
    return automation::ToTextOrNone(std::move(value), automation::Misfit::Result);
}

std::int32_t ToNumber(Variant value) {
    return automation::ToNumber(std::move(value), automation::Misfit::Result);
}

std::vector<std::string> ReadArray(const VARIANT& value) {
    SAFEARRAY* array = value.vt & VT_BYREF ? *value.pparray : value.parray;
    std::vector<std::string> texts;
    if (!array) return texts;
    if (SafeArrayGetDim(array) != 1) {
        throw RuntimeError(ErrorNumber::TypeMismatch, "The array has more than one dimension.");
    }
    LONG first = 0;
    LONG last = -1;
    VARTYPE type = VT_EMPTY;
    automation::ThrowIfFailed(SafeArrayGetLBound(array, 1, &first));
    automation::ThrowIfFailed(SafeArrayGetUBound(array, 1, &last));
    automation::ThrowIfFailed(SafeArrayGetVartype(array, &type));
    for (LONG i = first; i <= last; i++) {
        Variant element;
        if (type == VT_VARIANT) {
            automation::ThrowIfFailed(SafeArrayGetElement(array, &i, element.Put()));
            element = Variant::Copy(element.Get());
        } else if (type == VT_BSTR) {
            element.Ref().vt = VT_BSTR;
            element.Ref().bstrVal = nullptr;
            automation::ThrowIfFailed(SafeArrayGetElement(array, &i, &element.Ref().bstrVal));
        } else {
            throw RuntimeError(ErrorNumber::TypeMismatch, "The array does not hold texts.");
        }
        texts.push_back(ToText(std::move(element)));
    }
    return texts;
}

std::vector<std::string> ReadEnumeration(const ComPtr<IEnumVARIANT>& elements) {
    std::vector<std::string> texts;
    for (;;) {
        Variant element;
        if (elements->Next(1, element.Put(), nullptr) != S_OK) return texts;
        texts.push_back(ToText(Variant::Copy(element.Get())));
    }
}

std::vector<std::string> ReadCollection(IDispatch& object) {
    Member count(L"Count");
    Member item(L"Item");
    if (count.IsOffered(object) && item.IsOffered(object)) {
        const std::int32_t total = ToNumber(GetProperty(object, count));
        std::vector<std::string> texts;
        for (std::int32_t i = 1; i <= total; i++) {
            texts.push_back(ToText(GetProperty(object, item, {Variant(i).Get()})));
        }
        return texts;
    }
    const auto answer =
        automation::TryGet(object, DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
    if (answer && (answer->Type() == VT_UNKNOWN || answer->Type() == VT_DISPATCH)) {
        if (const auto elements = ComPtr<IUnknown>(answer->Get().punkVal).As<IEnumVARIANT>()) {
            return ReadEnumeration(elements);
        }
    }
    throw RuntimeError(ErrorNumber::TypeMismatch, "The object is no collection of texts.");
}

}  // namespace

std::vector<std::string> ReadTexts(const Variant& list) {
    if (list.Type() & VT_ARRAY) return ReadArray(list.Get());
    switch (list.Type()) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_ERROR:
            return {};
        case VT_DISPATCH:
        case VT_UNKNOWN: {
            const ComPtr<IDispatch> object = list.Object();
            return object ? ReadCollection(*object) : std::vector<std::string>();
        }
        default:
            throw RuntimeError(ErrorNumber::TypeMismatch,
                               "A collection or an array of texts is expected.");
    }
}

Table ReadGrid(IDispatch& grid) {
    Member rowCount(L"RowCount");
    Member columnCount(L"ColumnCount");
    Member heading(L"Heading");
    Member text(L"Text");
    Member sign(L"Sign");
    const bool hasSigns = sign.IsOffered(grid);
    Table table;
    const std::int32_t columns = ToNumber(GetProperty(grid, columnCount));
    const std::int32_t rows = ToNumber(GetProperty(grid, rowCount));
    for (std::int32_t column = 1; column <= columns; column++) {
        const Variant number(column);
        table.columns.push_back({ToText(GetProperty(grid, heading, {number.Get()}))});
    }
    for (std::int32_t row = 1; row <= rows; row++) {
        std::vector<std::string>& cells = table.rows.emplace_back();
        for (std::int32_t column = 1; column <= columns; column++) {
            cells.push_back(
                ToText(GetProperty(grid, text, {Variant(row).Get(), Variant(column).Get()})));
        }
        if (hasSigns) {
            table.signs.push_back(ToText(GetProperty(grid, sign, {Variant(row).Get()})));
        }
    }
    return table;
}

Table ReadRecordset(IDispatch& recordset, const std::vector<Heading>& columns, DateTime today,
                    std::int16_t language) {
    Member eof(L"EOF");
    Member fieldsMember(L"Fields");
    Member count(L"Count");
    Member item(L"Item");
    Member name(L"Name");
    Member value(L"Value");
    Member moveNext(L"MoveNext");
    const ComPtr<IDispatch> fields = GetObjectProperty(recordset, fieldsMember);
    std::vector<ComPtr<IDispatch>> sources;
    std::vector<std::string> names;
    Table table;
    if (columns.empty()) {
        const std::int32_t total = ToNumber(GetProperty(*fields, count));
        for (std::int32_t i = 0; i < total; i++) {
            sources.push_back(GetObjectProperty(*fields, item, {Variant(i).Get()}));
            names.push_back(ToText(GetProperty(*sources.back(), name)));
            table.columns.push_back({names.back()});
        }
    }
    for (const Heading& column : columns) {
        const Variant key(std::string_view(column.key));
        sources.push_back(GetObjectProperty(*fields, item, {key.Get()}));
        names.push_back(column.key);
        table.columns.push_back({column.caption});
    }
    RowReader reader(table, std::move(names), today, language);
    std::vector<store::Value> values;
    while (ToNumber(GetProperty(recordset, eof)) == 0) {
        values.clear();
        for (const ComPtr<IDispatch>& source : sources) {
            values.push_back(store::ado::FromVariant(GetProperty(*source, value).Get()));
        }
        reader.Add(values);
        Call(recordset, moveNext);
    }
    return table;
}

}  // namespace zv::report
