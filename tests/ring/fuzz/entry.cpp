// The entry point of a target for libFuzzer; ZV_FUZZ_TARGET is its name.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zv::fuzz::Target& target = zv::fuzz::TargetOf(ZV_FUZZ_TARGET);
    const std::string fault =
        zv::fuzz::FaultOf(target, {reinterpret_cast<const char*>(data), size});
    if (!fault.empty()) {
        std::fprintf(stderr, "finding: %s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
