// What a host hands over in properties before it calls a mode.
#include <cmath>
#include <limits>

#include "doors.h"
#include "values.h"

namespace zv::ring {
namespace {

constexpr std::int32_t kMark = 4;
constexpr std::int32_t kAddInstance = 6;

std::string Told(int error) {
    return "host: " + std::to_string(error);
}

Fate Call(Place& place, std::int32_t mode) {
    int error = 0;
    Fate fate = place.Play([&] { error = place.app.Refresh(mode); });
    if (error != 0) fate.told.insert(fate.told.begin(), Told(error));
    return fate;
}

}  // namespace

Cells NameUsers(Place& place) {
    Cells cells;
    test::TestApplication& app = place.app;
    constexpr std::size_t kNames = 100;
    for (const TextValue& name : TextValues(kNames)) {
        app.session.state.UserName = name.Text();
        app.session.state.myTaskID = 2;
        app.session.state.myDate = 1;
        const Fate fate = Call(place, kMark);
        cells.push_back(
            Judge("item marked: tDoneMan " + name.name, fate,
                  {{"tTaskList 2 tdone", "=1"}, {"tTaskList 2 tdoneman", "=" + name.Text()}}));
        place.Restore();
    }
    return cells;
}

Cells CallModes(Place& place) {
    Cells cells;
    test::TestApplication& app = place.app;
    for (const std::int64_t number : WholeNumbers()) {
        using Limits = std::numeric_limits<std::int32_t>;
        if (number < Limits::min() || number > Limits::max()) continue;
        app.session.state.myTaskID = static_cast<std::int32_t>(number);
        app.session.state.myDate = 1;
        const Fate marked = Call(place, kMark);
        const bool there = number == 1;
        cells.push_back(
            Judge("item marked: myTaskID " + std::to_string(number), marked,
                  there ? Stored{{"tTaskList 1 tdone", "=1"},
                                 {"tTaskList 1 tdoneman", "=" + app.session.state.UserName}}
                        : Stored{}));
        place.Restore();
        app.session.state.myDate = 37687;
        const Fate added = Call(place, kAddInstance);
        cells.push_back(Judge("instance added: myTaskID " + std::to_string(number), added, {}));
        place.Restore();
    }
    for (const double flag :
         {0.0, -0.0, 1.0, 2.0, 1.5, 2.5, -1.0, 32767.0, 32767.5, 32768.0, -32768.0, -32769.0, 1e300,
          -1e300, 5e-324, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        app.session.state.myTaskID = 1;
        app.session.state.myDate = flag;
        const Fate fate = Call(place, kMark);
        cells.push_back(Judge(
            "item marked: myDate " + std::to_string(flag), fate,
            {{"tTaskList 1 tdone",
              "=" + std::to_string(static_cast<int>(
                        std::isfinite(flag) && std::abs(flag) < 40000 ? std::nearbyint(flag) : 0))},
             {"tTaskList 1 tdoneman", "=" + app.session.state.UserName}}));
        place.Restore();
    }
    for (const DateTime& day : Dates()) {
        app.session.state.myTaskID = 7;
        app.session.state.myDate = day.ToAutomation();
        const Fate fate = Call(place, kAddInstance);
        Cell cell{"instance added: myDate " + day.IsoDateTime(), fate.Text(), {}};
        const auto time = fate.changed.find("tTaskList new tasktime");
        if (fate.told.empty() == (time == fate.changed.end())) {
            cell.wrong = "neither added nor told, or both";
        }
        if (time != fate.changed.end() && time->second != "=" + store::Value(day).ToText()) {
            cell.wrong = "the day is " + time->second;
        }
        cells.push_back(cell);
        place.Restore();
    }
    for (const double date : {-657435.0, -657434.0, -657434.5, -657435.5, 2958465.0, 2958465.999999,
                              2958466.0, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
        app.session.state.myTaskID = 7;
        app.session.state.myDate = date;
        const Fate fate = Call(place, kAddInstance);
        Cell cell{"instance added: myDate " + std::to_string(date), fate.Text(), {}};
        if (fate.told.empty() == fate.changed.empty())
            cell.wrong = "neither added nor told, or both";
        cells.push_back(cell);
        place.Restore();
    }
    return cells;
}

}  // namespace zv::ring
