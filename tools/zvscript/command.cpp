#include "command.h"

#include <memory>

#include "interludes.h"
#include "scenario_stage.h"

namespace zv::script {
namespace {

const CommandSpec* FindCommand(const std::string& name) {
    for (const auto family :
         {StageCommands(), RowCommands(), ActingCommands(), LookingCommands()}) {
        for (const CommandSpec& command : family) {
            if (command.name == name) return &command;
        }
    }
    return nullptr;
}

Step Compile(const ScriptLine& line) {
    const CommandSpec* command = FindCommand(line.words[0].text);
    if (!command) throw ScriptError("unknown command " + Quote(line.words[0].text));
    const Words words = Words(line.words).From(1);
    if (words.size() < command->minWords || words.size() > command->maxWords) {
        throw ScriptError("wrong number of words: " + std::string(command->name) + ' ' +
                          std::string(command->usage));
    }
    Step step{line.number, command->compile(words), command->openMenu, {}};
    if (step.openMenu == OpenMenu::Chooses) step.entry = ParseTarget(words[0]);
    return step;
}

Standing ToStanding(const ScriptLine& line) {
    constexpr const char* kUsage = "during box, during input or during menu";
    if (line.words.size() != 2) throw ScriptError(std::string("wrong number of words: ") + kUsage);
    const std::string& word = line.words[1].text;
    if (word == "box") return Standing::Box;
    if (word == "input") return Standing::Input;
    if (word == "menu") return Standing::Menu;
    throw ScriptError(kUsage);
}

std::vector<Step> CompileLines(std::span<const ScriptLine> lines);

// Takes the line and those that are indented deeper behind it.
Step CompileDuring(std::span<const ScriptLine>& lines) {
    const ScriptLine& head = lines[0];
    const Standing kind = ToStanding(head);
    std::size_t count = 1;
    while (count < lines.size() && lines[count].indent > head.indent) count++;
    if (count == 1) {
        throw ScriptError("no line follows that is indented deeper: during " + head.words[1].text);
    }
    const auto body =
        std::make_shared<const std::vector<Step>>(CompileLines(lines.subspan(1, count - 1)));
    lines = lines.subspan(count);
    const auto queue = [interlude = Interlude{kind, head.number, body}](ScenarioStage& stage) {
        stage.interludes.Add(interlude);
    };
    return {head.number, queue, OpenMenu::Stays, {}};
}

std::vector<Step> CompileLines(std::span<const ScriptLine> lines) {
    std::vector<Step> steps;
    while (!lines.empty()) {
        const int number = lines[0].number;
        try {
            if (lines[0].words[0].text == "during") {
                steps.push_back(CompileDuring(lines));
            } else {
                steps.push_back(Compile(lines[0]));
                lines = lines.subspan(1);
            }
        } catch (const ScriptError& error) {
            throw ScriptError(error.Reason(), error.Line() > 0 ? error.Line() : number);
        }
    }
    return steps;
}

}  // namespace

std::vector<Step> CompileScript(std::string_view text) {
    return CompileLines(ReadScript(text));
}

}  // namespace zv::script
