// The ports behind which the host suite's components stand: what is called there belongs to the
// host, so it runs in the host's context of resolutions.
#pragma once

#include <memory>

#include "forms/dpi_awareness.h"
#include "platform/machine.h"

namespace zv::com {

class HostOpener final : public store::ConnectionOpener {
 public:
    HostOpener(forms::DpiAwareness& dpi, store::ConnectionOpener& opener)
        : dpi_(dpi), opener_(opener) {}
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override {
        const forms::DpiScope host = dpi_.ForHost();
        return opener_.Open(settings);
    }

 private:
    forms::DpiAwareness& dpi_;
    store::ConnectionOpener& opener_;
};

class HostModules final : public platform::ModuleRunner {
 public:
    HostModules(forms::DpiAwareness& dpi, platform::ModuleRunner& runner)
        : dpi_(dpi), runner_(runner) {}
    void Run(const platform::ModuleStart& start) override {
        const forms::DpiScope host = dpi_.ForHost();
        runner_.Run(start);
    }

 private:
    forms::DpiAwareness& dpi_;
    platform::ModuleRunner& runner_;
};

class HostReports final : public platform::ReportPrinter {
 public:
    HostReports(forms::DpiAwareness& dpi, platform::ReportPrinter& printer)
        : dpi_(dpi), printer_(printer) {}
    void Prepare() override {
        const forms::DpiScope host = dpi_.ForHost();
        printer_.Prepare();
    }
    void Print(const platform::ReportJob& job) override {
        const forms::DpiScope host = dpi_.ForHost();
        printer_.Print(job);
    }
    void Release() noexcept override {
        const forms::DpiScope host = dpi_.ForHost();
        printer_.Release();
    }

 private:
    forms::DpiAwareness& dpi_;
    platform::ReportPrinter& printer_;
};

}  // namespace zv::com
