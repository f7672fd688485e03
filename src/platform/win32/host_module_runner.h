// The host suite's module runner, driven late-bound.
#pragma once

#include "platform/machine.h"

namespace zv::platform::win32 {

class HostModuleRunner final : public ModuleRunner {
 public:
    static constexpr wchar_t kProgId[] = L"zv_Host.ModuleRunner";

    /// Throws error 429 when the component is not registered, the component's own error when it
    /// refuses a property or the start.
    void Run(const ModuleStart& start) override;
};

}  // namespace zv::platform::win32
