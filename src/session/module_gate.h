// The module password gate: the user's right to a module of the host suite.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

class Session;

inline constexpr std::int16_t kNotRegistered = -1000;

/// Answers 1 for an empty name; kNotRegistered for a module that is not registered; the rights
/// position (SerialNo + mode) when access is granted; the negated position when the right is
/// missing or the module password is refused. With launch 1 a granted module is handed to the
/// module runner. Database errors and error 6 (16-bit overflow of the position) reach the caller.
std::int16_t CheckModule(Session& session, const std::string& name, std::int16_t mode,
                         std::int16_t launch);

}  // namespace zv
