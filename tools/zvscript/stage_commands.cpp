// Setting the stage: clock, code page, databases, properties, settings, failures to come.
#include <array>

#include "base/path.h"
#include "command.h"
#include "control_properties.h"
#include "failure.h"
#include "scenario_stage.h"

namespace zv::script {
namespace {

DateTime ToDateTime(const std::string& word) {
    const auto date = DateTime::Parse(word);
    if (!date) throw ScriptError("not a date: " + Quote(word));
    return *date;
}

Action Clock(Words words) {
    return [now = ToDateTime(words[0])](ScenarioStage& stage) { stage.machine.clock.Set(now); };
}

Action Advance(Words words) {
    const std::string& word = words[0];
    constexpr std::array<std::pair<char, int>, 4> kUnits = {
        {{'s', 1}, {'m', 60}, {'h', 3600}, {'d', 86400}}};
    for (const auto& [unit, seconds] : kUnits) {
        if (!word.ends_with(unit)) continue;
        const int count = ToInteger(word.substr(0, word.size() - 1));
        if (count < 0) break;
        return [by = std::int64_t{count} * seconds](ScenarioStage& stage) {
            stage.machine.clock.Advance(by);
        };
    }
    throw ScriptError("not a time to pass, as in 30s, 5m, 2h or 1d: " + Quote(word));
}

Action CodePage(Words words) {
    const int codePage = ToInteger(words[0]);
    if (codePage != 936 && codePage != 950 && codePage != 1252) {
        throw ScriptError("the code page is 936, 950 or 1252");
    }
    return [codePage](ScenarioStage& stage) { stage.machine.codePage.Select(codePage); };
}

Action Database(Words words) {
    const std::string kind = words.size() == 1 ? "" : words[1];
    if (!kind.empty() && kind != "none" && kind != "side") {
        throw ScriptError("database NAME [none|side]");
    }
    return [name = words[0], kind](ScenarioStage& stage) {
        const std::string file = Utf8Of(stage.machine.files.Resolve(name));
        if (kind == "none") {
            stage.host.Use(file);
        } else {
            stage.host.Create(file);
        }
        if (kind == "side") stage.host.AddSideTables();
        SetProperty(stage.control, "UserPath", file);
    };
}

Action Sql(Words words) {
    return [sql = words[0]](ScenarioStage& stage) { stage.host.Execute(sql); };
}

Action Set(Words words) {
    if (!IsSettable(words[0])) throw ScriptError("unknown control property " + Quote(words[0]));
    return [name = words[0], value = words[1]](ScenarioStage& stage) {
        stage.AsHost([&] { SetProperty(stage.control, name, value); });
    };
}

Action Setting(Words words) {
    return [section = words[0], key = words[1], value = words[2]](ScenarioStage& stage) {
        stage.session.SaveSetting(section, key, value);
    };
}

Action ReadBag(Words entries) {
    doubles::TextBag bag;
    for (std::size_t i = 0; i < entries.size(); i++) {
        const std::string& entry = entries[i];
        const std::size_t equals = entry.find('=');
        if (equals == 0 || equals == std::string::npos) {
            throw ScriptError("not KEY=VALUE: " + Quote(entry));
        }
        bag.Put(entry.substr(0, equals), entry.substr(equals + 1));
    }
    return [bag](ScenarioStage& stage) {
        stage.AsHost([&] {
            doubles::TextBag given = bag;
            stage.control.UserControl_ReadProperties(given);
        });
    };
}

void InitProperties(ScenarioStage& stage) {
    stage.AsHost([&] { stage.control.UserControl_InitProperties(); });
}

void WriteProperties(ScenarioStage& stage) {
    stage.AsHost([&] {
        doubles::TextBag bag;
        stage.control.UserControl_WriteProperties(bag);
        stage.bag = std::move(bag);
    });
}

Action Bag(Words words) {
    if (words[0] == "read") return ReadBag(words.From(1));
    if (words[0] != "init" && words[0] != "write") {
        throw ScriptError("bag init, bag read KEY=VALUE... or bag write");
    }
    if (words.size() > 1) throw ScriptError("wrong number of words: bag " + words[0]);
    return words[0] == "init" ? InitProperties : WriteProperties;
}

Action Locale(Words words) {
    if (!UserLocale::IsKnown(words[0])) throw ScriptError("unknown locale " + Quote(words[0]));
    return [name = words[0]](ScenarioStage& stage) { stage.locale.Select(name); };
}

Action Opener(Words words) {
    if (words[0] != "fail") throw ScriptError("opener fail");
    return [](ScenarioStage& stage) { stage.opener.FailNext(); };
}

Action DatabaseError(Words words) {
    const int position = ToInteger(words[0]);
    if (position < 1) throw ScriptError("statements are counted from 1");
    return [position, text = words[1]](ScenarioStage& stage) {
        stage.statements.Fail(position, text);
    };
}

Action Screen(Words words) {
    const forms::Rect area{ToInteger(words[0]), ToInteger(words[1]), ToInteger(words[2]),
                           ToInteger(words[3])};
    if (area.width < 1 || area.height < 1) throw ScriptError("a screen has a width and a height");
    return [area](ScenarioStage& stage) { stage.stand->SetWorkArea(area); };
}

constexpr int kPercent = 100;

// What is left of a monitor beside a bar of that thickness at one of its edges.
forms::Rect Beside(forms::Rect bounds, const std::string& edge, int thickness) {
    if (edge == "left" || edge == "right") {
        bounds.width -= thickness;
        if (edge == "left") bounds.left += thickness;
    } else if (edge == "top" || edge == "bottom") {
        bounds.height -= thickness;
        if (edge == "top") bounds.top += thickness;
    } else {
        throw ScriptError("an edge is left, top, right or bottom");
    }
    return bounds;
}

Action PlugIn(Words words) {
    constexpr std::size_t kPlain = 6;
    constexpr std::size_t kWithBar = 8;
    if (words.size() != kPlain && words.size() != kWithBar) {
        throw ScriptError("monitor NAME LEFT TOP WIDTH HEIGHT PERCENT [EDGE THICKNESS]");
    }
    forms::Monitor monitor;
    monitor.bounds = {ToInteger(words[1]), ToInteger(words[2]), ToInteger(words[3]),
                      ToInteger(words[4])};
    monitor.workArea = words.size() == kWithBar
                           ? Beside(monitor.bounds, words[6], ToInteger(words[7]))
                           : monitor.bounds;
    const int percent = ToInteger(words[5]);
    if (monitor.workArea.width < 1 || monitor.workArea.height < 1) {
        throw ScriptError("a monitor has a width and a height");
    }
    if (percent < kPercent) throw ScriptError("the scale of a monitor is 100 or more");
    monitor.dpi = forms::Scale::kUsualDpi * percent / kPercent;
    return [name = words[0], monitor](ScenarioStage& stage) {
        stage.desktop.Set(name, monitor);
        stage.stand->SetMonitors(stage.desktop.All());
    };
}

Action Unplug(Words words) {
    return [name = words[0]](ScenarioStage& stage) {
        stage.desktop.Remove(name);
        stage.stand->SetMonitors(stage.desktop.All());
    };
}

// The colour of the windows' ground, RRGGBB.
Action Colors(Words words) {
    constexpr std::size_t kDigits = 6;
    constexpr int kHexadecimal = 16;
    forms::SystemTheme theme;
    const std::string& color = words[0];
    if (color.size() != kDigits ||
        color.find_first_not_of("0123456789ABCDEF") != std::string::npos) {
        throw ScriptError("theme RRGGBB [contrast]");
    }
    theme.window = static_cast<std::uint32_t>(std::stoul(color, nullptr, kHexadecimal));
    if (words.size() > 1 && words[1] != "contrast") throw ScriptError("theme RRGGBB [contrast]");
    theme.highContrast = words.size() > 1;
    return [theme](ScenarioStage& stage) { stage.stand->SetTheme(theme); };
}

constexpr std::array kStage = std::to_array<CommandSpec>({
    {"clock", 1, 1, "2003-03-07T09:30:00", Clock, OpenMenu::Stays},
    {"advance", 1, 1, "5m", Advance, OpenMenu::Stays},
    {"codepage", 1, 1, "936|950|1252", CodePage, OpenMenu::Stays},
    {"database", 1, 2, "NAME [none|side]", Database},
    {"sql", 1, 1, "\"STATEMENT\"", Sql, OpenMenu::Stays},
    {"set", 2, 2, "NAME VALUE", Set},
    {"setting", 3, 3, "SECTION KEY VALUE", Setting},
    {"bag", 1, CommandSpec::kMany, "init|read KEY=VALUE...|write", Bag},
    {"locale", 1, 1, "zh-CN|en-US|de-DE", Locale, OpenMenu::Stays},
    {"screen", 4, 4, "LEFT TOP WIDTH HEIGHT", Screen, OpenMenu::Stays},
    {"monitor", 6, 8, "NAME LEFT TOP WIDTH HEIGHT PERCENT [EDGE THICKNESS]", PlugIn,
     OpenMenu::Stays},
    {"unplug", 1, 1, "NAME", Unplug, OpenMenu::Stays},
    {"theme", 1, 2, "RRGGBB [contrast]", Colors, OpenMenu::Stays},
    {"opener", 1, 1, "fail", Opener, OpenMenu::Stays},
    {"dberror", 2, 2, "N \"TEXT\"", DatabaseError, OpenMenu::Stays},
});

}  // namespace

std::span<const CommandSpec> StageCommands() {
    return kStage;
}

}  // namespace zv::script
