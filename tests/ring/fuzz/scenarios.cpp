#include "scenarios.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "command.h"
#include "target.h"

namespace zv::fuzz {
namespace {

using script::ScriptError;
using script::ScriptLine;

int LinesOf(std::string_view text) {
    return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

void HoldRefused(const ScriptError& error, std::string_view input) {
    Hold(!error.Reason().empty(), "refused without a reason");
    Hold(error.Line() >= 1 && error.Line() <= LinesOf(input),
         "refused for line " + std::to_string(error.Line()) + ": " + error.Reason());
}

/// With every word in quotes.
std::string Written(const std::vector<ScriptLine>& lines) {
    std::string text;
    for (const ScriptLine& line : lines) {
        text += std::string(line.indent, ' ');
        for (const script::Word& word : line.words) text += script::Quote(word.text) + ' ';
        text += "# as it was read\r\n";
    }
    return text;
}

bool SameWords(const ScriptLine& a, const ScriptLine& b) {
    return a.indent == b.indent &&
           std::equal(a.words.begin(), a.words.end(), b.words.begin(), b.words.end(),
                      [](const auto& x, const auto& y) { return x.text == y.text; });
}

}  // namespace

void PlayScenario(std::string_view input, const ScriptReader& read) {
    std::vector<ScriptLine> lines;
    try {
        lines = read(input);
    } catch (const ScriptError& error) {
        HoldRefused(error, input);
        return;
    }
    int last = 0;
    for (const ScriptLine& line : lines) {
        Hold(line.number > last && line.number <= LinesOf(input), "a line has a wrong number");
        Hold(!line.words.empty(), "a line has no words");
        last = line.number;
    }
    const auto again = read(Written(lines));
    Hold(std::equal(lines.begin(), lines.end(), again.begin(), again.end(), SameWords),
         "the same words are read as others");
    try {
        last = 0;
        for (const script::Step& step : script::CompileScript(input)) {
            Hold(step.line >= last, "a step stands in front of the one before it");
            Hold(step.line >= 1 && step.line <= LinesOf(input), "a step is on no line");
            Hold(static_cast<bool>(step.action), "a step does nothing");
            last = step.line;
        }
    } catch (const ScriptError& error) {
        HoldRefused(error, input);
    }
}

std::vector<std::string> ScenarioSeeds() {
    // All of them would be many; the small ones together have nearly every command.
    constexpr std::uintmax_t kLargest = 2500;
    std::vector<std::string> seeds;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ZV_SCENARIOS)) {
        if (entry.path().extension() == ".zvs" && entry.file_size() <= kLargest) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(stream),
                           std::istreambuf_iterator<char>());
    }
    return seeds;
}

}  // namespace zv::fuzz
