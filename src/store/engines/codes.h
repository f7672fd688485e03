// What engines and their drivers are called and say, for everybody who meets them only by that: the
// control, which links no engine, and the ODBC transport, whose drivers speak of any of them.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/errors.h"

namespace zv::store::engines {

struct NumberKind {
    std::uint32_t number;
    ErrorKind kind;
};
/// A text, or the beginning of one, and what it means.
struct WordsKind {
    std::string_view words;
    ErrorKind kind;
};

/// Lists in the order in which they are looked through; texts in lower case, states as they are.
struct Codes {
    /// As messages call the engine, and as the sources of its providers' errors name it.
    std::string_view name;
    /// In front of a server's address, with its ":"; empty where addresses stand for themselves.
    std::string_view scheme = {};

    /// The server's own numbers, which say more than its SQLSTATEs.
    std::span<const NumberKind> numbers = {};
    /// Numbers that a provider reports in place of a SQLSTATE or as the number of the error.
    std::span<const NumberKind> providerNumbers = {};
    /// SQLSTATEs of its own, or what they begin with.
    std::span<const WordsKind> states = {};
    /// Parts of the texts of a driver that has no codes of its own.
    std::span<const WordsKind> words = {};

    /// Parts of what it says when it does not let a connection in.
    std::span<const WordsKind> connectWords = {};
    /// Parts of what it says when it does not run a statement.
    std::span<const WordsKind> statementWords = {};

    /// SQLSTATEs, and numbers beside a state that leaves it open, that mean a lost connection.
    std::span<const std::string_view> lossStates = {};
    std::span<const std::int32_t> lossNumbers = {};
};

/// Of all engines, in the order of the list.
std::span<const Codes* const> AllCodes();

/// The scheme of an engine that an address begins with, in any case; empty when it is none.
std::string_view SchemeOf(std::string_view address);

}  // namespace zv::store::engines
