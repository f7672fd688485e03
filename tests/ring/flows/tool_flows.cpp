#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <stdexcept>
#include <streambuf>

#include "base/path.h"
#include "ring/disk/watched_disk.h"
#include "ring/flows/makers.h"
#include "temporary_folder.h"
#include "zvdb/engine.h"
#include "zvdb/journal.h"
#include "zvdb/tool.h"

namespace zv::ring {
namespace {

namespace fs = std::filesystem;

constexpr int kWithRemarks = 1;
const DateTime kToday(2003, 3, 7);

std::string Bytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}
void WriteBytes(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

/// All rows of all tables.
std::string Dump(const fs::path& file) {
    zvdb::Engine engine(Utf8Of(file));
    std::string dump;
    std::vector<std::string> tables;
    {
        zvdb::Statement names(engine,
                              "select name from sqlite_schema where type='table' order by name");
        while (names.Step()) tables.push_back(names.Text(0));
    }
    for (const std::string& table : tables) {
        dump += "[" + table + "]\n";
        zvdb::Statement rows(engine, "select * from \"" + table + "\" order by rowid");
        while (rows.Step()) {
            for (int column = 0; column < rows.ColumnCount(); column++) {
                dump += rows.Text(column) + '|';
            }
            dump += '\n';
        }
    }
    return dump;
}

struct Run {
    int status = -1;
    std::string said;
};

/// Has room for all that a run says, so that a console without memory loses nothing.
class Console final : public std::streambuf {
 public:
    Console() { setp(said_.data(), said_.data() + said_.size()); }
    std::string Said() const { return std::string(pbase(), pptr()); }

 private:
    std::array<char, 1 << 15> said_{};
};

using Guard = std::function<std::shared_ptr<void>()>;

Run RunZvdb(const std::vector<std::string>& arguments, const Guard& guard = {}) {
    std::shared_ptr<void> held = guard ? guard() : nullptr;
    const auto console = std::make_unique<Console>();
    std::ostream said(console.get());
    Run run;
    held.reset();
    run.status = zvdb::RunTool(arguments, kToday, {said, said});
    held = guard ? guard() : nullptr;
    run.said = console->Said();
    return run;
}

/// The bytes of a small database, in roll-back mode so that one file holds it all.
const std::string& SampleBytes(const std::string& seed) {
    static std::map<std::string, std::string> kept;
    std::string& bytes = kept[seed];
    if (bytes.empty()) {
        const WatchedDisk::Unwatched unwatched;
        const test::TemporaryFolder folder;
        const std::string file = Utf8Of(folder / "s.db");
        RunZvdb({"sample", file, "--items", "60", "--cards", "5", "--plans", "2", "--seed", seed,
                 "--quiet"});
        RunZvdb({"mode", file, "rollback"});
        bytes = Bytes(folder / "s.db");
    }
    return bytes;
}

/// What a kind of flow is: "SOURCE" and "TARGET" in its words stand for the two files.
struct Kind {
    const char* name;
    std::vector<std::string> words;
    const char* source;       ///< seed of the source's data; null: none
    const char* target;       ///< of what is there before; null: nothing
    bool neighbours = false;  ///< a log and a journal of another file lie beside the target
};

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds = {
        {.name = "create", .words = {"create", "TARGET"}, .source = nullptr, .target = nullptr},
        {.name = "beside",
         .words = {"create", "TARGET"},
         .source = nullptr,
         .target = nullptr,
         .neighbours = true},
        {.name = "replace",
         .words = {"create", "TARGET", "--force"},
         .source = nullptr,
         .target = "3"},
        {.name = "sample",
         .words = {"sample", "TARGET", "--items", "30", "--cards", "4", "--plans", "2", "--quiet"},
         .source = nullptr,
         .target = nullptr},
        {.name = "import",
         .words = {"import", "SOURCE", "TARGET", "--quiet"},
         .source = "5",
         .target = nullptr},
        {.name = "reimport",
         .words = {"import", "SOURCE", "TARGET", "--replace", "--quiet"},
         .source = "5",
         .target = "3"},
        {.name = "backup",
         .words = {"backup", "SOURCE", "TARGET", "--quiet"},
         .source = "5",
         .target = nullptr},
        {.name = "restore",
         .words = {"restore", "SOURCE", "TARGET", "--replace", "--quiet"},
         .source = "5",
         .target = "3"},
        {.name = "upgrade", .words = {"upgrade", "TARGET"}, .source = nullptr, .target = "3"},
        {.name = "mode", .words = {"mode", "TARGET", "wal"}, .source = nullptr, .target = "3"},
    };
    return kinds;
}

class ToolFlow final : public Flow {
 public:
    ToolFlow(const Kind& kind, Guard guard)
        : kind_(kind), after_(After(kind)), guard_(std::move(guard)) {
        Prepare(kind, folder_);
        if (kind.target != nullptr) before_ = Dump(Target());
    }

