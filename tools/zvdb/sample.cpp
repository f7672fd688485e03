#include "zvdb/sample.h"

#include <algorithm>
#include <vector>

#include "store/engines/engines.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/database_file.h"
#include "zvdb/import/interruption.h"
#include "zvdb/indexes_aside.h"
#include "zvdb/new_file.h"
#include "zvdb/own_modules.h"
#include "zvdb/sample_parts.h"

namespace zv::zvdb {
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

namespace {

void Fill(Engine& engine, const SampleOptions* options, Progress& progress) {
    if (options != nullptr) return FillSample(engine, *options, progress);
    engine.Run("begin immediate");
    for (const std::string& statement : RegisterOwnModules()) engine.Run(statement);
    engine.Run("commit");
}

}  // namespace

std::vector<std::string> CreateDatabase(const std::string& path, bool replace, bool sideTables,
                                        const SampleOptions* options, Progress& progress) {
    RefuseWhileInUse(path);
    auto aside = NewFile::ToSetAside(path);
    NewFile file(path, {}, replace);
    store::MakeSqliteTables(file.Part());
    {
        Engine engine(file.Part(), SQLITE_OPEN_READWRITE, Engine::Users::Alone);
        // Nobody sees the file before it is complete, so only its end state must be on disk.
        engine.Run("pragma synchronous=off");
        sqlite3_progress_handler(
            engine.Handle(), 10000, [](void*) { return IsInterrupted() ? 1 : 0; }, nullptr);
        if (sideTables) engine.Run(std::string(store::sqlite::EmbeddedEngine().sideTables));
        Fill(engine, options, progress);
    }
    StopIfInterrupted();
    PlaceAndCheck(file, path);
    return aside;
}

}  // namespace zv::zvdb
