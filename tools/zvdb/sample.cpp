#include "zvdb/sample.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "base/path.h"
#include "store/schema/schema.h"
#include "zvdb/indexes_aside.h"
#include "zvdb/sample_parts.h"

namespace zv::zvdb {
namespace {

void RemoveWithLog(const std::string& path) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(PathOf(path + suffix));
    }
}

/// A file that a program has open must not be pulled away under it: its write-ahead log would then
/// be taken for the new file's.
void RefuseWhileInUse(const std::string& path) {
    if (!std::filesystem::exists(PathOf(path))) return;
    try {
        Engine engine(path);
        engine.Run("pragma locking_mode=exclusive; begin exclusive; rollback");
    } catch (const EngineError& error) {
        // Whatever else is wrong with the file is no reason to keep it.
        if (error.Code() == SQLITE_BUSY) throw;
    }
}

}  // namespace

int SampleOptions::Cards() const {
    return cards == kByItems ? std::clamp(items / 50, 120, kMaxCards) : cards;
}

int SampleOptions::Plans() const {
    return plans == kByItems ? std::clamp(items / 200, 16, kMaxPlans) : plans;
}

void FillSample(Engine& engine, const SampleOptions& options, Progress& progress) {
    engine.Run("begin immediate");
    IndexesAside indexes(engine);
    const auto staff = FillStaff(engine, options);
    FillRegistry(engine);
    const auto cards = FillCards(engine, options, progress);
    const int occurrences = options.items / 2 / std::max(1, options.Plans());
    const auto plans = FillPlans(engine, options, occurrences, staff, progress);
    FillItems(engine, options, plans, cards, staff, progress);
    indexes.MakeAgain(progress);
    progress.Finish();
    engine.Run("commit");
}

void CreateDatabase(const std::string& path, const SampleOptions* options, Progress& progress) {
    const std::string part = path + ".zvdb-part";
    RefuseWhileInUse(path);
    RemoveWithLog(part);
    try {
        store::CreateSqliteDatabase(part);
        if (options != nullptr) {
            Engine engine(part);
            // Nobody sees the file before it is complete, so only its end state must be on disk.
            engine.Run("pragma synchronous=off");
            engine.Run("pragma journal_mode=memory");
            FillSample(engine, *options, progress);
            engine.Run("pragma journal_mode=wal");
        }
        RemoveWithLog(path);
        std::filesystem::rename(PathOf(part), PathOf(path));
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(PathOf(part), ignored);
        throw;
    }
}

}  // namespace zv::zvdb
