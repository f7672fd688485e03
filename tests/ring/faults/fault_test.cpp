#include "fault_test.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>
#include <vector>

namespace zv::ring {

namespace {

/// A number of the environment; `otherwise` when it is not set.
long Setting(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::stol(text);
}

/// Every finding is a failure of the test, with the lines of its file in the corpus.
void ExpectNoFindings(const Tally& tally) {
    for (const std::string& finding : tally.findings) ADD_FAILURE() << finding;
}

}  // namespace

void UseMemoryFolder() {
    if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
}

void ExpectSound(const std::string& flow, Faults& faults, long density, std::size_t flows) {
    using Clock = std::chrono::steady_clock;
    constexpr long kLongSeconds = 600;
    constexpr long kTimesDenser = 10;
    const bool isLong = std::getenv("ZV_LONG") != nullptr;
    const auto part = std::chrono::seconds(Setting("ZV_SECONDS", kLongSeconds)) / flows;
    const auto end = Clock::now() + part;
    long points = 0;
    std::vector<std::pair<std::string, long>> reaches;
    for (const std::string& operation : faults.Operations()) {
        const Tally tally =
            PlayAll(flow, operation, faults, isLong ? density * kTimesDenser : density);
        ExpectNoFindings(tally);
        points += tally.points;
        if (tally.reach > 0) reaches.emplace_back(operation, tally.reach);
    }
    // Where no call ever fails nothing has been proven.
    ASSERT_FALSE(reaches.empty());
    std::mt19937 random(static_cast<unsigned>(Setting("ZV_SEED", 1)));
    while (isLong && Clock::now() < end) {
        const auto& [operation, reach] = reaches[random() % reaches.size()];
        const long number = 1 + static_cast<long>(random() % static_cast<unsigned long>(reach));
        Tally tally;
        PlayOne({flow, operation, number, random() % 2 == 0}, faults, MakeFlow, tally);
        ExpectNoFindings(tally);
        points++;
    }
    std::printf("%s: %ld points\n", flow.c_str(), points);
}

bool Finds(const std::string& sentence, const std::string& flow, const std::string& operation,
           Faults& faults, const FlowMaker& make) {
    for (const bool forever : {false, true}) {
        Judgement judgement{.reached = true, .wrong = {}};
        for (long number = 1; judgement.reached; number++) {
            judgement = Judge({flow, operation, number, forever}, faults, make);
            const auto holds = [&](const std::string& text) {
                return text.find(sentence) != std::string::npos;
            };
            if (std::any_of(judgement.wrong.begin(), judgement.wrong.end(), holds)) return true;
        }
    }
    return false;
}

int PlayCorpus(Faults& faults) {
    const auto operations = faults.Operations();
    int played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ZV_FAULT_CORPUS)) {
        if (entry.path().extension() != ".txt") continue;
        std::ifstream in(entry.path());
        const auto point = FaultPoint::Parse(std::string(std::istreambuf_iterator<char>(in), {}));
        if (std::find(operations.begin(), operations.end(), point.operation) == operations.end()) {
            continue;
        }
        played++;
        for (const std::string& sentence : Judge(point, faults).wrong) {
            ADD_FAILURE() << entry.path().filename() << ": " << sentence;
        }
    }
    return played;
}

}  // namespace zv::ring
