#include "platform/win32/host_module_runner.h"

#include "automation/late_bound.h"
#include "platform/win32/connection_settings.h"
#include "store/ado/calls.h"

namespace zv::platform::win32 {

using zv::win32::Variant;

void HostModuleRunner::Run(const ModuleStart& start) {
    auto runner = automation::LateBound::Create(kProgId);
    store::ado::WithKinds([&] {
        runner.Put(L"Language", Variant(std::int32_t{start.language}));
        runner.Put(L"StartMode", Variant(std::int32_t{start.startMode}));
        PutConnection(runner, start.connection);
        runner.Put(L"UserName", Variant(start.userName));
        runner.Put(L"Heading", Variant(start.heading));
        runner.Put(L"ModuleName", Variant(start.moduleName));
        runner.Call(L"Start");
    });
}

}  // namespace zv::platform::win32
