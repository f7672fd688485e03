#include "report/windows/print_object.h"

#include <array>

#include "automation/variant_readers.h"
#include "report/windows/print_out.h"
#include "resources/error_texts.h"

namespace zv::host {
namespace {

using automation::Offers;
using win32::Variant;

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
    request_.*Field = automation::ToTextOrNone(arguments.Assigned(), automation::Misfit::Result);
}

template <auto Field>
Variant PrintObject::ReadNumber(const Arguments&) {
    return Variant(request_.*Field);
}

template <auto Field>
void PrintObject::AssignNumber(const Arguments& arguments) {
    request_.*Field = automation::ToNumber(arguments.Assigned(), automation::Misfit::Result);
}

template <auto Field>
Variant PrintObject::ReadFlag(const Arguments&) {
    return Variant(request_.*Field);
}

template <auto Field>
void PrintObject::AssignFlag(const Arguments& arguments) {
    request_.*Field = automation::ToFlag(arguments.Assigned(), automation::Misfit::Result);
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
    static constexpr std::array<MemberEntry<P>, 25> kMembers{{
        Offers<&P::ReadText<&R::userPath>, &P::AssignText<&R::userPath>>(L"UserPath", 1),
        // The password can be set but not asked for.
        Offers<nullptr, &P::AssignText<&R::password>>(L"Password", 2),
        Offers<&P::ReadNumber<&R::sqlData>, &P::AssignNumber<&R::sqlData>>(L"SQLData", 3),
        Offers<&P::ReadText<&R::userId>, &P::AssignText<&R::userId>>(L"UserID", 4),
        Offers<&P::ReadText<&R::defaultDatabase>, &P::AssignText<&R::defaultDatabase>>(L"Default",
                                                                                       5),
        Offers<&P::ReadText<&R::userName>, &P::AssignText<&R::userName>>(L"UserName", 6),
        Offers<&P::ReadText<&R::company>, &P::AssignText<&R::company>>(L"CompName", 7),
        Offers<&P::ReadNumber<&R::language>, &P::AssignNumber<&R::language>>(L"Language", 8),
        Offers<&P::ReadFlag<&R::copyright>, &P::AssignFlag<&R::copyright>>(L"Copyright", 9),
        Offers<&P::ReadNumber<&R::printMode>, &P::AssignNumber<&R::printMode>>(L"PrintMode", 10),
        Offers<&P::ReadText<&R::reportName>, &P::AssignText<&R::reportName>>(L"ReportName", 11),
        Offers<&P::ReadText<&R::title>, &P::AssignText<&R::title>>(L"Title", 12),
        Offers<&P::ReadText<&R::subtitle>, &P::AssignText<&R::subtitle>>(L"SubTitle", 13),
        Offers<&P::ReadText<&R::filter>, &P::AssignText<&R::filter>>(L"Filter", 14),
        Offers<&P::ReadText<&R::order>, &P::AssignText<&R::order>>(L"Order", 15),
        Offers<&P::ReadValue<&R::parameters>, &P::AssignValue<&R::parameters>>(L"Parameters", 16),
        Offers<&P::ReadValue<&R::columns>, &P::AssignValue<&R::columns>>(L"Columns", 17),
        Offers<&P::ReadValue<&R::recordset>, &P::AssignValue<&R::recordset>>(L"Recordset", 18),
        Offers<&P::ReadValue<&R::grid>, &P::AssignValue<&R::grid>>(L"Grid", 19),
        Offers<&P::ReadText<&R::outputFile>, &P::AssignText<&R::outputFile>>(L"OutputFile", 20),
        Offers<&P::ReadText<&R::printerName>, &P::AssignText<&R::printerName>>(L"PrinterName", 21),
        Offers<&P::ReadNumber<&R::copies>, &P::AssignNumber<&R::copies>>(L"Copies", 22),
        Offers<&P::PrintOut>(L"PrintOut", 23),
        Offers<&P::PageCount>(L"PageCount", 24),
        Offers<&P::ReadText<&R::criteria>, &P::AssignText<&R::criteria>>(L"Criteria", 25),
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
        report::PrintOut(request_, fonts_, printer_, pageCount_);
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
