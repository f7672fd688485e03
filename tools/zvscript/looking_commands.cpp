// Looking: show and expect.
#include <array>

#include "base/path.h"
#include "base/text.h"
#include "command.h"
#include "failure.h"
#include "forms/form.h"
#include "query.h"
#include "scenario_stage.h"
#include "script_text.h"
#include "target.h"

namespace zv::script {
namespace {

Action Show(Words words) {
    return [query = ParseQuery(words)](ScenarioStage& stage) {
        const std::string value = query(stage);
        if (stage.print) stage.print(value);
    };
}

enum class Comparison { Equals, Contains, Lacks };

Comparison ParseComparison(const std::string& word) {
    if (word == "==") return Comparison::Equals;
    if (word == "~") return Comparison::Contains;
    if (word == "!~") return Comparison::Lacks;
    throw ScriptError("a comparison is ==, ~ or !~, not " + Quote(word));
}

bool Holds(Comparison comparison, const std::string& value, const std::string& wanted) {
    switch (comparison) {
        case Comparison::Equals:
            return value == wanted;
        case Comparison::Contains:
            return text::Contains(value, wanted);
        case Comparison::Lacks:
            return !text::Contains(value, wanted);
    }
    return false;
}

std::string Expected(Comparison comparison, const std::string& wanted) {
    switch (comparison) {
        case Comparison::Equals:
            return "expected " + Quote(wanted);
        case Comparison::Contains:
            return "expected ~ " + Quote(wanted);
        case Comparison::Lacks:
            return "expected !~ " + Quote(wanted);
    }
    return {};
}

Action Expect(Words words) {
    const std::size_t split = QueryWords(words[0]);
    if (words.size() != split + 2) {
        throw ScriptError("wrong number of words: expect QUERY ==|~|!~ \"VALUE\"");
    }
    return [query = ParseQuery(words.First(split)), comparison = ParseComparison(words[split]),
            wanted = words[split + 1]](ScenarioStage& stage) {
        const std::string expected = Expected(comparison, wanted);
        std::string value;
        try {
            value = query(stage);
        } catch (const Failure& failure) {
            throw Failure(expected + " got nothing: " + failure.Text());
        }
        if (!Holds(comparison, value, wanted)) throw Failure(expected + " got " + Quote(value));
    };
}

// For a reader; nothing is compared.
Action Picture(Words words) {
    const std::string& name = words[1];
    if (name.find_first_of("/\\.:") != std::string::npos) {
        throw ScriptError("a picture has a plain name, not " + Quote(name));
    }
    return [window = ParseWindow(words[0]), name](ScenarioStage& stage) {
        forms::Form& form = FindForm(stage.windows, window);
        if (!form.IsShown()) throw Failure(window + " is not shown");
        if (stage.pictures.empty()) return;
        try {
            stage.driver.SavePicture(form, stage.pictures / PathOf(name + ".bmp"));
        } catch (const driver::DriverError& error) {
            throw Failure(error.what());
        }
    };
}

constexpr std::array kLooking = std::to_array<CommandSpec>({
    {"show", 1, 2, "QUERY", Show, OpenMenu::Stays},
    {"picture", 2, 2, "W NAME", Picture, OpenMenu::Stays},
    {"expect", 3, 4, "QUERY ==|~|!~ \"VALUE\"", Expect, OpenMenu::Stays},
});

}  // namespace

std::span<const CommandSpec> LookingCommands() {
    return kLooking;
}

}  // namespace zv::script
