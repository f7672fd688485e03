// Several workstations on one database, some of them killed on the way (see run.sh).
//
//   zvTorture prepare DATABASE
//   zvTorture work DATABASE NAME JOURNAL SEED SECONDS
//   zvTorture verify DATABASE JOURNAL...
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "base/text.h"
#include "verification.h"
#include "worker.h"

namespace {

int Run(const std::vector<std::string>& words) {
    using namespace zv::torture;
    const std::string task = words.empty() ? "" : words[0];
    if (task == "prepare" && words.size() == 2) {
        Prepare({words[1]});
        return 0;
    }
    if (task == "work" && words.size() == 6) {
        Worker worker({words[1]}, words[2], words[3], static_cast<unsigned>(std::stoul(words[4])));
        std::printf("%d\n", worker.Work(std::chrono::seconds(std::stol(words[5]))));
        return 0;
    }
    if (task == "verify" && words.size() > 2) {
        const Findings findings =
            Verify({words[1]}, std::vector<std::string>(words.begin() + 2, words.end()));
        for (const std::string& sentence : findings.wrong) std::printf("%s\n", sentence.c_str());
        std::printf("%d steps, %d acknowledged, %zu wrong\n", findings.steps, findings.acknowledged,
                    findings.wrong.size());
        return findings.wrong.empty() && findings.acknowledged > 0 ? 0 : 1;
    }
    std::fprintf(stderr, "zvTorture: prepare, work or verify\n");
    return 2;
}

int Main(const std::vector<std::string>& words) {
    try {
        return Run(words);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zvTorture: %s\n", error.what());
        return 2;
    }
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** words) {
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(zv::text::FromUtf16(reinterpret_cast<const char16_t*>(words[i])));
    }
    return Main(arguments);
}
#else
int main(int count, char** words) {
    return Main(std::vector<std::string>(words + 1, words + count));
}
#endif
