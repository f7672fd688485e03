#include "runner.h"

#include <iterator>
#include <random>

#include "base/path.h"
#include "base/text.h"
#include "disturbance.h"
#include "monkey/monkey.h"
#include "monkey/shrinking.h"
#include "monkey/watched_playback.h"
#include "playback.h"
#include "scenario_stage.h"

namespace zv::script {
namespace {

std::string ReadFile(const std::string& file) {
    const std::filesystem::path path = PathOf(file);
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) throw ScriptError("no such file");
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw ScriptError("the file cannot be read");
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad()) throw ScriptError("the file cannot be read");
    return text;
}

/// Removes the folder in the end, unless it is to be kept.
class Folder {
 public:
    Folder(std::filesystem::path path, bool keep) : path_(std::move(path)), keep_(keep) {}
    ~Folder() {
        std::error_code failure;
        if (!keep_) std::filesystem::remove_all(path_, failure);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    const std::filesystem::path& Path() const { return path_; }

 private:
    std::filesystem::path path_;
    bool keep_;
};

}  // namespace

Runner::Runner(RunOptions options, std::function<void(const std::string&)> write)
    : options_(std::move(options)),
      engine_(MakeScriptEngine(options_.engine)),
      write_(std::move(write)) {
    if (options_.statements.empty()) return;
    statements_.open(options_.statements, std::ios::binary);
    if (!statements_) throw ScriptError("the file of the statements cannot be written");
}

int Runner::Run(const std::vector<std::string>& files) {
    int passed = 0;
    int failed = 0;
    bool wrong = false;
    for (const std::string& file : files) {
        const Verdict verdict = Play(file);
        if (verdict == Verdict::Passed) {
            passed++;
        } else {
            failed++;
        }
        if (verdict == Verdict::Wrong) wrong = true;
    }
    write_(std::to_string(passed) + " passed, " + std::to_string(failed) + " failed");
    return wrong ? 2 : failed > 0 ? 1 : 0;
}

Runner::Verdict Runner::Play(const std::string& file) {
    try {
        const std::string text = ReadFile(file);
        if (!options_.disturb.empty()) return PlayDisturbed(file, text);
        if (options_.watch) return PlayWatched(file, text);
        Playback playback(CompileScript(text));
        PlayFresh(file, playback);
        const Verdict verdict = Report(file, playback);
        if (verdict == Verdict::Passed) write_("ok " + file);
        return verdict;
    } catch (const ScriptError& error) {
        const std::string line = error.Line() > 0 ? ':' + std::to_string(error.Line()) : "";
        write_("FAIL " + file + line + ": " + error.Reason());
        return Verdict::Wrong;
    }
}

Runner::Verdict Runner::Report(const std::string& file, const Playback& playback) {
    if (!playback.Failed()) return Verdict::Passed;
    write_("FAIL " + file + ':' + std::to_string(playback.FailedLine()) + ": " + playback.Reason());
    return playback.Wrong() ? Verdict::Wrong : Verdict::Failed;
}

void Runner::PlayFresh(const std::string& file, Player& player) {
    const Folder folder(MakeFolder(file), !options_.keep.empty());
    {
        ScenarioStage* playing = nullptr;
        ScenarioStage stage(folder.Path(), options_.backend, *engine_,
                            {.modal = [&](forms::Form& form) { player.RunInside(*playing, form); },
                             .menu = [&] { player.RunInMenu(*playing); }});
        playing = &stage;
        stage.dialogs.whileStanding = [&](const StandingBox& box) {
            player.RunWhileStanding(stage, box);
        };
        stage.dialogs.onAnswered = [&](const std::string& line) { player.OnAnswered(line); };
        if (options_.print) stage.print = write_;
        stage.pictures = options_.pictures;
        if (statements_.is_open()) {
            stage.statements.onStatement = [this](const std::string& sql) {
                statements_ << text::Replace(sql, "\r\n", " ") << '\n';
            };
        }
        player.Run(stage);
    }
    engine_->Clear();
}

