// zvscript: plays scenario files against the whole system and reports how they went.
#include <cstdint>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "base/path.h"
#include "disturbance.h"
#include "runner.h"
#include "script_text.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "base/text.h"
#endif

namespace {

constexpr char kUsage[] =
    "usage: zvscript [--backend headless|win32] [--engine NAME] [--print] [--keep DIR]\n"
    "                [--pictures DIR] [--statements FILE] [--disturb WHAT] [--watch] FILE...\n"
    "       zvscript [--backend ...] [--engine NAME] --monkey SEED STEPS FILE\n"
    "\n"
    "Plays each scenario file in a fresh folder and writes one line for it.\n"
    "  --backend  headless (the default): windows without a display; win32: real windows\n"
    "  --engine   embedded (the default); sqlite-odbc: the same over ODBC; postgresql: a server "
    "that\n"
    "             the environment variable ZV_TEST_POSTGRESQL names\n"
    "  --print    writes what each \"show\" line asks for, too\n"
    "  --keep     keeps the folders of the scenarios below DIR\n"
    "  --pictures writes the bitmaps that \"picture\" lines ask for to DIR; real windows only\n"
    "  --statements\n"
    "             writes every statement that is sent to FILE, a line each\n"
    "  --disturb  plays each file once more for every box that it answers, and while that box "
    "stands\n"
    "             does WHAT: refresh0, refresh1, refresh9 (the host's call), close (of the main "
    "window)\n"
    "             or opener (the host's call while no connection opens). The rows of the database\n"
    "             afterwards must be the same, unless the user is told more\n"
    "  --watch    checks what must always hold after each line; passes over lines that cannot be "
    "done\n"
    "  --monkey   does STEPS things that a user or a host could do, chosen by SEED, and watches. "
    "FILE\n"
    "             takes the scenario when something does not hold\n"
    "Exit status: 0 all passed, 1 some failed, 2 a file could not be read or is wrong.\n";

struct Monkeying {
    std::uint32_t seed = 0;
    int steps = 0;
};

struct Command {
    zv::script::RunOptions options;
    std::optional<Monkeying> monkey;
    std::vector<std::string> files;
};

zv::script::BackendKind ToBackend(const std::string& name) {
    using zv::script::BackendKind;
    if (name == "headless") return BackendKind::Headless;
    if (name != "win32") throw zv::script::ScriptError("unknown backend " + name);
    if (!zv::script::IsAvailable(BackendKind::Win32)) {
        throw zv::script::ScriptError("the backend win32 is not in this program");
    }
    return BackendKind::Win32;
}

Command ParseArguments(const std::vector<std::string>& arguments) {
    Command command;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < arguments.size(); i++) {
        const std::string& word = arguments[i];
        const auto value = [&]() -> const std::string& {
            if (++i == arguments.size()) {
                throw zv::script::ScriptError(word + " needs a value");
            }
            return arguments[i];
        };
        if (onlyFiles || !word.starts_with("-")) {
            command.files.push_back(word);
        } else if (word == "--") {
            onlyFiles = true;
        } else if (word == "--backend") {
            command.options.backend = ToBackend(value());
        } else if (word == "--engine") {
            command.options.engine = value();
        } else if (word == "--print") {
            command.options.print = true;
        } else if (word == "--keep") {
            command.options.keep = std::filesystem::absolute(zv::PathOf(value()));
        } else if (word == "--disturb") {
            command.options.disturb = value();
            zv::script::MakeDisturbance(command.options.disturb);
        } else if (word == "--pictures") {
            command.options.pictures = std::filesystem::absolute(zv::PathOf(value()));
        } else if (word == "--watch") {
            command.options.watch = true;
        } else if (word == "--monkey") {
            const int seed = zv::script::ToInteger(value());
            command.monkey =
                Monkeying{static_cast<std::uint32_t>(seed), zv::script::ToInteger(value())};
        } else if (word == "--statements") {
            command.options.statements = zv::PathOf(value());
        } else {
            throw zv::script::ScriptError("unknown option " + word);
        }
    }
    if (command.files.empty()) throw zv::script::ScriptError("no files");
    if (command.monkey && command.files.size() != 1) {
        throw zv::script::ScriptError("--monkey takes one file");
    }
    return command;
}

void WriteLine(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

int Main(const std::vector<std::string>& arguments) {
    if (arguments.size() == 1 && (arguments[0] == "--help" || arguments[0] == "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    std::optional<Command> command;
    try {
        command = ParseArguments(arguments);
    } catch (const zv::script::ScriptError& error) {
        std::fprintf(stderr, "zvscript: %s\n%s", error.what(), kUsage);
        return 2;
    }
    try {
        zv::script::Runner runner(command->options, WriteLine);
        if (const auto& monkey = command->monkey) {
            return runner.RunMonkey(monkey->seed, monkey->steps, command->files.front());
        }
        return runner.Run(command->files);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zvscript: %s\n", error.what());
        return 2;
    }
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** words) {
    // The same bytes as on other systems: UTF-8, lines ended by a line feed alone.
    _setmode(_fileno(stdout), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; i++) {
        arguments.push_back(zv::text::FromUtf16(reinterpret_cast<const char16_t*>(words[i])));
    }
    return Main(arguments);
}
#else
int main(int count, char** words) {
    return Main(std::vector<std::string>(words + 1, words + count));
}
#endif
