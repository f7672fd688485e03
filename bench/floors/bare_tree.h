// A tree that can do nothing but hold what is shown: for each node its parent, its image and its
// text, and for items the number.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv::bench {

class BareTree {
 public:
    int Add(int parent, int number, int image, std::string_view text) {
        nodes_.push_back({parent, number, image, std::string(text)});
        return static_cast<int>(nodes_.size()) - 1;
    }
    void Clear() { nodes_.clear(); }
    int Count() const { return static_cast<int>(nodes_.size()); }

 private:
    struct Node {
        int parent;
        int number;
        int image;
        std::string text;
    };
    std::vector<Node> nodes_;
};

}  // namespace zv::bench
