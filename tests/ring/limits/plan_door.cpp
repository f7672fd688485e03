// What is typed into the plan editor.
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "doors.h"
#include "plans/plan_rules.h"
#include "session/text_checks.h"
#include "values.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::ring {
namespace {

using windows::frmTaskSet;

class PlanEditor {
 public:
    explicit PlanEditor(Place& place) : place_(place), app_(place.app) {
        app_.session.database.EnsureConnection();
    }

    /// The fields that take any text, for a new plan and for the one that is there.
    void Texts() {
        for (const TextField& field : kTexts) {
            for (const TextValue& value : TextValues(field.cut ? plans::kMaximumTextBytes : 0)) {
                if (!value.canBeTyped) continue;
                for (const std::int16_t plan : Plans()) {
                    Type(
                        plan, field.column, value.name,
                        [&](frmTaskSet& editor) {
                            app_.user.Type(editor.*field.box, value.Text());
                            return &(editor.*field.box);
                        },
                        field.cut ? CutName(value.Text()) : value.Text());
                }
            }
        }
    }

    void Numbers() {
        for (const NumberField& field : kNumbers) {
            for (const std::string& text : NumberTexts()) {
                for (const std::int16_t plan : Plans()) {
                    Type(
                        plan, field.column, Shown(text),
                        [&](frmTaskSet& editor) {
                            app_.user.Pick(editor.cobCircleType, field.circleType);
                            app_.user.Type(editor.*field.box, text);
                            return &(editor.*field.box);
                        },
                        Whole(text), field.circleType);
                }
            }
        }
    }

    void Days() {
        for (const DateTime& day : Dates()) {
            for (const std::int16_t plan : Plans()) {
                const std::string meant = store::Value(day).ToText();
                Type(
                    plan, "tbegin", day.IsoDateTime(),
                    [&](frmTaskSet& editor) {
                        app_.user.SetDate(editor.dateEnd, day);
                        app_.user.SetDate(editor.dateBegin, day);
                        // The picker offers no other days.
                        const bool offered = editor.dateBegin.Value() == day;
                        return offered ? &editor.dateBegin : nullptr;
                    },
                    meant);
            }
        }
    }

    Cells Take() { return std::move(cells_); }

 private:
    struct TextField {
        const char* column;
        forms::TextBox frmTaskSet::*box;
        bool cut;
    };
    static constexpr std::array<TextField, 4> kTexts{{
        {"tasktitle", &frmTaskSet::txtTaskTitle, true},
        {"setman", &frmTaskSet::txtSetMan, true},
        {"doneman", &frmTaskSet::txtDoneMan, true},
        {"content", &frmTaskSet::txtTaskCon, false},
    }};
    struct NumberField {
        const char* column;
        forms::TextBox frmTaskSet::*box;
        int circleType;
    };
    static constexpr std::array<NumberField, 5> kNumbers{{
        {"taskid", &frmTaskSet::txtTaskID, plans::circle::kDaily},
        {"circlevalue", &frmTaskSet::txtCircleValue, plans::circle::kDaily},
        {"taskmonth", &frmTaskSet::txtMonth, plans::circle::kYearly},
        {"taskday", &frmTaskSet::txtDay, plans::circle::kMonthly},
        {"typevalue", &frmTaskSet::txtUpDown, plans::circle::kMonthly},
    }};
    static constexpr std::int16_t kThere = 7;

    /// A new plan and the one that is there; by turns unless there is time.
    std::vector<std::int16_t> Plans() {
        if (std::getenv("ZV_LONG")) return {0, kThere};
        return {turn_++ % 2 == 0 ? std::int16_t{0} : kThere};
    }

    frmTaskSet* Window() { return app_.windows.Find<frmTaskSet>(frmTaskSet::kName); }

    std::string CutName(const std::string& value) const {
        std::string line = text::Replace(value, "\r\n", " ");
        for (char& c : line) {
            if (c == '\r' || c == '\n') c = ' ';
        }
        return std::string(text::Trim(CutToBytes(app_.codePage, line, plans::kMaximumTextBytes)));
    }
    static std::string Whole(const std::string& text) {
        const double number = std::nearbyint(number::Parse(text).value_or(0));
        return std::abs(number) < 1e15 ? std::to_string(static_cast<std::int64_t>(number)) : "";
    }

    template <class Fill>
    void Type(std::int16_t plan, const std::string& column, const std::string& value, Fill fill,
              const std::string& stored, std::optional<int> circleType = {}) {
        const bool adds = plan == 0;
        const std::string row = adds ? "tTaskSet new " : "tTaskSet 7 ";
        const Fate fate = place_.Play([&] {
            app_.windows.FromHost([&] { windows::ShowPlanEditor(app_.session, plan, false); });
            app_.dialogs.answers.clear();
            app_.user.Type(Window()->txtTaskTitle, adds ? "a new plan" : "plan");
            if (adds) {
                app_.user.SetDate(Window()->dateEnd, app_.clock.Today().AddDays(1));
                app_.user.Type(Window()->txtSetMan, "s");
            }
            forms::Control* const box = fill(*Window());
            if (box == nullptr) return;
            // A box that is refused keeps the focus, and the press is lost.
            app_.user.Leave(*box);
            app_.user.Click(Window()->cmdOK);
        });
        Stored meant = adds ? NewRow() : Stored();
        if (circleType) meant[row + "circletype"] = "=" + std::to_string(*circleType);
        meant[row + column] = "=" + stored;
        if (column == "tbegin") meant[row + "tend"] = meant[row + column];
        if (!adds && column == "taskid") meant.erase(row + column);
        cells_.push_back(
            Judge((adds ? "plan added: " : "plan changed: ") + column + " " + value, fate, meant));
        if (frmTaskSet* window = Window()) window->Unload();
        place_.Restore();
    }

    Stored NewRow() const {
        const std::string today = app_.clock.Today().IsoDateTime();
        const std::string end = app_.clock.Today().AddDays(1).IsoDateTime();
        const std::string row = "tTaskSet new ";
        return {{row + "taskid", "=8"},
                {row + "tasktitle", "=a new plan"},
                {row + "tbegin", "=" + today},
                {row + "tend", "=" + end},
                {row + "circletype", "=" + std::to_string(plans::circle::kMonthly)},
                {row + "circlevalue", "=1"},
                {row + "taskmonth", "=1"},
                {row + "taskday", "=1"},
                {row + "taskweek", "=1"},
                {row + "type", "=1"},
                {row + "typevalue", "=0"},
                {row + "setman", "=s"},
                {row + "doneman", "="},
                {row + "content", "="}};
    }

    Place& place_;
    test::TestApplication& app_;
    Cells cells_;
    int turn_ = 0;
};

}  // namespace

Cells EditPlans(Place& place) {
    PlanEditor editor(place);
    editor.Texts();
    editor.Numbers();
    editor.Days();
    return editor.Take();
}

}  // namespace zv::ring
