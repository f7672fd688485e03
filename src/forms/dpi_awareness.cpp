#include "forms/dpi_awareness.h"

namespace zv::forms {

DpiContext DpiAwareness::OfWindows() {
    if (asked_) return windows_;
    asked_ = true;
    for (const DpiContext wanted : thread_.Wanted()) {
        const DpiScope trial(thread_, wanted);
        if (!trial.Former()) continue;
        windows_ = wanted;
        break;
    }
    return windows_;
}

DpiScope DpiAwareness::FromHost() {
    const DpiContext wanted = OfWindows();
    if (wanted) {
        const DpiScope present(thread_, wanted);
        host_ = present.Former();
    }
    return {thread_, wanted};
}

}  // namespace zv::forms
