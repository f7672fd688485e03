// The entries by which a client names what is to be printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/document.h"

namespace zv::report {

struct Heading {
    std::string caption;
    std::string key;  ///< empty when the entry names none
};

/// Reads "(" caption ")" tab key. The caption may hold parentheses and tabs itself: the key stands
/// behind the last tab. An entry of another form is a caption as it stands.
Heading ReadHeading(std::string_view entry);

/// Heading and value entries by turns; a last heading without a value has an empty one.
std::vector<Field> ReadFields(const std::vector<std::string>& entries);

}  // namespace zv::report
