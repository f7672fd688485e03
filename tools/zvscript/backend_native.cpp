#include "backend_stand.h"

#include "backend_headless.h"
#include "script_text.h"

namespace zv::script {

bool IsAvailable(BackendKind kind) {
    return kind == BackendKind::Headless;
}

std::unique_ptr<BackendStand> MakeStand(BackendKind kind, forms::Dialogs& dialogs, Loops loops) {
    if (!IsAvailable(kind)) throw ScriptError("the backend win32 is not in this program");
    return std::make_unique<HeadlessStand>(dialogs, std::move(loops));
}

}  // namespace zv::script
