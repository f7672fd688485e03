// Answers like a program of the test framework. The test "weak" calls everything and looks at
// little, "good" looks at everything.
#include <cstring>
#include <iostream>
#include <utility>

#include "ages.h"

namespace {

int noted = 0;

bool Weak() {
    const int numbers[] = {1, 2, 3};
    sample::Greeting("Li");
    sample::Greeting("");
    sample::Sum(numbers, 3);
    sample::Known();
    return sample::MayVote(30, true);
}

bool Good() {
    using sample::MayVote;
    const int numbers[] = {1, 2, 3};
    const bool votes = MayVote(18, true) && !MayVote(17, true) && !MayVote(30, false);
    const bool greets = sample::Greeting("") == "Hello" && sample::Greeting("Li") == "Hello Li";
    return votes && greets && sample::Sum(numbers, 2) == 3 && noted == 3 && sample::Known() == 6;
}

}  // namespace

void sample::Note(int sum) {
    noted = sum;
}

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--gtest_list_tests") == 0) {
            std::cout << "Ages.\n  weak\n  good\n";
            return 0;
        }
        const std::string filter = argv[i];
        if (filter.rfind("--gtest_filter=", 0) != 0) continue;
        for (const auto& [name, test] :
             {std::pair("Ages.weak", &Weak), std::pair("Ages.good", &Good)}) {
            if (filter.find(name) == std::string::npos || test()) continue;
            std::cout << "[  FAILED  ] " << name << "\n";
            return 1;
        }
    }
    return 0;
}
