// The report component as automation clients know it, "zvPrint_ADO.zvPrint".
#pragma once

#include <span>
#include <string>

#include "automation/dispatch.h"
#include "report/kept_printer.h"
#include "report/windows/font_files.h"
#include "report/windows/print_request.h"

namespace zv::host {

using automation::Arguments;
using automation::DispatchObject;
using automation::MemberEntry;

inline constexpr wchar_t kPrintProgId[] = L"zvPrint_ADO.zvPrint";

class PrintObject final : public DispatchObject<PrintObject> {
 public:
    // {04B18341-EBDD-4821-8C84-76163FD19F85}
    static constexpr IID kInterfaceId = {
        0x04B18341, 0xEBDD, 0x4821, {0x8C, 0x84, 0x76, 0x16, 0x3F, 0xD1, 0x9F, 0x85}};
    static constexpr std::string_view kSourceName = "zvPrint_ADO.zvPrint";
    static std::span<const MemberEntry<PrintObject>> Members();

 private:
    ~PrintObject() override = default;

    template <auto Field>
    win32::Variant ReadText(const Arguments& arguments);
    template <auto Field>
    void AssignText(const Arguments& arguments);
    template <auto Field>
    win32::Variant ReadNumber(const Arguments& arguments);
    template <auto Field>
    void AssignNumber(const Arguments& arguments);
    template <auto Field>
    win32::Variant ReadFlag(const Arguments& arguments);
    template <auto Field>
    void AssignFlag(const Arguments& arguments);
    /// An object, an array or nothing, kept by reference until the next assignment.
    template <auto Field>
    win32::Variant ReadValue(const Arguments& arguments);
    template <auto Field>
    void AssignValue(const Arguments& arguments);

    /// Does what PrintMode says. Throws error 400 while an earlier call has not returned.
    win32::Variant PrintOut(const Arguments& arguments);
    win32::Variant PageCount(const Arguments& arguments);

    report::PrintRequest request_;
    report::FontFiles fonts_;
    report::KeptPrinter printer_;
    int pageCount_ = 0;
    bool isPrinting_ = false;
};

}  // namespace zv::host
