// The host suite's report component, driven late-bound.
#pragma once

#include <optional>

#include "platform/report_printer.h"
#include "platform/win32/late_bound.h"

namespace zv::platform::win32 {

class HostReportPrinter final : public ReportPrinter {
 public:
    static constexpr wchar_t kProgId[] = L"zvPrint_ADO.zvPrint";

    void Prepare() override;
    void Print(const ReportJob& job) override;
    void Release() noexcept override { component_.reset(); }

 private:
    std::optional<LateBound> component_;
};

}  // namespace zv::platform::win32
