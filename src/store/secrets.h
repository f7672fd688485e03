// Keeps logins and passwords out of texts that somebody may read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv::store {

/// What stands where a secret stood.
inline constexpr std::string_view kHidden = "***";

/// A secret of fewer characters would be found inside other words.
inline constexpr std::size_t kUnmistakable = 4;

/// `text` without each of `secrets`, and without what stands behind the names of secret entries
/// (PWD=…) of a connection string or as a login in an address: drivers repeat what they were given.
std::string WithoutSecrets(std::string text, std::vector<std::string> secrets);

/// `text` without each of `secrets`.
std::string WithoutTexts(std::string text, std::vector<std::string> secrets);

/// Whether an entry of this name holds a login or a password. What stands in front of the name, as
/// in "Jet OLEDB:Database Password", makes no difference.
bool IsSecretName(std::string_view name);

/// What stands behind the names of secret entries anywhere in `text`, each also up to its first
/// blank.
std::vector<std::string> SecretValues(std::string_view text);

}  // namespace zv::store
