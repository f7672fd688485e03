#include "zvdb/upgrade.h"

#include "base/errors.h"
#include "zvdb/check.h"
#include "zvdb/import/embedded_source.h"
#include "zvdb/import/endpoint.h"
#include "zvdb/import/interruption.h"
#include "zvdb/import/server_link.h"
#include "zvdb/import/server_transaction.h"
#include "zvdb/server_inspected.h"

namespace zv::zvdb {
namespace {

std::vector<SidePart> MissingIn(Inspected& database) {
    const auto problems = CheckSchema(database).problems;
    if (!problems.empty()) throw FileError(problems.front());
    return MissingSideTables(database);
}

std::vector<SidePart> MissingInFile(const std::string& path, bool dryRun) {
    try {
        // Somebody's broken-off change is undone by a run that may change something.
        const auto engine = dryRun ? OpenToRead(path) : std::make_unique<Engine>(path);
        return MissingIn(*InspectEmbedded(*engine));
    } catch (const EngineError& error) {
        ThrowFileError(error);
    }
}

/// In one transaction, which ends with the engine when something fails.
std::vector<SidePart> MakeInFile(const std::string& path) {
    Engine engine(path);
    sqlite3_progress_handler(
        engine.Handle(), 10000, [](void*) { return IsInterrupted() ? 1 : 0; }, nullptr);
    engine.Run("begin immediate");
    const auto database = InspectEmbedded(engine);
    const auto damage = database->Damage();
    if (!damage.empty()) throw FileError(damage.front());
    // Another run may have been quicker.
    std::vector<SidePart> missing = MissingIn(*database);
    for (const SidePart& part : missing) engine.Run(part.statement);
    StopIfInterrupted();
    engine.Run("commit");
    return missing;
}

}  // namespace

std::vector<SidePart> UpgradeFile(const std::string& path, bool dryRun) {
    if (IsAccessFile(path)) {
        throw FileError(
            "Access files are read, not written; the statements of side_tables.sql for Access make "
            "the side tables there");
    }
    CheckFile(path);
    const InterruptionGuard guard;
    std::vector<SidePart> missing = MissingInFile(path, dryRun);
    StopIfInterrupted();
    if (dryRun || missing.empty()) return missing;
    try {
        return MakeInFile(path);
    } catch (const EngineError& error) {
        if (error.Code() == SQLITE_INTERRUPT) throw Interrupted();
        // Even the check for damage may give up.
        if (error.Code() == SQLITE_CORRUPT) {
            throw FileError(std::string("damaged file: ") + error.what());
        }
        throw FileError(WhyNotWritten(error));
    }
}

std::vector<SidePart> UpgradeServer(const std::string& server, bool dryRun) {
    std::vector<SidePart> missing;
    {
        ServerLink link(server);
        missing = MissingIn(*InspectServer(link));
    }
    if (dryRun || missing.empty()) return missing;
    ServerLink link(server);
    ServerTransaction transaction(link);
    try {
        const std::string limit(link.Bulk().LimitWaiting());
        if (!limit.empty()) link.Run(limit);
        for (const SidePart& part : missing) link.Run(part.statement);
    } catch (const RuntimeError& error) {
        if (error.Kind() == ErrorKind::Busy)
            throw FileError("another program keeps its tables locked");
        throw;
    }
    transaction.Commit();
    return missing;
}

}  // namespace zv::zvdb
