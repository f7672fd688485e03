// Texts that open a database. What of them is secret is known here and nowhere else.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv::store {

/// A login or a password. It turns into no text by itself, and none that somebody may read.
class Secret {
 public:
    Secret() = default;
    Secret(std::string text) : text_(std::move(text)) {}
    Secret(const char* text) : text_(text) {}

    bool IsEmpty() const { return text_.empty(); }
    /// As it stands: for what opens the database, and for nothing else.
    const std::string& ForDriver() const { return text_; }
    /// As it stands: for the host that gave it and the property bag that keeps it for the host.
    const std::string& ForOwner() const { return text_; }
    friend bool operator==(const Secret&, const Secret&) = default;

 private:
    std::string text_;
};

/// What names a database: a path, the address of a server or a whole connection string, which may
/// hold a login and a password. It turns into no text by itself.
class ConnectionText {
 public:
    ConnectionText() = default;
    ConnectionText(std::string text) : text_(std::move(text)) {}
    ConnectionText(const char* text) : text_(text) {}
    /// Where the text came from, for messages about a text in which no database is recognised.
    ConnectionText(std::string text, std::string origin)
        : text_(std::move(text)), origin_(std::move(origin)) {}

    bool IsEmpty() const { return text_.empty(); }
    /// As it stands: for what opens the database, and for nothing else.
    const std::string& ForDriver() const { return text_; }
    /// As it stands: for the host or the user that gave it and for where it is kept for them.
    const std::string& ForOwner() const { return text_; }
    /// What messages may call it: the path, the server, the data source; "***" where the text does
    /// not say which part of it is no secret.
    std::string ForMessage() const;
    /// The parts that no text may show, in every form that a driver may repeat them in.
    std::vector<std::string> Secrets() const;
    friend bool operator==(const ConnectionText& a, const ConnectionText& b) {
        return a.text_ == b.text_;
    }

 private:
    std::string text_;
    std::string origin_;
};

/// An address in its parts: "postgresql://login@place". All before the last "@" is the login, since
/// a password may hold anything.
struct Address {
    std::string_view scheme;  ///< with what ends it, "postgresql:" or "mssql://"; may be empty
    std::string_view login;   ///< "user" or "user:password"
    std::string_view place;   ///< "HOST:PORT/DATABASE"
};
Address ReadAddress(std::string_view text);

}  // namespace zv::store
