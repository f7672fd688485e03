#include "forms/up_down.h"

namespace zv::forms {

void UpDown::UserSpin(int direction) {
    const auto& handler = direction > 0 ? onUpClick : onDownClick;
    if (handler) FromUser([&] { handler(); });
}

}  // namespace zv::forms
