// Finding one font in a file that holds several.
#pragma once

#include <string_view>

namespace zv::report {

/// Position of the font whose table of names is `names` in a TrueType collection; 0 for a file that
/// holds one font only, -1 when none matches or the file is broken.
int FindInCollection(std::string_view file, std::string_view names);

}  // namespace zv::report
