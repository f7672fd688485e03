// The control's properties to and from an OLE stream.
#pragma once

#include <objidl.h>

#include <string>

#include "com/core.h"

namespace zv::com {

/// The bytes that WriteToStream writes.
std::string StreamImage(Core& core);
/// Both throw the stream's own error; reading throws error 5 for a foreign or damaged stream, and
/// leaves the properties as they were.
void WriteToStream(Core& core, IStream& stream);
void ReadFromStream(Core& core, IStream& stream);

}  // namespace zv::com
