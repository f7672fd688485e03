// What one worker set out to do and what was reported to it as done: a file that outlives the
// worker.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace zv::torture {

enum class Act { Add, Change, Complete, Remove, ChangeShared, Generate };

struct Step {
    Act act = Act::Add;
    std::string title;    ///< of the item, without blanks
    std::string content;  ///< as the act leaves it; empty where the act has none
    /// The user was shown that it is done. Otherwise it may have been done or not: the worker was
    /// killed on the way, or met an error.
    bool acknowledged = false;
};

class Journal {
 public:
    /// Appends to the file. Throws std::runtime_error when it cannot be written.
    explicit Journal(const std::string& path);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void Begin(const Step& step);
    void Acknowledge();

    /// The steps of a file in their order; none when there is no such file.
    static std::vector<Step> Read(const std::string& path);

 private:
    void Write(const std::string& line);

    std::FILE* file_;
};

}  // namespace zv::torture
