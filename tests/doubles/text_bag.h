// A host's property bag that holds texts, as hosts store them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "control/property_bag.h"

namespace zv::doubles {

class TextBag : public PropertyBag {
 public:
    /// Replaces what the key holds, if it holds anything.
    void Put(std::string_view key, std::string text);
    BagValue Read(std::string_view key, const BagValue& fallback) override;
    void Write(std::string_view key, const BagValue& value) override;
    /// "KEY=VALUE" each, in the order written.
    std::vector<std::string> Lines() const;

    std::vector<std::string> readKeys;  ///< in the order asked for

 private:
    std::vector<std::pair<std::string, std::string>> entries_;
};

}  // namespace zv::doubles
