// The host suite's report component, driven late-bound.
#pragma once

#include <optional>

#include "automation/late_bound.h"
#include "platform/report_printer.h"

namespace zv::platform::win32 {

class HostReportPrinter final : public ReportPrinter {
 public:
    static constexpr wchar_t kProgId[] = L"zvPrint_ADO.zvPrint";

    void Prepare() override;
    /// Error 400 while a print is under way, which lasts as long as its preview is shown.
    void Print(const ReportJob& job) override;
    void Release() noexcept override { component_.reset(); }

 private:
    std::optional<automation::LateBound> component_;
    bool printing_ = false;
};

}  // namespace zv::platform::win32
