// Looking: show and expect.
#include <array>
#include <filesystem>
#include <functional>

#include "base/path.h"
#include "base/text.h"
#include "command.h"
#include "failure.h"
#include "forms/form.h"
#include "forms/menu.h"
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

constexpr std::string_view kBox = "box";

// Writes the picture of what was found to a file.
using Shot = std::function<void(const std::filesystem::path&)>;
// Finds what is to be seen; throws Failure when it does not stand there.
using Sight = std::function<Shot(ScenarioStage&)>;

Shot ShotOfForm(ScenarioStage& stage, const std::string& window) {
    forms::Form& form = FindForm(stage.windows, window);
    if (!form.IsShown()) throw Failure(window + " is not shown");
    return [&](const auto& file) { stage.driver.SavePicture(form, file); };
}

Shot ShotOfMenu(ScenarioStage& stage, const Target& target) {
    forms::MenuItem& root = FindMenu(stage.windows, target);
    if (root.Parent() || !root.Visible() || !root.Owner().IsShown()) {
        throw Failure(target.Text() + " is in no menu bar that is shown");
    }
    return [&](const auto& file) { stage.driver.SaveMenuPicture(root, file); };
}

Shot ShotOfBox(ScenarioStage& stage) {
    return [&stage, box = stage.RequireBox()](const auto& file) {
        stage.driver.SaveBoxPicture(box.ask, file);
    };
}

Sight ParseSight(const std::string& word) {
    if (word == kBox) return ShotOfBox;
    if (word.find('.') == std::string::npos) {
        return [window = ParseWindow(word)](ScenarioStage& stage) {
            return ShotOfForm(stage, window);
        };
    }
    return [menu = ParseTarget(word)](ScenarioStage& stage) { return ShotOfMenu(stage, menu); };
}

// For a reader; nothing is compared.
Action Picture(Words words) {
    const std::string& name = words[1];
    if (name.find_first_of("/\\.:") != std::string::npos) {
        throw ScriptError("a picture has a plain name, not " + Quote(name));
    }
    const Sight sight = ParseSight(words[0]);
    return [sight, file = PathOf(name + ".bmp")](ScenarioStage& stage) {
        const Shot shot = sight(stage);
        if (!stage.pictures.empty()) shot(stage.pictures / file);
    };
}

constexpr std::array kLooking = std::to_array<CommandSpec>({
    {"show", 1, 2, "QUERY", Show, OpenMenu::Stays},
    {"picture", 2, 2, "W|W.MENU|box NAME", Picture, OpenMenu::Stays},
    {"expect", 3, 4, "QUERY ==|~|!~ \"VALUE\"", Expect, OpenMenu::Stays},
});

}  // namespace

std::span<const CommandSpec> LookingCommands() {
    return kLooking;
}

}  // namespace zv::script
