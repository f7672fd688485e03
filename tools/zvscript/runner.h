// Plays scenario files and tells how they went.
#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "backend_stand.h"
#include "script_engine.h"

namespace zv::script {

struct RunOptions {
    BackendKind backend = BackendKind::Headless;
    std::string engine = "embedded";   ///< see MakeScriptEngine
    bool print = false;                ///< write what "show" asks for
    std::filesystem::path keep;        ///< where the folders stay; empty: they are removed
    std::filesystem::path statements;  ///< a file that takes every statement; empty: none does
};

class Runner {
 public:
    /// `write` takes one line of output, or several, without a line feed at the end.
    Runner(RunOptions options, std::function<void(const std::string&)> write);

    /// Plays the files, each in a folder of its own, and answers the exit status: 0 all passed, 1
    /// some failed, 2 a file could not be read or is wrong.
    int Run(const std::vector<std::string>& files);

 private:
    enum class Outcome { Passed, Failed, Wrong };
    Outcome Play(const std::string& file);
    std::filesystem::path MakeFolder(const std::string& file);

    RunOptions options_;
    std::unique_ptr<ScriptEngine> engine_;
    std::function<void(const std::string&)> write_;
    std::ofstream statements_;
    int folders_ = 0;
};

}  // namespace zv::script
