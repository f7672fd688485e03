#include "report/windows/print_object.h"

#include <array>

#include "report/windows/print_out.h"
#include "resources/error_texts.h"

namespace zv::host {
namespace {

using win32::Variant;

void Convert(Variant& value, VARTYPE type) {
    const HRESULT hr = value.ChangeType(type);
    if (FAILED(hr)) throw RuntimeError(win32::ToErrorNumber(hr), win32::SystemMessage(hr));
}

class Busy {
 public:
    explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
    ~Busy() { flag_ = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

 private:
    bool& flag_;
};

}  // namespace

template <auto Field>
Variant PrintObject::ReadText(const Arguments&) {
    return Variant(std::string_view(request_.*Field));
}

template <auto Field>
void PrintObject::AssignText(const Arguments& arguments) {
    Variant value = arguments.Assigned();
    if (value.Type() == VT_NULL) value = Variant(std::string_view());
    Convert(value, VT_BSTR);
    request_.*Field = win32::ToUtf8(
        {value.Get().bstrVal ? value.Get().bstrVal : L"", SysStringLen(value.Get().bstrVal)});
}

template <auto Field>
Variant PrintObject::ReadNumber(const Arguments&) {
    return Variant(request_.*Field);
}

template <auto Field>
void PrintObject::AssignNumber(const Arguments& arguments) {
    Variant value = arguments.Assigned();
    Convert(value, VT_I4);
    request_.*Field = static_cast<std::int32_t>(value.Get().lVal);
}

template <auto Field>
Variant PrintObject::ReadFlag(const Arguments&) {
    return Variant(request_.*Field);
}

template <auto Field>
void PrintObject::AssignFlag(const Arguments& arguments) {
    Variant value = arguments.Assigned();
    Convert(value, VT_BOOL);
    request_.*Field = value.Get().boolVal != VARIANT_FALSE;
}

template <auto Field>
Variant PrintObject::ReadValue(const Arguments&) {
    return Variant::Copy((request_.*Field).Get());
}

template <auto Field>
void PrintObject::AssignValue(const Arguments& arguments) {
    request_.*Field = arguments.Assigned();
}

std::span<const MemberEntry<PrintObject>> PrintObject::Members() {
    using P = PrintObject;
    using R = report::PrintRequest;
    static constexpr std::array<MemberEntry<P>, 24> kMembers{{
        {L"UserPath", 1, &P::ReadText<&R::userPath>, &P::AssignText<&R::userPath>},
        // The password can be set but not asked for.
        {L"Password", 2, nullptr, &P::AssignText<&R::password>},
        {L"SQLData", 3, &P::ReadNumber<&R::sqlData>, &P::AssignNumber<&R::sqlData>},
        {L"UserID", 4, &P::ReadText<&R::userId>, &P::AssignText<&R::userId>},
        {L"Default", 5, &P::ReadText<&R::defaultDatabase>, &P::AssignText<&R::defaultDatabase>},
        {L"UserName", 6, &P::ReadText<&R::userName>, &P::AssignText<&R::userName>},
        {L"CompName", 7, &P::ReadText<&R::company>, &P::AssignText<&R::company>},
        {L"Language", 8, &P::ReadNumber<&R::language>, &P::AssignNumber<&R::language>},
        {L"Copyright", 9, &P::ReadFlag<&R::copyright>, &P::AssignFlag<&R::copyright>},
        {L"PrintMode", 10, &P::ReadNumber<&R::printMode>, &P::AssignNumber<&R::printMode>},
        {L"ReportName", 11, &P::ReadText<&R::reportName>, &P::AssignText<&R::reportName>},
        {L"Title", 12, &P::ReadText<&R::title>, &P::AssignText<&R::title>},
        {L"SubTitle", 13, &P::ReadText<&R::subtitle>, &P::AssignText<&R::subtitle>},
        {L"Filter", 14, &P::ReadText<&R::filter>, &P::AssignText<&R::filter>},
        {L"Order", 15, &P::ReadText<&R::order>, &P::AssignText<&R::order>},
        {L"Parameters", 16, &P::ReadValue<&R::parameters>, &P::AssignValue<&R::parameters>},
        {L"Columns", 17, &P::ReadValue<&R::columns>, &P::AssignValue<&R::columns>},
        {L"Recordset", 18, &P::ReadValue<&R::recordset>, &P::AssignValue<&R::recordset>},
        {L"Grid", 19, &P::ReadValue<&R::grid>, &P::AssignValue<&R::grid>},
        {L"OutputFile", 20, &P::ReadText<&R::outputFile>, &P::AssignText<&R::outputFile>},
        {L"PrinterName", 21, &P::ReadText<&R::printerName>, &P::AssignText<&R::printerName>},
        {L"Copies", 22, &P::ReadNumber<&R::copies>, &P::AssignNumber<&R::copies>},
        {L"PrintOut", 23, &P::PrintOut},
        {L"PageCount", 24, &P::PageCount},
    }};
    return kMembers;
}

Variant PrintObject::PrintOut(const Arguments&) {
    if (isPrinting_) throw RuntimeError(ErrorNumber::FormAlreadyShown);
    // A client may let go of this object while a window of its own waits for the user.
    const win32::ComPtr<IDispatch> alive(this);
    const Busy busy(isPrinting_);
    pageCount_ = 0;
    try {
        report::PrintOut(request_, fonts_, pageCount_);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(), resources::DescribeError(error, request_.Script()),
                           error.Source())
            .Of(ErrorKind::Own);
    }
    return {};
}

Variant PrintObject::PageCount(const Arguments&) {
    return Variant(std::int32_t{pageCount_});
}

}  // namespace zv::host
