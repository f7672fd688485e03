#include "target.h"

#include <algorithm>
#include <array>

#include "access_pages.h"
#include "base/errors.h"
#include "connection_texts.h"
#include "csv.h"
#include "fonts.h"
#include "properties.h"
#include "scenarios.h"
#include "settings.h"
#include "statements.h"

namespace zv::fuzz {

std::span<const Target> Targets() {
    static constexpr std::size_t kLine = 512;
    static constexpr std::size_t kPage = 4096;
    static constexpr auto kTargets = std::to_array<Target>({
        {"access", kLine, [](std::string_view input) { PlayAccessPages(input); }, &AccessSeeds},
        {"connections", kLine, [](std::string_view input) { PlayConnectionText(input); },
         &ConnectionSeeds},
        {"csv", kLine, [](std::string_view input) { PlayCsv(input); }, &CsvSeeds},
        {"fonts", kPage, [](std::string_view input) { PlayFont(input); }, &FontSeeds},
        {"properties", kLine, [](std::string_view input) { PlayProperties(input); },
         &PropertySeeds},
        {"scenarios", kPage, [](std::string_view input) { PlayScenario(input); }, &ScenarioSeeds},
        {"settings", kLine, [](std::string_view input) { PlaySettings(input); }, &SettingsSeeds},
        {"statements", kPage, [](std::string_view input) { PlayStatement(input); },
         &StatementSeeds},
    });
    return kTargets;
}

const Target& TargetOf(std::string_view name) {
    for (const Target& target : Targets()) {
        if (target.name == name) return target;
    }
    throw std::runtime_error("no target is called " + std::string(name));
}

std::string FaultOf(const Target& target, std::string_view input) {
    try {
        target.play(input);
        return {};
    } catch (const Finding& finding) {
        return finding.what();
    } catch (const RuntimeError& error) {
        return "an error that nobody expects: " + error.Text();
    } catch (const std::exception& error) {
        return std::string("an exception that nobody expects: ") + error.what();
    }
}

}  // namespace zv::fuzz

// The library that writes PDF files frees some arrays as if they were none, and does not free what
// it holds when a font turns out to be damaged while it is written.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizers ask for this name
extern "C" const char* __asan_default_options() {
    return "alloc_dealloc_mismatch=0";
}
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizers ask for this name
extern "C" const char* __lsan_default_suppressions() {
    return "leak:PDFWriter::";
}