Runner::Verdict Runner::PlayDisturbed(const std::string& file, const std::string& text) {
    const Disturbance disturbance = MakeDisturbance(options_.disturb);
    QuestionWatcher undisturbed;
    Playback first(CompileScript(text), &undisturbed);
    PlayFresh(file, first);
    Verdict verdict = Report(file, first);
    if (verdict != Verdict::Passed) return verdict;
    for (const auto& [question, expected] : undisturbed.Outcomes()) {
        QuestionWatcher watcher(question, disturbance);
        Playback playback(CompileScript(text), &watcher);
        PlayFresh(file, playback);
        std::string wrong = watcher.Twice().empty() ? "" : "stands twice: " + watcher.Twice();
        const auto& outcomes = watcher.Outcomes();
        if (const auto at = outcomes.find(question); at != outcomes.end()) {
            if (wrong.empty()) wrong = Judge(expected, at->second);
        } else if (wrong.empty()) {
            wrong = "the question did not come up: " + playback.Reason();
        }
        if (wrong.empty()) continue;
        write_("FAIL " + file + ':' + std::to_string(expected.line) + ": " + disturbance.name +
               " while " + Quote(expected.box) + " stood: " + wrong);
        verdict = Verdict::Failed;
    }
    if (verdict == Verdict::Passed) {
        write_("ok " + file + " (" + std::to_string(undisturbed.Outcomes().size()) + " disturbed)");
    }
    return verdict;
}

Runner::Verdict Runner::PlayWatched(const std::string& file, const std::string& text) {
    WatchedPlayback watched(text);
    PlayFresh(file, watched.Lines());
    if (watched.Fault().empty()) {
        write_("ok " + file + " (watched)");
        return Verdict::Passed;
    }
    write_("FAIL " + file + ':' + std::to_string(watched.FaultyLine()) + ": " + watched.Fault());
    return Verdict::Failed;
}

std::string Runner::FaultOf(const std::string& file, const std::string& text) {
    WatchedPlayback watched(text);
    PlayFresh(file, watched.Lines());
    return watched.Fault();
}

int Runner::RunMonkey(std::uint32_t seed, int steps, const std::string& file) {
    constexpr int kMostPlayings = 400;
    const std::string name = "seed " + std::to_string(seed);
    const auto write = [&](const std::vector<RecordedAct>& acts) {
        std::ofstream stream(PathOf(file), std::ios::binary);
        stream << "# " << name << '\n' << ToScenario(acts);
        if (!stream.flush()) throw ScriptError("the file of the scenario cannot be written");
    };
    Monkey monkey(seed, steps);
    monkey.onLine = write;
    PlayFresh(file, monkey);
    if (monkey.Fault().empty()) {
        std::filesystem::remove(PathOf(file));
        write_("ok " + name + " (" + std::to_string(monkey.Acts().size()) + " lines)");
        return 0;
    }
    // Making it shorter takes long: what there is so far is written first.
    write(monkey.Acts());
    write_("FAIL " + name + ": " + monkey.Fault() + "\n  played by " + file);
    // The same fault, whatever rows or controls it names.
    const std::string kind = monkey.Fault().substr(0, monkey.Fault().find(':'));
    const auto shortest = Shrink(monkey.Acts(), 0, kMostPlayings, [&](const auto& acts) {
        const bool fails = FaultOf(file, ToScenario(acts)).starts_with(kind);
        if (fails) write(acts);
        return fails;
    });
    write_("  " + std::to_string(shortest.size()) + " of " + std::to_string(monkey.Acts().size()) +
           " lines");
    return 1;
}

std::filesystem::path Runner::MakeFolder(const std::string& file) {
    if (!options_.keep.empty()) {
        const std::string name = Utf8Of(PathOf(file).stem());
        for (int number = 1;; number++) {
            const std::string suffix = number == 1 ? "" : '-' + std::to_string(number);
            std::filesystem::path folder = options_.keep / PathOf(name + suffix);
            std::filesystem::create_directories(options_.keep);
            if (std::filesystem::create_directory(folder)) return folder;
        }
    }
    static const unsigned run = std::random_device()();
    const std::filesystem::path temporary = std::filesystem::temp_directory_path();
    for (;;) {
        std::filesystem::path folder = temporary / PathOf("zvscript-" + std::to_string(run) + '-' +
                                                          std::to_string(++folders_));
        if (std::filesystem::create_directory(folder)) return folder;
    }
}

}  // namespace zv::script
