// What the harness changes in its own tests.
#include "ages.h"

namespace sample {

static_assert(1 + 1 == 2);

bool MayVote(int age, bool isCitizen) {
    return age >= 18 && isCitizen;
}

std::string Greeting(const std::string& name) {
    if (name.empty()) return "Hello";
    return "Hello " + name;
}

int Sum(const int* numbers, int count) {
    int sum = 0;
    for (int i = 0; i < count; ++i) {
        sum += numbers[i];
    }
    Note(sum);
    return sum;
}

constexpr int Twice(int number) {
    return number * 2;
}

int Known() {
    static_assert(Twice(2) == 4);
    switch (Twice(1)) {
        case 2:
            return Twice(3);
        default:
            break;
    }
    return -1;
}

}  // namespace sample
