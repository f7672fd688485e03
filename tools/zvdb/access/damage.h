// What is wrong with an Access file.
#pragma once

#include <stdexcept>
#include <string>

namespace zv::zvdb::access {

/// The file is damaged, or holds what it should not: the text says where and what.
class Damage : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

}  // namespace zv::zvdb::access
