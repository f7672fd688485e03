// Acting: what the host calls, and what the user does at windows and boxes.
#include <array>

#include "base/number.h"
#include "calls.h"
#include "command.h"
#include "failure.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/key_chord.h"
#include "forms/timer.h"
#include "scenario_stage.h"
#include "target.h"

namespace zv::script {
namespace {

/// What the user does with one control.
using Act = std::function<void(ScenarioStage& stage, forms::Control& control)>;

Action AtControl(const std::string& word, Act act) {
    return [target = ParseTarget(word), act = std::move(act)](ScenarioStage& stage) {
        forms::Control& control = FindControl(stage.windows, target);
        stage.RequireReachable(control.Owner());
        try {
            act(stage, control);
        } catch (const driver::DriverError& error) {
            throw Failure(target.window + ": " + error.what());
        }
    };
}

Action AnswerBox(Words words) {
    if (words[0] == "enter") return [](ScenarioStage& stage) { stage.dialogs.QueueEnter(); };
    const auto answer = ParseAnswer(words[0]);
    if (!answer) throw ScriptError("an answer is ok, cancel, yes, no or enter");
    return [answer = *answer](ScenarioStage& stage) { stage.dialogs.QueueAnswer(answer); };
}

Action Input(Words words) {
    std::optional<std::string> text = words[0];
    if (*text == "cancel" && !words.IsQuoted(0)) text.reset();
    return [text](ScenarioStage& stage) { stage.dialogs.QueueInput(text); };
}

Action Refresh(Words words) {
    return [mode = words[0], modal = words[1]](ScenarioStage& stage) {
        stage.AsHost([&] { stage.control.refresh(number::ToInt32(mode), number::ToInt16(modal)); });
    };
}

Action Click(Words words) {
    return AtControl(words[0], [](ScenarioStage& stage, forms::Control& control) {
        stage.driver.Click(control);
    });
}

Action Menu(Words words) {
    return [target = ParseTarget(words[0])](ScenarioStage& stage) {
        forms::MenuItem& item = FindMenu(stage.windows, target);
        stage.RequireReachable(item.Owner());
        try {
            stage.driver.Choose(item);
        } catch (const driver::DriverError& error) {
            throw Failure(target.window + ": " + error.what());
        }
    };
}

Action Node(Words words) {
    return AtControl(words[0], [key = words[1]](ScenarioStage& stage, forms::Control& control) {
        stage.driver.ClickNode(control, key);
    });
}

// In a tree a node is clicked; any other control is pressed with the right button.
Action RightClick(Words words) {
    std::optional<std::string> key;
    if (words.size() > 1) key = words[1];
    return AtControl(words[0], [key](ScenarioStage& stage, forms::Control& control) {
        for (forms::Form* form : stage.windows.Windows()) form->ForgetPopup();
        if (key)
            stage.driver.RightClickNode(control, *key);
        else
            stage.driver.RightPress(control);
    });
}

Action Type(Words words) {
    return AtControl(words[0], [text = words[1]](ScenarioStage& stage, forms::Control& control) {
        stage.driver.Type(control, text);
    });
}

Action Leave(Words words) {
    return AtControl(words[0], [](ScenarioStage& stage, forms::Control& control) {
        stage.driver.Leave(control);
    });
}

// Alt and a letter go to the window, wherever its focus is.
Action Key(Words words) {
    constexpr std::string_view kAlt = "Alt+";
    const std::string& name = words[1];
    if (name.starts_with(kAlt) && name.size() == kAlt.size() + 1) {
        return AtControl(words[0],
                         [letter = name.back()](ScenarioStage& stage, forms::Control& control) {
                             stage.driver.PressAccessKey(control.Owner(), letter);
                         });
    }
    const auto chord = forms::ParseKeyChord(name);
    if (!chord) throw ScriptError("not a key: " + Quote(name));
    const forms::KeyEvent event{chord->code, chord->shift, chord->control};
    return AtControl(words[0], [event](ScenarioStage& stage, forms::Control& control) {
        stage.driver.PressKey(control, event);
    });
}

// A key where the focus is, as a user presses it who goes on.
Action Press(Words words) {
    const auto chord = forms::ParseKeyChord(words[1]);
    if (!chord) throw ScriptError("not a key: " + Quote(words[1]));
    const forms::KeyEvent event{chord->code, chord->shift, chord->control};
    return [name = ParseWindow(words[0]), event](ScenarioStage& stage) {
        forms::Form& form = FindForm(stage.windows, name);
        stage.RequireReachable(form);
        if (!form.ActiveControl()) throw Failure(name + " has no focus");
        try {
            stage.driver.PressKey(*form.ActiveControl(), event);
        } catch (const driver::DriverError& error) {
            throw Failure(name + ": " + error.what());
        }
    };
}

Action EndSession(Words) {
    return [](ScenarioStage& stage) { stage.driver.EndSession(stage.windows); };
}

// Tabs are picked by their position, too, and the rows of a grid, whose first is position 0 here.
Action Pick(Words words) {
    return AtControl(
        words[0], [position = ToInteger(words[1])](ScenarioStage& stage, forms::Control& control) {
            if (dynamic_cast<forms::TabPanel*>(&control)) {
                stage.driver.SelectTab(control, position);
            } else if (dynamic_cast<forms::Grid*>(&control)) {
                stage.driver.SelectRow(control, position + 1);
            } else {
                stage.driver.Pick(control, position);
            }
        });
}

Action Heading(Words words) {
    return AtControl(words[0],
                     [column = ToInteger(words[1])](ScenarioStage& stage, forms::Control& control) {
                         stage.driver.PressHeading(control, column);
                     });
}

Action Date(Words words) {
    std::optional<DateTime> date;
    if (words[1] != "empty") {
        date = DateTime::Parse(words[1]);
        if (!date) throw ScriptError("not a date: " + Quote(words[1]));
    }
    return AtControl(words[0], [date](ScenarioStage& stage, forms::Control& control) {
        stage.driver.SetDate(control, date);
    });
}

Action Spin(Words words) {
    if (words[1] != "up" && words[1] != "down") throw ScriptError("spin W.C up|down");
    return AtControl(words[0], [step = words[1] == "up" ? 1 : -1](ScenarioStage& stage,
                                                                  forms::Control& control) {
        stage.driver.Spin(control, step);
    });
}

Action Tick(Words words) {
    // A timer asks nobody whether something stands in front of its window.
    return [target = ParseTarget(words[0])](ScenarioStage& stage) {
        forms::Control& control = FindControl(stage.windows, target);
        const auto* timer = dynamic_cast<forms::Timer*>(&control);
        if (!timer) throw Failure(target.window + ": " + control.Name() + " is not a timer");
        if (timer->Running()) stage.driver.Tick(control);
    };
}

Action Mouse(Words words) {
    return AtControl(words[0], [x = ToInteger(words[1]), y = ToInteger(words[2])](
                                   ScenarioStage& stage, forms::Control& control) {
        stage.driver.MoveMouse(control, x, y);
    });
}

Action Close(Words words) {
    return [name = ParseWindow(words[0])](ScenarioStage& stage) {
        forms::Form& form = FindForm(stage.windows, name);
        try {
            stage.driver.Close(form);
        } catch (const driver::DriverError& error) {
            throw Failure(error.what());
        }
    };
}

Action Minimise(Words words) {
    return [name = ParseWindow(words[0])](ScenarioStage& stage) {
        forms::Form& form = FindForm(stage.windows, name);
        stage.RequireReachable(form);
        if (!form.IsShown()) throw Failure(name + " is not shown");
        form.SetState(forms::WindowState::Minimised);
    };
}

Action Resize(Words words) {
    const forms::Size inside{ToInteger(words[1]), ToInteger(words[2])};
    return [name = ParseWindow(words[0]), inside](ScenarioStage& stage) {
        forms::Form& form = FindForm(stage.windows, name);
        if (!form.Sizable()) throw Failure(name + " has a fixed size");
        stage.driver.Resize(form, inside);
    };
}

Action Drag(Words words) {
    const forms::Position corner{ToInteger(words[1]), ToInteger(words[2])};
    return [name = ParseWindow(words[0]), corner](ScenarioStage& stage) {
        forms::Form& form = FindForm(stage.windows, name);
        stage.RequireReachable(form);
        try {
            stage.driver.Drag(form, corner);
        } catch (const driver::DriverError& error) {
            throw Failure(error.what());
        }
    };
}

constexpr std::array kActing = std::to_array<CommandSpec>({
    {"answer", 1, 1, "ok|cancel|yes|no|enter", AnswerBox, OpenMenu::Stays},
    {"input", 1, 1, "\"TEXT\"|cancel", Input, OpenMenu::Stays},
    {"refresh", 2, 2, "MODE MODAL", Refresh},
    {"click", 1, 1, "W.C", Click},
    {"menu", 1, 1, "W.C", Menu, OpenMenu::Chooses},
    {"node", 2, 2, "W.C KEY", Node},
    {"rightclick", 1, 2, "W.C [KEY]", RightClick},
    {"type", 2, 2, "W.C \"TEXT\"", Type},
    {"leave", 1, 1, "W.C", Leave},
    {"key", 2, 2, "W.C Enter|Down|...|F2|Delete|Menu|Ctrl+S|Shift+F10|Alt+S", Key},
    {"press", 2, 2, "W Enter|Down|...|F2|Delete|Menu|Ctrl+S|Shift+F10", Press},
    {"endsession", 0, 0, "", EndSession},
    {"heading", 2, 2, "W.C COLUMN", Heading},
    {"pick", 2, 2, "W.C INDEX", Pick},
    {"date", 2, 2, "W.C 2003-03-07|2003-03-07T10:00:00|empty", Date},
    {"spin", 2, 2, "W.C up|down", Spin},
    {"tick", 1, 1, "W.C", Tick},
    {"mouse", 3, 3, "W.C X Y", Mouse},
    {"close", 1, 1, "W", Close},
    {"minimise", 1, 1, "W", Minimise},
    {"resize", 3, 3, "W WIDTH HEIGHT", Resize},
    {"drag", 3, 3, "W LEFT TOP", Drag},
    {"call", 1, CommandSpec::kMany, "NAME ARG...", CompileCall},
});

}  // namespace

std::span<const CommandSpec> ActingCommands() {
    return kActing;
}

}  // namespace zv::script
