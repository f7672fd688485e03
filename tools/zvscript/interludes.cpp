#include "interludes.h"

#include <algorithm>

namespace zv::script {

std::optional<Interlude> Interludes::Take(Standing kind) {
    const auto at = std::find_if(waiting_.begin(), waiting_.end(), [&](const Interlude& interlude) {
        return interlude.kind == kind;
    });
    if (at == waiting_.end()) return {};
    Interlude taken = std::move(*at);
    waiting_.erase(at);
    return taken;
}

bool Interludes::Waits(Standing kind) const {
    return std::any_of(waiting_.begin(), waiting_.end(),
                       [&](const Interlude& interlude) { return interlude.kind == kind; });
}

const char* NameOf(Standing kind) {
    switch (kind) {
        case Standing::Box:
            return "message box";
        case Standing::Input:
            return "input box";
        case Standing::Menu:
            return "menu";
    }
    return "";
}

}  // namespace zv::script
