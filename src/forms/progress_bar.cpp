#include "forms/progress_bar.h"

#include <algorithm>

namespace zv::forms {

void ProgressBar::SetPercent(std::optional<int> percent) {
    if (percent) percent = std::clamp(*percent, 0, 100);
    if (percent == percent_) return;
    percent_ = percent;
    Notify(Aspect::Value);
}

}  // namespace zv::forms
