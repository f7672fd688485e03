// What the rewritten sources of tests/ring/mutants ask: whether the fault of a number is switched
// on. The number comes from the environment; which numbers were asked for at all is noted in a
// shared file.
#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <type_traits>

namespace zv_mutant {

inline int active = -1;
inline unsigned char* hits = nullptr;
inline long hitCount = 0;

// Before anything of the program is made.
__attribute__((constructor(101))) static void Begin() {
    if (active != -1) return;
    const char* number = std::getenv("ZV_MUTANT");
    active = number != nullptr ? std::atoi(number) : 0;
    const char* path = std::getenv("ZV_MUTANT_HITS");
    const int file = path != nullptr ? open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file < 0) return;
    struct stat facts {};
    fstat(file, &facts);
    void* shared = mmap(nullptr, static_cast<std::size_t>(facts.st_size), PROT_READ | PROT_WRITE,
                        MAP_SHARED, file, 0);
    close(file);
    if (shared == MAP_FAILED) return;
    hitCount = facts.st_size;
    hits = static_cast<unsigned char*>(shared);
}

inline bool Active(int number) {
    if (number < hitCount) hits[number] = 1;
    return number == active;
}

// In what the compiler may work out itself no fault is made.
constexpr bool On(int number) {
    return std::is_constant_evaluated() ? false : Active(number);
}

// `a < b` becomes `a < Less<7>{} < b`: the same precedence, so that nothing has to be known of a
// and b.
template <template <int> class Operation, int Number, typename Left>
struct Half {
    const Left& left;
};

// clang-format off
#define ZV_MUTANT_HALF(NAME, ORIGINAL)                                                           \
    template <int Number>                                                                        \
    struct NAME {};                                                                              \
    template <typename Left, int Number>                                                         \
    constexpr Half<NAME, Number, Left> operator ORIGINAL(const Left& left, NAME<Number>) {       \
        return {left};                                                                           \
    }

#define ZV_MUTANT_COMPARISON(NAME, ORIGINAL, FAULT)                                              \
    ZV_MUTANT_HALF(NAME, ORIGINAL)                                                               \
    template <typename Left, int Number, typename Right>                                         \
    constexpr auto operator ORIGINAL(Half<NAME, Number, Left> half, const Right& right)          \
        -> decltype(half.left ORIGINAL right) {                                                  \
        if constexpr (requires { half.left FAULT right; }) {                                     \
            if (On(Number)) return half.left FAULT right;                                        \
        }                                                                                        \
        return half.left ORIGINAL right;                                                         \
    }

// Where the other operation is not known, as between texts, the right side is left out.
#define ZV_MUTANT_ARITHMETIC(NAME, ORIGINAL, FAULT)                                              \
    ZV_MUTANT_HALF(NAME, ORIGINAL)                                                               \
    template <typename Left, int Number, typename Right>                                         \
    constexpr auto operator ORIGINAL(Half<NAME, Number, Left> half, const Right& right) {        \
        using Result = std::decay_t<decltype(half.left ORIGINAL right)>;                         \
        if constexpr (requires { Result(half.left FAULT right); }) {                             \
            if (On(Number)) return Result(half.left FAULT right);                                \
        } else if constexpr (requires { Result(half.left); }) {                                  \
            if (On(Number)) return Result(half.left);                                            \
        }                                                                                        \
        return Result(half.left ORIGINAL right);                                                 \
    }
// clang-format on

ZV_MUTANT_COMPARISON(Less, <, <=)
ZV_MUTANT_COMPARISON(LessEqual, <=, <)
ZV_MUTANT_COMPARISON(Greater, >, >=)
ZV_MUTANT_COMPARISON(GreaterEqual, >=, >)
ZV_MUTANT_COMPARISON(Equal, ==, !=)
ZV_MUTANT_COMPARISON(NotEqual, !=, ==)
ZV_MUTANT_ARITHMETIC(Plus, +, -)
ZV_MUTANT_ARITHMETIC(Minus, -, +)
ZV_MUTANT_ARITHMETIC(Times, *, /)
ZV_MUTANT_ARITHMETIC(Over, /, *)
ZV_MUTANT_ARITHMETIC(Rest, %, *)

}  // namespace zv_mutant
