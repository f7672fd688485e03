#pragma once

#include <exception>
#include <string>

namespace zv::script {

/// The scenario fails here; the text says why, in one line.
class Failure : public std::exception {
 public:
    explicit Failure(std::string text) : text_(std::move(text)) {}
    const std::string& Text() const { return text_; }
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    std::string text_;
};

}  // namespace zv::script
