// Fixed lists that an enumerator goes through.
#pragma once

#include <windows.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "automation/module.h"

namespace zv::com {

/// `CopyItem` gives the caller an item of its own; it may not throw.
template <class Held, class Item, HRESULT (*CopyItem)(const Held&, Item*)>
class HeldItems {
 public:
    explicit HeldItems(std::vector<Held> items) : items_(std::move(items)) {}

    std::size_t Count() const noexcept { return items_.size(); }
    HRESULT Copy(std::size_t index, Item* item) const noexcept {
        return CopyItem(items_[index], item);
    }

 private:
    automation::module::Reference reference_;
    std::vector<Held> items_;
};

}  // namespace zv::com
