// The keys of a table that were seen so far.
#pragma once

#include <algorithm>
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace zv::zvdb {

class KeySet {
 public:
    /// False when the key was there before. Cheap for keys that come in their order, as they
    /// mostly do.
    bool Insert(std::int64_t key) {
        if (ascending_.empty() || key > ascending_.back()) {
            if (strays_.contains(key)) return false;
            ascending_.push_back(key);
            return true;
        }
        if (std::binary_search(ascending_.begin(), ascending_.end(), key)) return false;
        return strays_.insert(key).second;
    }

 private:
    std::vector<std::int64_t> ascending_;
    std::unordered_set<std::int64_t> strays_;
};

}  // namespace zv::zvdb
