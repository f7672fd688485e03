// Plays scenario files and reports how they went.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "backend_stand.h"
#include "playback.h"
#include "script_engine.h"

namespace zv::script {

struct RunOptions {
    BackendKind backend = BackendKind::Headless;
    std::string engine = "embedded";   ///< see MakeScriptEngine
    bool print = false;                ///< write what "show" asks for
    std::filesystem::path keep;        ///< where the folders stay; empty: they are removed
    std::string disturb;               ///< see MakeDisturbance; empty: files are only played
    std::filesystem::path pictures;    ///< where "picture" writes to; empty: it writes nothing
    std::filesystem::path statements;  ///< a file that takes every statement; empty: none does
    bool watch = false;                ///< check what must always hold after each line
};

class Runner {
 public:
    /// `write` takes one line of output, or several, without a line feed at the end.
    Runner(RunOptions options, std::function<void(const std::string&)> write);

    /// Plays the files, each in a folder of its own, and answers the exit status: 0 all passed, 1
    /// some failed, 2 a file could not be read or is wrong.
    int Run(const std::vector<std::string>& files);
    /// Plays `steps` acts chosen by `seed`. The scenario of them stands in `file` as long as they
    /// are played, and, made as short as it can be, afterwards when something did not hold. Answers
    /// the exit status as Run.
    int RunMonkey(std::uint32_t seed, int steps, const std::string& file);

 private:
    enum class Verdict { Passed, Failed, Wrong };
    Verdict Play(const std::string& file);
    /// Plays the lines in a fresh folder.
    void PlayFresh(const std::string& file, Player& player);
    /// What does not hold in a playing of the lines; empty when everything does.
    std::string FaultOf(const std::string& file, const std::string& text);
    /// Plays the file once for each of its questions, disturbed; reports what is wrong.
    Verdict PlayWatched(const std::string& file, const std::string& text);
    Verdict PlayDisturbed(const std::string& file, const std::string& text);
    Verdict Report(const std::string& file, const Playback& playback);
    std::filesystem::path MakeFolder(const std::string& file);

    RunOptions options_;
    std::unique_ptr<ScriptEngine> engine_;
    std::function<void(const std::string&)> write_;
    std::ofstream statements_;
    int folders_ = 0;
};

}  // namespace zv::script