    Outcome Act() override {
        std::shared_ptr<void> held = guard_ ? guard_() : nullptr;
        {
            // Who tries again has taken away what was in the way.
            const WatchedDisk::Unwatched unwatched;
            if (kind_.target == nullptr && fs::exists(Target())) RemoveTarget();
        }
        const std::vector<std::string> words = Words(kind_, folder_);
        held.reset();
        const Run run = RunZvdb(words, guard_);
        held = guard_ ? guard_() : nullptr;
        said_ = run.said;
        acts_++;
        const bool remarks = kind_.words.front() == "import" && run.status == kWithRemarks;
        Outcome outcome;
        outcome.acknowledged = run.status == 0 || remarks;
        if (!outcome.acknowledged) outcome.told = run.said;
        return outcome;
    }

    fs::path Folder() const override { return folder_.Path(); }

    std::vector<std::string> WrongIn(const fs::path& folder, bool acknowledged) override {
        const WatchedDisk::Unwatched unwatched;
        std::vector<std::string> wrong;
        const fs::path target = folder / "target.db";
        if (fs::exists(target)) {
            wrong = WrongWithFile(Utf8Of(target));
            if (!wrong.empty()) return wrong;
            const std::string rows = Dump(target);
            if (rows != after_ && (acknowledged || kind_.target == nullptr || rows != before_)) {
                wrong.emplace_back("the target holds neither what it held nor what it should");
            }
        } else if (acknowledged || kind_.target != nullptr) {
            wrong.emplace_back("the target is missing");
        }
        if (kind_.source != nullptr && Dump(folder / "source.db") != SourceRows()) {
            wrong.emplace_back("the source has changed");
        }
        if (kind_.neighbours) CheckNeighbours(folder, wrong);
        // What could not be removed goes with the next attempt.
        if (acknowledged && acts_ > 1) CheckNames(wrong);
        return wrong;
    }

 private:
    static constexpr std::array<const char*, 2> kNeighbours = {"-wal", "-journal"};

    static void Prepare(const Kind& kind, const test::TemporaryFolder& folder) {
        if (kind.source != nullptr) WriteBytes(folder / "source.db", SampleBytes(kind.source));
        if (kind.target != nullptr) WriteBytes(folder / "target.db", SampleBytes(kind.target));
        if (!kind.neighbours) return;
        for (const char* suffix : kNeighbours)
            WriteBytes(folder / ("target.db" + std::string(suffix)), suffix);
    }

    static std::vector<std::string> Words(const Kind& kind, const test::TemporaryFolder& folder) {
        std::vector<std::string> words = kind.words;
        for (std::string& word : words) {
            if (word == "SOURCE") word = Utf8Of(folder / "source.db");
            if (word == "TARGET") word = Utf8Of(folder / "target.db");
        }
        return words;
    }

    /// The rows that the target holds when all goes well.
    static const std::string& After(const Kind& kind) {
        static std::map<std::string, std::string> kept;
        std::string& rows = kept[kind.name];
        if (rows.empty()) {
            const WatchedDisk::Unwatched unwatched;
            const test::TemporaryFolder folder;
            Prepare(kind, folder);
            const Run run = RunZvdb(Words(kind, folder));
            if (run.status != 0 && run.status != kWithRemarks) {
                throw std::runtime_error(std::string(kind.name) + " does not work: " + run.said);
            }
            rows = Dump(folder / "target.db");
        }
        return rows;
    }

    fs::path Target() const { return folder_ / "target.db"; }

    void RemoveTarget() {
        for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
            fs::remove(folder_ / ("target.db" + std::string(suffix)));
        }
    }

    const std::string& SourceRows() {
        static std::map<std::string, std::string> kept;
        std::string& rows = kept[kind_.source];
        if (rows.empty()) {
            const test::TemporaryFolder folder;
            WriteBytes(folder / "s.db", SampleBytes(kind_.source));
            rows = Dump(folder / "s.db");
        }
        return rows;
    }

    /// What belonged to another file is where it was, or set aside and the user knows where.
    void CheckNeighbours(const fs::path& folder, std::vector<std::string>& wrong) const {
        if (acts_ > 1) return;
        for (const std::string suffix : kNeighbours) {
            if (Bytes(folder / ("target.db" + suffix)) == suffix) continue;
            const std::string aside = "target.db.aside" + suffix;
            if (Bytes(folder / aside) != suffix) {
                wrong.push_back("the other file's " + suffix + " is gone");
            } else if (folder == Folder() && said_.find(aside) == std::string::npos) {
                wrong.push_back("the other file's " + suffix + " is aside and nobody said so");
            }
        }
    }

    /// Nothing lies about that only serves the work.
    void CheckNames(std::vector<std::string>& wrong) {
        for (const std::string& name : folder_.Names()) {
            if (name.find(".zvdb-") != std::string::npos) wrong.push_back(name + " is left over");
        }
    }

    const Kind& kind_;
    const std::string& after_;
    Guard guard_;
    test::TemporaryFolder folder_;
    std::string before_;
    std::string said_;
    int acts_ = 0;
};

}  // namespace

const std::vector<std::string>& ToolFlows() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const Kind& kind : Kinds()) all.emplace_back(kind.name);
        return all;
    }();
    return names;
}

std::unique_ptr<Flow> MakeToolFlow(const std::string& name, const FlowOptions& options) {
    for (const Kind& kind : Kinds()) {
        if (name == kind.name) return std::make_unique<ToolFlow>(kind, options.boxGuard);
    }
    return nullptr;
}

}  // namespace zv::ring
