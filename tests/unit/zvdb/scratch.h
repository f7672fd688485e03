// A folder of its own for each test, with a name that has to be handled with care.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "base/path.h"
#include "zvdb/tool.h"

namespace zv::zvdb {

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

inline const DateTime kToday(2003, 3, 7);

/// What an upgrade says of a database without side tables.
inline const std::string kSideTablesMade =
    "made table zvMeta\nmade table zvReminder\nmade index zvReminder_item\n"
    "made table zvHistory\nmade index zvHistory_row\nmade index zvHistory_when\n"
    "made index tTaskList_due\nmade version 1\n";

inline Outcome RunZvdb(const std::vector<std::string>& arguments, bool terminal = false) {
    std::ostringstream out;
    std::ostringstream err;
    Outcome outcome;
    outcome.status = RunTool(arguments, kToday, {out, err, terminal});
    outcome.out = out.str();
    outcome.err = err.str();
    return outcome;
}

/// A copy that is whole and faultless answers 0 or 1, one with rows that the check finds fault with
/// 3, and has reported all that the check reports.
inline void ExpectStatusShowsCheck(const Outcome& copy, const Outcome& check) {
    EXPECT_TRUE(copy.status == 0 || copy.status == 1 || copy.status == 3) << copy.status;
    EXPECT_EQ(copy.status == 3, check.status != 0) << copy.out << check.out << check.err;
    EXPECT_EQ(check.status == 0, check.out.find("nothing wrong") != std::string::npos);
    std::istringstream lines(check.out);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("wrong: ")) continue;
        EXPECT_NE(copy.out.find(line + '\n'), std::string::npos) << line << '\n' << copy.out;
    }
}

class Scratch : public testing::Test {
 protected:
    void SetUp() override {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::temp_directory_path() /
                  (std::string("zvdb-") + test->test_suite_name() + "-" + test->name() + "-" +
                   std::to_string(std::random_device{}())) /
                  std::filesystem::path(u8"数据 資料");
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_.parent_path()); }

    std::string Path(const std::string& name) const { return Utf8Of(folder_ / name); }
    std::filesystem::path File(const std::string& name) const { return folder_ / name; }

    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

 private:
    std::filesystem::path folder_;
};

}  // namespace zv::zvdb
