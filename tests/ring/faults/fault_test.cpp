#include "fault_test.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace zv::ring {

bool IsLong() {
    return std::getenv("ZV_LONG") != nullptr;
}

void UseMemoryFolder() {
    if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
}

void ExpectNoFindings(const Tally& tally) {
    for (const std::string& finding : tally.findings) ADD_FAILURE() << finding;
    // What fails at no call at all has not been disturbed.
    EXPECT_GT(tally.points, 0);
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
