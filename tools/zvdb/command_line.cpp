#include "zvdb/command_line.h"

#include <charconv>
#include <cstdint>
#include <fstream>
#include <string_view>

#include "base/path.h"
#include "base/text.h"

namespace zv::zvdb {

const char kHelp[] =
    R"(zvdb - makes, fills, checks and moves databases of the task manager

  zvdb create FILE [--force] [--side-tables]
  zvdb create --to SERVER [--force] [--side-tables] [options of sample]
      Creates a database to start with, or its tables in a database of a server: without
      items, with the modules registered that the windows ask for. An import may fill it.
  zvdb sample FILE [--items N] [--cards N] [--plans N] [--today DATE] [--seed S]
                   [--script simplified|traditional] [--force] [--side-tables] [--quiet]
  zvdb sample --to SERVER with the same options
      Creates a database with sample data around DATE (YYYY-MM-DD; this day when
      left out). The same numbers, day and seed give the same data. 400 items when
      left out; cards and plans grow with the items. Texts and names are in both
      scripts, as people of two offices write them, or in one with --script.
  zvdb check FILE
  zvdb check --to SERVER
      Shows the rows of each table, and everything that is wrong: damage, missing
      tables and columns, references to rows that are gone, values out of range.
  zvdb upgrade FILE [--dry-run]
  zvdb upgrade --to SERVER [--dry-run]
      Makes the side tables as far as they are missing, and shows what it made: what
      users put off or dismissed, who did what, and an index that finds what is due. A
      database without them works as well. The tables of the system stay as they are.
      Access files are only read; there the statements of side_tables.sql make them.
  zvdb import FROM TO [--dry-run] [--replace] [--quiet]
      Copies all tables, compares counts and sums, and reports what did not fit. FROM
      is an Access file, an embedded file or a server, TO an embedded file or a
      SERVER with tables (create --to), but not by "HOST" alone. FROM is only read. A
      TO that holds rows is refused without --replace. It gets the side tables when
      FROM has them.
  zvdb backup FILE TO [--force] [--quiet]
      Copies an embedded file that programs may have open, as it is at one moment,
      and checks the copy. Copying FILE by other means loses what is in its log.
  zvdb restore BACKUP FILE [--replace] [--quiet]
      Checks BACKUP, then puts it into FILE. One that is there is refused without
      --replace; programs may have it open, they go on with the new contents.
  zvdb mode FILE [rollback|wal]
      Shows in which journal mode an embedded file is, or changes it while no program
      has it open. "wal", the mode of new files, lets programs of one machine read and
      write at once. On a network share it would destroy the file, so programs refuse
      it there; "rollback" is for files that several machines share.
  zvdb --version
      Shows the versions of this program and of the libraries inside it.

  SERVER is named as the control's data path names it: "postgresql:HOST",
  "postgresql://HOST:PORT/DATABASE", "HOST" or "HOST\INSTANCE" for SQL Server, or a
  whole connection string ("Driver={PostgreSQL Unicode};Server=HOST;Database=NAME;
  Uid=USER;Pwd=PASSWORD"). Its tables are those seen without naming a schema. "@FILE"
  stands for the first line of FILE: other users can read a command line, and the
  password in it.

  --force   replaces a file that is there, or the tables of the system on a SERVER with
            their side tables; without it nothing is ever overwritten
  --side-tables
            makes the side tables, too
  --dry-run reads and judges everything, writes nothing
  --replace empties the tables of TO first, side tables too; all in one step with the
            import. A restore takes the place of all that FILE holds
  --quiet   shows no progress

Exit status:
  0  all is well; after an import, a backup or a restore check finds nothing in the copy
  1  check found something wrong, or an import is complete with remarks, none of which
     check would find in the copy
  2  wrong arguments, a file that cannot be made or read, or an upgrade, import,
     backup or restore that was not made: what was there is as it was
  3  an import, a backup or a restore is complete, but the copy holds what check finds
     fault with, reported as "wrong", or could not be checked. A dry run does not look for it
)";

namespace {

template <class T>
T Whole(const std::string& option, const std::string& text, T low, T high) {
    T number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < low || number > high) {
        throw UsageError(option + " wants a whole number from " + std::to_string(low) + " to " +
                         std::to_string(high) + ", not \"" + text + "\"");
    }
    return number;
}

}  // namespace

