// Every input that ever was a finding, what the product meets every day, and changes of both.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "changes.h"
#include "target.h"

namespace zv::fuzz {
namespace {

constexpr int kChanges = 3000;
constexpr std::chrono::milliseconds kTime{1000};
constexpr std::uint32_t kSeed = 1;

std::vector<std::string> CorpusOf(const Target& target) {
    std::vector<std::filesystem::path> files;
    const auto folder = std::filesystem::path(ZV_FUZZ_CORPUS) / target.name;
    if (std::filesystem::exists(folder)) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> inputs;
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(stream),
                            std::istreambuf_iterator<char>());
        if (!stream) throw std::runtime_error(file.string() + " cannot be read");
    }
    return inputs;
}

/// Where an input that found something is left.
std::filesystem::path InputFile(const Target& target) {
    const std::filesystem::path folder(ZV_FUZZ_FOUND);
    std::filesystem::create_directories(folder);
    return folder / ("input-" + std::string(target.name));
}

void Write(const std::filesystem::path& file, const std::string& input) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << input;
}

class Fuzz : public testing::TestWithParam<std::string_view> {
 protected:
    const Target& target_ = TargetOf(GetParam());

    /// Whether all holds.
    bool Play(const std::string& input) {
        const std::string fault = FaultOf(target_, input);
        if (fault.empty()) return true;
        Write(InputFile(target_), input);
        ADD_FAILURE() << fault << "\n(the input is in " << InputFile(target_) << ")";
        return false;
    }
};

TEST_P(Fuzz, TheCorpusHolds) {
    for (const std::string& input : CorpusOf(target_)) Play(input);
}

TEST_P(Fuzz, WhatIsMetEveryDayHolds) {
    for (const std::string& input : target_.seeds()) Play(input);
}

// The same ones each time, as far as the time reaches; run.sh does this in earnest.
TEST_P(Fuzz, ChangesOfThemHold) {
    std::vector<std::string> inputs = CorpusOf(target_);
    const std::vector<std::string> seeds = target_.seeds();
    inputs.insert(inputs.end(), seeds.begin(), seeds.end());
    Changes changes(kSeed);
    const auto end = std::chrono::steady_clock::now() + kTime;
    int played = 0;
    while (played < kChanges && std::chrono::steady_clock::now() < end) {
        if (!Play(changes.Next(inputs, target_.longest))) break;
        played++;
    }
    EXPECT_GT(played, 0);
    std::printf("%s: %d changed inputs\n", std::string(target_.name).c_str(), played);
}

std::vector<std::string_view> Names() {
    std::vector<std::string_view> names;
    for (const Target& target : Targets()) names.push_back(target.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Targets, Fuzz, testing::ValuesIn(Names()),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace zv::fuzz
