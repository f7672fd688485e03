// The dialog in which the user chooses a file.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

class Session;

/// The chosen file; empty when the user cancels or the dialog fails. Kind 1: the file must exist;
/// any other: it may be created.
std::string ChooseFile(Session& session, std::int16_t kind, const std::string& filter,
                       const std::string& fileName, const std::string& dialogTitle,
                       const std::string& folder);

}  // namespace zv