std::string Named(const std::string& argument) {
    if (!argument.starts_with('@')) return argument;
    const std::string file = argument.substr(1);
    std::ifstream in(PathOf(file), std::ios::binary);
    std::string line;
    if (!std::getline(in, line)) throw UsageError("\"" + file + "\" has no line that can be read");
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    line = text::Trim(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    if (line.empty()) throw UsageError("the first line of \"" + file + "\" is empty");
    return line;
}

namespace {

DateTime Day(const std::string& text) {
    const auto day = DateTime::Parse(text);
    if (!day || text.size() != 10 || day->Year() < 1900 || day->Year() > 9900) {
        throw UsageError("--today wants a day as YYYY-MM-DD, not \"" + text + "\"");
    }
    return *day;
}

SampleOptions::Script ScriptOf(const std::string& name) {
    if (name == "simplified") return SampleOptions::Script::Simplified;
    if (name == "traditional") return SampleOptions::Script::Traditional;
    throw UsageError("--script wants simplified or traditional, not \"" + name + "\"");
}

Command CommandNamed(const std::string& name) {
    if (name == "create") return Command::Create;
    if (name == "sample") return Command::Sample;
    if (name == "check") return Command::Check;
    if (name == "upgrade") return Command::Upgrade;
    if (name == "import") return Command::Import;
    if (name == "mode") return Command::Mode;
    if (name == "backup") return Command::Backup;
    if (name == "restore") return Command::Restore;
    throw UsageError("there is no command \"" + name + "\"");
}

ImportCommand ParseImport(const std::vector<std::string>& arguments) {
    ImportCommand command;
    std::vector<std::string> names;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--dry-run") {
            command.dryRun = true;
        } else if (argument == "--replace") {
            command.replace = true;
        } else if (argument == "--quiet") {
            command.quiet = true;
        } else if (argument.starts_with("--")) {
            throw UsageError(R"("import" has no option ")" + argument + '"');
        } else {
            names.push_back(argument);
        }
    }
    if (names.size() != 2) throw UsageError("import wants two names, FROM and TO");
    command.from = Named(names[0]);
    command.to = Named(names[1]);
    return command;
}

/// Commands about one embedded file and something else.
void ParseFileCommand(const std::vector<std::string>& arguments, CommandLine& line) {
    const std::string& name = arguments[0];
    std::vector<std::string> names;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--force" && line.command == Command::Backup) {
            line.force = true;
        } else if (argument == "--replace" && line.command == Command::Restore) {
            line.replace = true;
        } else if (argument == "--quiet" && line.command != Command::Mode) {
            line.quiet = true;
        } else if (argument.starts_with("--")) {
            throw UsageError("\"" + name + "\" has no option \"" + argument + "\"");
        } else {
            names.push_back(argument);
        }
    }
    if (line.command == Command::Mode) {
        const bool known = names.size() < 2 || names[1] == "rollback" || names[1] == "wal";
        if (names.empty() || names.size() > 2 || !known) {
            throw UsageError(R"(mode wants a file name and perhaps "rollback" or "wal")");
        }
    } else if (names.size() != 2) {
        throw UsageError(line.command == Command::Backup
                             ? "backup wants two names, FILE and TO"
                             : "restore wants two names, BACKUP and FILE");
    }
    line.file = names[0];
    if (names.size() == 2) line.second = names[1];
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments, DateTime today) {
    CommandLine line;
    line.sample.today = today;
    if (arguments.empty()) throw UsageError("a command is missing");
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "-h") return line;
    }
    if (arguments.size() == 1 && arguments[0] == "--version") {
        line.command = Command::Version;
        return line;
    }
    line.command = CommandNamed(arguments[0]);
    if (line.command == Command::Import) {
        line.import = ParseImport(arguments);
        return line;
    }
    if (line.command == Command::Mode || line.command == Command::Backup ||
        line.command == Command::Restore) {
        ParseFileCommand(arguments, line);
        return line;
    }
    const bool writes = line.command == Command::Sample || line.command == Command::Create;
    std::string sampleOption;
    const auto samples = [&](const std::string& option) {
        sampleOption = option;
        return writes;
    };
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const auto value = [&]() -> const std::string& {
            if (i + 1 == arguments.size()) throw UsageError(argument + " wants a value");
            return arguments[++i];
        };
        if (argument.rfind("--", 0) != 0) {
            if (!line.file.empty()) throw UsageError("one file only: \"" + argument + "\"");
            line.file = argument;
        } else if (argument == "--to") {
            line.server = Named(value());
        } else if (argument == "--force" && writes) {
            line.force = true;
        } else if (argument == "--quiet" && writes) {
            line.quiet = true;
        } else if (argument == "--side-tables" && writes) {
            line.sideTables = true;
        } else if (argument == "--dry-run" && line.command == Command::Upgrade) {
            line.dryRun = true;
        } else if (argument == "--items" && samples(argument)) {
            line.sample.items = Whole(argument, value(), 0, SampleOptions::kMaxItems);
        } else if (argument == "--cards" && samples(argument)) {
            line.sample.cards = Whole(argument, value(), 0, SampleOptions::kMaxCards);
        } else if (argument == "--plans" && samples(argument)) {
            line.sample.plans = Whole(argument, value(), 0, SampleOptions::kMaxPlans);
        } else if (argument == "--today" && samples(argument)) {
            line.sample.today = Day(value());
        } else if (argument == "--seed" && samples(argument)) {
            line.sample.seed = Whole<std::uint64_t>(argument, value(), 0, UINT64_MAX);
        } else if (argument == "--script" && samples(argument)) {
            line.sample.script = ScriptOf(value());
        } else {
            throw UsageError("\"" + arguments[0] + "\" has no option \"" + argument + "\"");
        }
    }
    if (line.file.empty() && line.server.empty()) {
        throw UsageError("a file name is missing, or --to and a server");
    }
    if (!line.file.empty() && !line.server.empty()) {
        throw UsageError("a file or a server, not both");
    }
    if (line.command == Command::Create && !sampleOption.empty()) {
        if (line.server.empty())
            throw UsageError(R"("create" has no option ")" + sampleOption + '"');
        line.command = Command::Sample;
    }
    return line;
}

}  // namespace zv::zvdb
