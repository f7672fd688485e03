#include "base/errors.h"
#include "forms/icon.h"

namespace zv::forms {

void ImageList::Add(std::string key, Icon icon) {
    icons_.emplace_back(std::move(key), std::move(icon));
}

int ImageList::Find(std::string_view key) const {
    for (std::size_t i = 0; i < icons_.size(); i++) {
        if (icons_[i].first == key) return static_cast<int>(i);
    }
    throw RuntimeError(ErrorNumber::KeyNotFound);
}

}  // namespace zv::forms
