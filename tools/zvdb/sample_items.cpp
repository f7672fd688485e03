// Items: the occurrences of the plans, and tasks, visits and diary entries that people wrote.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "items/item.h"
#include "plans/occurrences.h"
#include "zvdb/random.h"
#include "zvdb/sample_parts.h"
#include "zvdb/words.h"

namespace zv::zvdb {
namespace {

using items::ItemKind;
using items::ItemState;
using plans::Plan;

std::int64_t Stored(ItemKind kind) {
    return Number(kind);
}
std::int64_t Stored(ItemState state) {
    return Number(state);
}

/// Most of the past is done, most of the future is not, and now is when things are moving.
ItemState StateAround(Random& random, DateTime begin, DateTime end, DateTime today) {
    const int dice = random.Below(100);
    if (end < today)
        return dice < 88 ? ItemState::Done : dice < 93 ? ItemState::InHand : ItemState::NotDone;
    if (begin > today)
        return dice < 95 ? ItemState::NotDone : dice < 98 ? ItemState::InHand : ItemState::Done;
    return dice < 55 ? ItemState::NotDone : dice < 80 ? ItemState::InHand : ItemState::Done;
}

std::vector<DateTime> DaysOf(const Plan& plan) {
    std::vector<DateTime> days;
    for (plans::Occurrences occurrences(plan); const auto day = occurrences.Next();) {
        days.push_back(*day);
    }
    return days;
}

class ItemWriter {
 public:
    ItemWriter(Engine& engine, const SampleOptions& options, const std::vector<Card>& cards,
               const std::vector<Person>& staff, Progress& progress)
        : options_(options),
          cards_(cards),
          staff_(staff),
          progress_(progress),
          random_(options.seed, "items"),
          generated_(engine,
                     "insert into tTaskList(TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,"
                     "tDone) values(?,?,?,?,?,?,?)"),
          completed_(engine,
                     "insert into tTaskList(TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,"
                     "tDone,tDoneMan) values(?,?,?,?,?,?,?,?)"),
          entered_(engine,
                   "insert into tTaskList(fType,fWay,TaskID,fGuest,taskTitle,tDoneMan,taskTime,"
                   "tDuring1,tDuring2,fContent,fOther0,fOther1,fOther2,fOther3,fOther4,fOther5,"
                   "fUser,tDone) values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)") {}

    /// Writes one item for each day, with the fields that generating a plan sets.
    void WritePlan(const Plan& plan, const std::vector<DateTime>& days) {
        for (const DateTime day : days) {
            const plans::AlertWindow window = plans::AlertWindowOf(day, plan.type, plan.typeValue);
            const DateTime begin = window.first.value();
            const DateTime end = window.last.value();
            const ItemState state = StateAround(random_, begin, end, options_.today);
            const std::string time = day.IsoDateTime();
            const std::string from = begin.IsoDateTime();
            const std::string to = end.IsoDateTime();
            Statement& insert = state == ItemState::NotDone ? generated_ : completed_;
            insert.Bind(std::int64_t{plan.taskId}).Bind(plan.title).Bind(plan.content);
            insert.Bind(time).Bind(from).Bind(to).Bind(Stored(state));
            std::string doer;
            if (state != ItemState::NotDone) {
                doer = plan.doneMan.empty() ? random_.Pick(staff_).name : plan.doneMan;
                insert.Bind(doer);
            }
            insert.Run();
            progress_.Advance();
        }
    }

    /// Writes `count` items as the editor does: the alert window is the item's own moment.
    void WriteEntries(int count) {
        const int past = std::clamp(count / 3, 20, 1500);
        const int future = past / 3;
        for (int i = 0; i < count; ++i) {
            // The first few give today one item of each kind in each state.
            if (i < 9) {
                WriteEntry(static_cast<ItemKind>(i % 3), options_.today,
                           static_cast<ItemState>(i / 3));
                continue;
            }
            const int dice = random_.Below(100);
            const ItemKind kind = dice < 40   ? ItemKind::Task
                                  : dice < 75 ? ItemKind::Guest
                                              : ItemKind::Diary;
            DateTime time = options_.today.AddDays(random_.Between(-past, future));
            if (random_.Chance(12)) {
                time = time.AddSeconds(std::int64_t{60} * 30 * random_.Between(16, 35));
            }
            WriteEntry(kind, time, StateAround(random_, time, time, options_.today));
        }
    }

