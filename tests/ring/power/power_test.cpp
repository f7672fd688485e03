// The power fails at each sync and at random moments between: whatever is left of the files, the
// database is sound and holds what was acknowledged.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "power_run.h"
#include "ring/flows/flow.h"

namespace zv::ring {
namespace {

/// A number of the environment; `otherwise` when it is not set.
long Setting(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::stol(text);
}

std::size_t ExpectHolds(const PowerPoint& point, std::size_t* unsynced = nullptr) {
    const PowerTally tally = PlayPower(point);
    if (unsynced != nullptr) *unsynced += tally.unsynced;
    if (!tally.wrong.empty()) {
        std::string finding = point.Text();
        for (const std::string& sentence : tally.wrong) finding += "# " + sentence + '\n';
        ADD_FAILURE() << finding;
    }
    return tally.images;
}

class PowerFailure : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
    }
};

/// Both modes of journal, both sizes of sector, and zvdb.
std::size_t PlayRound(std::uint32_t seed) {
    constexpr std::size_t kWork = 80;
    constexpr std::size_t kFlow = 16;
    std::size_t images = 0;
    std::size_t unsynced = 0;
    for (const char* flow : {"work", "work rollback"}) {
        for (const std::size_t sector : {std::size_t{512}, std::size_t{4096}}) {
            images += ExpectHolds({flow, seed, kWork, sector}, &unsynced);
        }
    }
    for (const std::string& flow : ToolFlows()) {
        const std::size_t sector = seed % 2 == 0 ? 512 : 4096;
        images += ExpectHolds({flow, seed, kFlow, sector}, &unsynced);
    }
    // Where all is on the disk, nothing can be lost.
    EXPECT_GT(unsynced, images / 3);
    return images;
}

TEST_F(PowerFailure, OfTheCorpusLosesNothing) {
    int played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ZV_POWER_CORPUS)) {
        if (entry.path().extension() != ".txt") continue;
        std::ifstream in(entry.path());
        const std::string text(std::istreambuf_iterator<char>(in), {});
        ExpectHolds(PowerPoint::Parse(text));
        played++;
    }
    RecordProperty("played", played);
}
TEST_F(PowerFailure, LeavesASoundFileThatHoldsWhatWasAcknowledged) {
    using Clock = std::chrono::steady_clock;
    constexpr long kLongSeconds = 600;
    constexpr std::size_t kLeast = 300;
    const bool isLong = std::getenv("ZV_LONG") != nullptr;
    const auto end = Clock::now() + std::chrono::seconds(Setting("ZV_SECONDS", kLongSeconds));
    auto seed = static_cast<std::uint32_t>(Setting("ZV_SEED", 1));
    std::size_t images = 0;
    do {
        images += PlayRound(seed++);
    } while (isLong && Clock::now() < end);
    std::printf("%zu images, next seed %u\n", images, seed);
    EXPECT_GE(images, kLeast);
}

}  // namespace
}  // namespace zv::ring
