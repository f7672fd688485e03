// The point that is played, in a file: what is left of a run that crashes.
#pragma once

#include <filesystem>
#include <string>

namespace zv::ring {

/// Writes the text to the file "fault-point-PROCESS.txt" of the working folder, which is gone with
/// this.
class CurrentPoint {
 public:
    explicit CurrentPoint(const std::string& text);
    ~CurrentPoint();
    CurrentPoint(const CurrentPoint&) = delete;
    CurrentPoint& operator=(const CurrentPoint&) = delete;

 private:
    std::filesystem::path file_;
};

}  // namespace zv::ring