 private:
    void WriteEntry(ItemKind kind, DateTime time, ItemState state) {
        if (kind == ItemKind::Guest && cards_.empty()) kind = ItemKind::Diary;
        const std::string moment = time.IsoDateTime();
        const Person& user = random_.Pick(staff_);
        const std::string doer = state != ItemState::NotDone || random_.Chance(70)
                                     ? random_.Pick(staff_).name
                                     : std::string();
        std::string title;
        std::string_view content;
        std::string_view guest;
        std::string_view way;
        std::string_view place;
        std::string_view result;
        std::int64_t card = 0;
        bool traditional = options_.IsTraditional(random_.Chance(12));
        if (kind == ItemKind::Task) {
            title = random_.Pick(TaskTitles()).In(traditional);
            content = random_.Pick(TaskContents()).In(traditional);
        } else if (kind == ItemKind::Diary) {
            title = random_.Pick(DiaryTitles()).In(traditional);
            content = random_.Pick(DiaryContents()).In(traditional);
        } else {
            const Card& visited = random_.Pick(cards_);
            traditional = visited.traditional;
            constexpr std::array<Word, 3> kWays = {
                {{"电话", "電話", ""}, {"邮件", "郵件", ""}, {"网站", "網站", ""}}};
            card = visited.id;
            guest = visited.contact;
            way = random_.Pick(kWays).In(options_.IsTraditional(false));
            place = visited.city;
            title = visited.company.empty() ? visited.contact : visited.company;
            title += random_.Pick(VisitTitles()).In(traditional);
            content = random_.Pick(VisitContents()).In(traditional);
            if (state == ItemState::Done) result = random_.Pick(VisitResults()).In(traditional);
        }
        constexpr Word kUrgent = {"紧急", "緊急", ""};
        const std::string_view weight =
            random_.Chance(20)
                ? (random_.Chance(50) ? "重要" : kUrgent.In(options_.IsTraditional(false)))
                : std::string_view();
        const std::string cost = kind == ItemKind::Guest && random_.Chance(15)
                                     ? std::to_string(10 * random_.Between(3, 90))
                                     : "";
        entered_.Bind(Stored(kind)).Bind(way).Bind(card).Bind(guest).Bind(title).Bind(doer);
        entered_.Bind(moment).Bind(moment).Bind(moment).Bind(content);
        entered_.Bind(weight).Bind(place).Bind("").Bind(cost).Bind(result).Bind("");
        entered_.Bind(user.name).Bind(Stored(state)).Run();
        progress_.Advance();
    }

    const SampleOptions& options_;
    const std::vector<Card>& cards_;
    const std::vector<Person>& staff_;
    Progress& progress_;
    Random random_;
    Statement generated_;
    Statement completed_;
    Statement entered_;
};

}  // namespace

void FillItems(Engine& engine, const SampleOptions& options, const std::vector<Plan>& plans,
               const std::vector<Card>& cards, const std::vector<Person>& staff,
               Progress& progress) {
    progress.Begin("items", options.items);
    ItemWriter writer(engine, options, cards, staff, progress);
    int left = options.items;
    for (const Plan& plan : plans) {
        const auto days = DaysOf(plan);
        // A plan is generated as a whole or, when no room is left for it, not yet.
        if (static_cast<int>(days.size()) > left) continue;
        writer.WritePlan(plan, days);
        left -= static_cast<int>(days.size());
    }
    writer.WriteEntries(left);
}

}  // namespace zv::zvdb
