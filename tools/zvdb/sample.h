// Fills an empty database with data as a business that has used the system for a while would have.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "zvdb/engine.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

struct SampleOptions {
    static constexpr int kMaxItems = 5'000'000;
    static constexpr int kMaxCards = 1'000'000;
    static constexpr int kMaxPlans = 32'000;  ///< plan numbers are 16-bit numbers
    static constexpr int kByItems = -1;       ///< as many as suit the number of items

    int items = 400;
    int cards = kByItems;
    int plans = kByItems;
    DateTime today;
    std::uint64_t seed = 7;

    /// Mixed: mostly Simplified, as in a firm with an office in Taipei.
    enum class Script : std::uint8_t { Mixed, Simplified, Traditional };
    Script script = Script::Mixed;
    /// In which script something is written that the other script might be drawn for.
    bool IsTraditional(bool drawn) const {
        return script == Script::Mixed ? drawn : script == Script::Traditional;
    }

    int Cards() const;
    int Plans() const;
};

/// `engine` has the whole schema and no rows. Everything is written in one transaction; the same
/// options give the same rows.
void FillSample(Engine& engine, const SampleOptions& options, Progress& progress);

/// Creates `path` with the schema, and the sample data when `options` is given, else only the
/// modules that the windows ask for; and the side tables when `sideTables`. The file appears
/// under its name only when it is complete, and is checked there; one that was there is replaced
/// when `replace`. Answers what was set aside, a sentence each. Throws EngineError, RuntimeError,
/// FileError, Interrupted or std::filesystem::filesystem_error.
std::vector<std::string> CreateDatabase(const std::string& path, bool replace, bool sideTables,
                                        const SampleOptions* options, Progress& progress);

}  // namespace zv::zvdb
