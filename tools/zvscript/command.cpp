#include "command.h"

namespace zv::script {
namespace {

const CommandSpec* FindCommand(const std::string& name) {
    for (const auto family : {StageCommands(), ActingCommands(), LookingCommands()}) {
        for (const CommandSpec& command : family) {
            if (command.name == name) return &command;
        }
    }
    return nullptr;
}

Action Compile(const ScriptLine& line) {
    const CommandSpec* command = FindCommand(line.words[0].text);
    if (!command) throw ScriptError("unknown command " + Quote(line.words[0].text));
    const Words words = Words(line.words).From(1);
    if (words.size() < command->minWords || words.size() > command->maxWords) {
        throw ScriptError("wrong number of words: " + std::string(command->name) + ' ' +
                          std::string(command->usage));
    }
    return command->compile(words);
}

}  // namespace

std::vector<Step> CompileScript(std::string_view text) {
    std::vector<Step> steps;
    for (const ScriptLine& line : ReadScript(text)) {
        try {
            steps.push_back({line.number, Compile(line)});
        } catch (const ScriptError& error) {
            throw ScriptError(error.Reason(), line.number);
        }
    }
    return steps;
}

}  // namespace zv::script
