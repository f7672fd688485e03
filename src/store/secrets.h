// Keeps logins and passwords out of texts that somebody may read.
#pragma once

#include <string>
#include <vector>

namespace zv::store {

/// `text` without each of `secrets`, and without what stands behind the names of secret entries
/// (PWD=…) of a connection string: drivers repeat what they were given.
std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets);

}  // namespace zv::store
