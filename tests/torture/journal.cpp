#include "journal.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace zv::torture {
namespace {

constexpr const char* kBegin = "begin";
constexpr const char* kDone = "done";

}  // namespace

Journal::Journal(const std::string& path) : file_(std::fopen(path.c_str(), "a")) {
    if (!file_) throw std::runtime_error("the journal cannot be written: " + path);
}

Journal::~Journal() {
    std::fclose(file_);
}

// A line is handed to the system in one piece before the next thing happens, so a kill loses none.
void Journal::Write(const std::string& line) {
    if (std::fputs((line + '\n').c_str(), file_) < 0 || std::fflush(file_) != 0) {
        throw std::runtime_error("the journal cannot be written");
    }
}

void Journal::Begin(const Step& step) {
    Write(std::string(kBegin) + ' ' + std::to_string(static_cast<int>(step.act)) + ' ' +
          step.title + ' ' + step.content);
}

void Journal::Acknowledge() {
    Write(kDone);
}

std::vector<Step> Journal::Read(const std::string& path) {
    std::vector<Step> steps;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == kDone && !steps.empty()) {
            steps.back().acknowledged = true;
        } else if (word == kBegin) {
            int act = 0;
            Step step;
            words >> act >> step.title >> step.content;
            step.act = static_cast<Act>(act);
            steps.push_back(std::move(step));
        } else {
            throw std::runtime_error("the journal is damaged: " + line);
        }
    }
    return steps;
}

}  // namespace zv::torture
