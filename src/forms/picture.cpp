#include "forms/picture.h"

namespace zv::forms {

void Picture::SetImage(Icon image) {
    image_ = std::move(image);
    Notify(Aspect::Image);
}

}  // namespace zv::forms
