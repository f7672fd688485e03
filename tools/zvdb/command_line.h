// What the user asked for.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "zvdb/import/command.h"
#include "zvdb/sample.h"

namespace zv::zvdb {

enum class Command { Help, Version, Create, Sample, Check, Upgrade, Import, Mode, Backup, Restore };

struct CommandLine {
    Command command = Command::Help;
    std::string file;    ///< empty with a server
    std::string server;  ///< empty with a file
    std::string second;  ///< where a backup goes to, what it is restored into, the mode to be
    bool replace = false;
    bool force = false;
    bool quiet = false;
    bool dryRun = false;
    bool sideTables = false;
    SampleOptions sample;
    ImportCommand import;
};

class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// `arguments` without the program's name. `today` stands where no other day is given. Throws
/// UsageError.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments, DateTime today);

/// What the argument names: itself, or for "@FILE" the first line of FILE. Throws UsageError.
std::string Named(const std::string& argument);

extern const char kHelp[];

}  // namespace zv::zvdb
