#include "store/connection_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <span>

#include "base/text.h"
#include "store/connection_entries.h"
#include "store/connection_opener.h"
#include "store/engines/codes.h"
#include "store/secrets.h"

namespace zv::store {
namespace {

// What shows people which database it is, the best first. Whatever else a connection string holds
// stays hidden, whether it is known or not.
constexpr auto kShownNames = std::to_array<std::string_view>(
    {"Server", "Servername", "Data Source", "Address", "Host", "DSN", "FileDSN", "Database",
     "Initial Catalog", "DBQ", "Driver", "Provider"});

ConnectionEntries EntriesOf(std::string_view text) {
    return ConnectionEntries(text, ConnectionEntries::Quoting::BracesAndQuotes);
}

bool IsConnectionString(const ConnectionEntries& entries) {
    return entries.HasAnyOf(kShownNames) ||
           std::any_of(entries.begin(), entries.end(),
                       [](const auto& entry) { return IsSecretName(entry.first); });
}

std::string_view BehindLogin(std::string_view text) {
    const std::size_t at = text.rfind('@');
    return at == std::string_view::npos ? text : text.substr(at + 1);
}

/// A value as far as it can be one: a brace or quote that is not closed takes in what follows.
std::string Shown(std::string_view value) {
    value = text::Trim(BehindLogin(value));
    value = text::Trim(value.substr(0, value.find_first_of(";={}\"?&\r\n")));
    return std::string(value.empty() ? kHidden : value);
}

/// "me:secret@host" without a scheme; "C:\x@y" is a file.
bool HasLogin(std::string_view text) {
    const std::size_t colon = text.find_first_of(":\\/");
    const std::size_t at = text.rfind('@');
    return at != std::string_view::npos && colon != std::string_view::npos && colon > 1 &&
           colon < at && text[colon] == ':';
}

void Add(std::vector<std::string>& secrets, std::string_view secret) {
    if (secret.empty()) return;
    secrets.emplace_back(secret);
    if (secret.find('}') != std::string_view::npos) {
        secrets.push_back(text::Replace(secret, "}", "}}"));
    }
    if (secret.find('"') != std::string_view::npos) {
        secrets.push_back(text::Replace(secret, "\"", "\"\""));
    }
}

void AddLogin(std::vector<std::string>& secrets, std::string_view login) {
    Add(secrets, login);
    const std::size_t colon = login.find(':');
    Add(secrets, login.substr(0, colon));
    if (colon == std::string_view::npos) return;
    const std::string_view password = login.substr(colon + 1);
    Add(secrets, password);
    // A program that reads addresses in another way takes a part of it for the machine.
    for (const std::string& part : text::Split(text::Replace(password, "/", "@"), "@")) {
        if (part.size() >= kUnmistakable) Add(secrets, part);
    }
}

void AddEntries(std::vector<std::string>& secrets, const ConnectionEntries& entries) {
    for (const auto& [name, value] : entries) {
        if (IsSecretName(name)) Add(secrets, value);
        // A value may be a list of entries itself.
        for (const std::string& inner : SecretValues(value)) Add(secrets, inner);
    }
}

}  // namespace

Address ReadAddress(std::string_view text) {
    Address address;
    text = text::Trim(text);
    std::size_t scheme = 0;
    if (const std::size_t mark = text.find("://"); mark != std::string_view::npos) {
        const std::string_view name = text.substr(0, mark);
        const bool isScheme = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
            return std::isalnum(static_cast<unsigned char>(c)) || c == '+' || c == '-' || c == '.';
        });
        if (isScheme) scheme = mark + 3;
    }
    if (scheme == 0) scheme = engines::SchemeOf(text).size();
    address.scheme = text.substr(0, scheme);
    text.remove_prefix(scheme);
    address.place = BehindLogin(text);
    if (address.place.size() < text.size()) {
        address.login = text.substr(0, text.size() - address.place.size() - 1);
    }
    return address;
}

std::string ConnectionText::ForMessage() const {
    const std::string_view text = text::Trim(text_);
    const Address address = ReadAddress(text);
    if (!address.scheme.empty()) {
        const bool own = !engines::SchemeOf(address.scheme).empty();
        return (own ? std::string() : std::string(address.scheme)) + Shown(address.place);
    }
    if (const ConnectionEntries entries = EntriesOf(text); IsConnectionString(entries)) {
        const std::string_view name = entries.FirstOf(kShownNames);
        if (!name.empty()) return Shown(name);
        return origin_.empty() ? std::string(kHidden) : origin_;
    }
    if (!origin_.empty()) return origin_;
    // Every mark of a connection string in it makes the whole of it doubtful.
    if (!SecretValues(text).empty()) return std::string(kHidden);
    return HasLogin(text) ? Shown(text) : std::string(text);
}

std::vector<std::string> ConnectionText::Secrets() const {
    std::vector<std::string> secrets;
    AddEntries(secrets, ConnectionEntries(text_));
    AddEntries(secrets, EntriesOf(text_));
    for (const std::string& value : SecretValues(text_)) Add(secrets, value);
    if (const Address address = ReadAddress(text_); !address.scheme.empty() || HasLogin(text_)) {
        AddLogin(secrets, address.login);
    }
    if (!origin_.empty() && ForMessage() == origin_) Add(secrets, text::Trim(text_));
    return secrets;
}

std::string ConnectionSettings::ForMessage() const {
    std::string name = dataPath.ForMessage();
    // A name as it was given: a file's may hold an "@", in a server's it ends a login.
    const bool asGiven = name == text::Trim(dataPath.ForDriver());
    return kind >= 1 && asGiven ? std::string(BehindLogin(name)) : name;
}

std::vector<std::string> ConnectionSettings::Secrets() const {
    std::vector<std::string> secrets = dataPath.Secrets();
    Add(secrets, password.ForDriver());
    // A file is opened without a login, which may well be a part of its path.
    if (kind >= 1 || !text::Contains(ForMessage(), login.ForDriver())) {
        Add(secrets, login.ForDriver());
    }
    if (kind >= 1) AddLogin(secrets, ReadAddress(dataPath.ForDriver()).login);
    for (const std::string& secret : database.Secrets()) Add(secrets, secret);
    return secrets;
}

std::string ConnectionSettings::WithoutSecrets(const std::string& text) const {
    return store::WithoutSecrets(text, Secrets());
}

}  // namespace zv::store
