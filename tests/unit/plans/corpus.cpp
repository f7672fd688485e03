#include "corpus.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace zv::plans::corpus {
namespace {

class Reader {
 public:
    explicit Reader(const std::filesystem::path& path)
        : in_(path), file_(path.filename().string()) {
        if (!in_) throw std::runtime_error("cannot read " + path.string());
    }

    std::vector<Case> Read() {
        std::string line;
        while (std::getline(in_, line)) {
            line_++;
            if (line.empty()) {
                Finish();
            } else if (line.rfind("case ", 0) == 0) {
                Finish();
                current_.emplace();
                current_->file = file_;
                current_->line = line_;
                current_->name = line.substr(5);
            } else if (line[0] == '#') {
                if (current_) current_->reason += line.substr(1);
            } else if (!current_) {
                Fail("outside of a case: " + line);
            } else {
                ReadLine(line);
            }
        }
        Finish();
        return std::move(cases_);
    }

 private:
    [[noreturn]] void Fail(const std::string& why) const {
        throw std::runtime_error(file_ + ":" + std::to_string(line_) + ": " + why);
    }

    int Number(const std::string& word) const {
        std::size_t used = 0;
        int value = 0;
        try {
            value = std::stoi(word, &used);
        } catch (const std::exception&) {
            used = 0;
        }
        if (word.empty() || used != word.size()) Fail("not a number: " + word);
        return value;
    }

    DateTime Date(const std::string& word) const {
        const auto date = DateTime::Parse(word);
        if (!date) Fail("not a date: " + word);
        return *date;
    }

    void ReadLine(const std::string& line) {
        std::istringstream words(line);
        std::string first;
        words >> first;
        if (first == "plan") {
            ReadPlanWords(words);
            hasPlan_ = true;
        } else if (first == "...") {
            current_->tail.emplace();
        } else if (first == "no") {
            saysNoRows_ = true;
        } else if (first == "count" || first == "error") {
            std::string value;
            words >> value;
            (first == "count" ? counted_ : current_->error) = Number(value);
        } else {
            (current_->tail ? *current_->tail : current_->head).push_back(ReadRow(first, words));
        }
    }

    Row ReadRow(const std::string& date, std::istringstream& words) const {
        Row row{Date(date), {}};
        std::string from, dots, to, rest;
        words >> from >> dots >> to >> rest;
        if (from == "none" && dots.empty()) return row;
        if (dots != ".." || to.empty() || !rest.empty()) Fail("not a window");
        row.window = {Date(from), Date(to)};
        return row;
    }

    void ReadPlanWords(std::istringstream& words) {
        Plan& plan = current_->plan;
        std::string kind, key, value;
        words >> kind;
        const std::vector<std::string> kinds{"yearly", "monthly", "daily", "weekly"};
        const auto at = std::find(kinds.begin(), kinds.end(), kind);
        if (at == kinds.end()) Fail("unknown kind " + kind);
        plan.circleType = static_cast<int>(at - kinds.begin());
        while (words >> key >> value) {
            if (key == "begin") {
                plan.begin = Date(value);
            } else if (key == "end") {
                plan.end = Date(value);
            } else if (key == "step") {
                plan.circleValue = Number(value);
            } else if (key == "month") {
                plan.month = Number(value);
            } else if (key == "day") {
                plan.day = Number(value);
            } else if (key == "week") {
                plan.week = Number(value);
            } else if (key == "type") {
                plan.type = Number(value);
            } else if (key == "width") {
                plan.typeValue = Number(value);
            } else {
                Fail("unknown word " + key);
            }
        }
    }

    void Finish() {
        if (!current_) return;
        Case& c = *current_;
        const std::size_t written = c.head.size() + (c.tail ? c.tail->size() : 0);
        if (!hasPlan_) Fail("case without a plan");
        if (c.reason.empty()) Fail("case without a reason");
        if (saysNoRows_ ? written > 0 : written == 0 && c.error == 0) Fail("rows or no rows?");
        if (c.tail && counted_ < 0) Fail("a gap needs a count");
        c.count = counted_ < 0 ? written : static_cast<std::size_t>(counted_);
        cases_.push_back(std::move(c));
        current_.reset();
        hasPlan_ = saysNoRows_ = false;
        counted_ = -1;
    }

    std::ifstream in_;
    std::string file_;
    int line_ = 0;
    std::vector<Case> cases_;
    std::optional<Case> current_;
    bool hasPlan_ = false;
    bool saysNoRows_ = false;
    int counted_ = -1;
};

}  // namespace

std::vector<Case> Load(const std::string& folder) {
    std::set<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") files.insert(entry.path());
    }
    std::vector<Case> result;
    for (const auto& file : files) {
        auto cases = Reader(file).Read();
        std::move(cases.begin(), cases.end(), std::back_inserter(result));
    }
    return result;
}

}  // namespace zv::plans::corpus
