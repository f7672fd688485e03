// Streams and bags in which a container keeps the control's properties.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "com/stream_format.h"

namespace zv::fuzz {

using StreamEncoder = std::function<std::string(const com::MemoryBag&)>;

/// A stream, or a bag of "KEY=TEXT" pieces, is refused and leaves the properties as they were, or
/// is loaded; what was loaded can be saved and is then loaded as the same.
void PlayProperties(std::string_view input, const StreamEncoder& encode = com::EncodeStream);
std::vector<std::string> PropertySeeds();

}  // namespace zv::fuzz
