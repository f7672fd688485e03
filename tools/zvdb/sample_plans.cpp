// Task plans of all four kinds.
#include <algorithm>
#include <string_view>

#include "plans/plan_rules.h"
#include "zvdb/random.h"
#include "zvdb/sample_parts.h"
#include "zvdb/words.h"

namespace zv::zvdb {
namespace {

using plans::Plan;
namespace circle = plans::circle;
namespace side = plans::side;

struct Template {
    Word title;
    Word content;
    int circleType;
    int step;
    int month;
    int day;
    int weekday;
    int type;
    int width;
    bool traditional = false;  ///< where both scripts are written
};

constexpr Template kTemplates[] = {
    {{"每月工资核算与发放", "每月薪資核算與發放", ""},
     {"核对考勤和奖金，十日前到账。", "核對考勤和獎金，十日前入帳。", ""},
     circle::kMonthly,
     1,
     1,
     10,
     1,
     side::kAhead,
     3},
    {{"周一部门例会", "週一部門例會", ""},
     {"准备上周数据，会议室二楼。", "準備上週資料，會議室二樓。", ""},
     circle::kWeekly,
     1,
     1,
     1,
     1,
     side::kAhead,
     1},
    {{"服务器每日备份", "伺服器每日備份", ""},
     {"检查备份日志，异常时立即通知信息部。", "檢查備份記錄，異常時立即通知資訊部。", ""},
     circle::kDaily,
     1,
     1,
     1,
     1,
     side::kAhead,
     0},
    {{"年度财务审计", "年度財務審計", ""},
     {"提前一个月准备凭证和合同清单。", "提前一個月準備憑證和合約清單。", ""},
     circle::kYearly,
     1,
     3,
     31,
     1,
     side::kAhead,
     30},
    {{"月末库存盘点", "月末庫存盤點", ""},
     {"仓库与财务共同盘点，差异当天查明。", "倉庫與財務共同盤點，差異當天查明。", ""},
     circle::kMonthly,
     1,
     1,
     31,
     1,
     side::kBoth,
     2},
    {{"提交工作周报", "提交工作週報", ""},
     {"发给部门经理，抄送总经理。", "發給部門經理，副本送總經理。", ""},
     circle::kWeekly,
     1,
     1,
     1,
     5,
     side::kAhead,
     1},
    {{"机房巡检", "機房巡檢", ""},
     {"温度、湿度、电源各记一次。", "溫度、濕度、電源各記一次。", ""},
     circle::kDaily,
     3,
     1,
     1,
     1,
     side::kBoth,
     1},
    {{"公司周年庆筹备", "公司週年慶籌備", ""},
     {"场地、礼品、邀请名单。", "場地、禮品、邀請名單。", ""},
     circle::kYearly,
     1,
     5,
     18,
     1,
     side::kAhead,
     15},
    {{"台北办事处月报", "臺北辦事處月報", ""},
     {"汇总业绩与费用，寄回总部。", "彙整業績與費用，寄回總部。", ""},
     circle::kMonthly,
     1,
     1,
     5,
     1,
     side::kAfter,
     5,
     true},
    {{"隔周技能培训", "隔週技能訓練", ""},
     {"每次一个主题，签到存档。", "每次一個主題，簽到存檔。", ""},
     circle::kWeekly,
     2,
     1,
     1,
     4,
     side::kBoth,
     3},
    {{"更新市场价目表", "更新市場價目表", ""},
     {"收集三家同行的报价。", "收集三家同業的報價。", ""},
     circle::kDaily,
     10,
     1,
     1,
     1,
     side::kAfter,
     2},
    {{"消防安全检查", "消防安全檢查", ""},
     {"灭火器、疏散通道、应急灯。", "滅火器、疏散通道、緊急照明燈。", ""},
     circle::kYearly,
     1,
     2,
     29,
     1,
     side::kBoth,
     7},
    {{"重点客户回访", "重點客戶回訪", ""},
     {"电话或上门，记录写入客户卡片。", "電話或登門，記錄寫入客戶卡片。", ""},
     circle::kMonthly,
     2,
     1,
     20,
     1,
     side::kAfter,
     7},
    {{"周日值班检查", "週日值班檢查", ""},
     {"门窗、水电、报警器。", "門窗、水電、警報器。", ""},
     circle::kWeekly,
     1,
     1,
     1,
     0,
     side::kAfter,
     1},
    {{"整理样品展示柜", "整理樣品展示櫃", ""},
     {"更换过季样品，补上新目录。", "更換過季樣品，補上新目錄。", ""},
     circle::kDaily,
     7,
     1,
     1,
     1,
     side::kAhead,
     1,
     true},
    {{"续保车辆保险", "續保車輛保險", ""},
     {"比较两家以上的报价。", "比較兩家以上的報價。", ""},
     circle::kYearly,
     1,
     11,
     30,
     1,
     side::kAhead,
     20},
};

int UsualDays(int circleType, int step) {
    return circleType == circle::kMonthly ? 30 * step
                                          : static_cast<int>(plans::PeriodInDays(circleType, step));
}

/// Lays the plan around today, with room for at most `occurrences` items and for at least one.
void SetRange(Plan& plan, int occurrences, DateTime today) {
    constexpr int kLongestDays = 5 * 365 - 31;
    const int period = UsualDays(plan.circleType, plan.circleValue);
    const int days = std::min(std::max(1, occurrences) * period, kLongestDays / period * period);
    plan.begin = today.AddDays(-days * 3 / 5);
    plan.end = plan.begin.AddDays(days - 1);
}

}  // namespace

std::vector<Plan> FillPlans(Engine& engine, const SampleOptions& options, int occurrences,
                            const std::vector<Person>& staff, Progress& progress) {
    Random random(options.seed, "plans");
    Statement insert(engine,
                     "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,"
                     "taskMonth,taskday,TaskWeek,Type,TypeValue,SetMan,DoneMan,Content) "
                     "values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    std::vector<Plan> plans;
    plans.reserve(static_cast<std::size_t>(options.Plans()));
    progress.Begin("plans", options.Plans());
    for (int number = 1; number <= options.Plans(); ++number) {
        const int templates = static_cast<int>(std::size(kTemplates));
        const Template& model = kTemplates[(number - 1) % templates];
        const int round = (number - 1) / templates;
        Plan plan;
        plan.taskId = number;
        const bool traditional = options.IsTraditional(model.traditional);
        plan.title = model.title.In(traditional);
        plan.content = model.content.In(traditional);
        plan.circleType = model.circleType;
        plan.circleValue = model.step;
        plan.month = model.month;
        plan.day = model.day;
        plan.week = model.weekday;
        plan.type = model.type;
        plan.typeValue = model.width;
        if (round > 0) {
            // The same kind of work for another group, on a day of its own.
            const Department& department = random.Pick(Departments());
            const std::string_view name =
                options.IsTraditional(false) ? department.traditional : department.name;
            plan.title = std::string(name) + " " + plan.title + " " + std::to_string(round + 1);
            plan.month = random.Between(1, 12);
            plan.day = random.Between(1, 31);
            plan.week = random.Below(7);
        }
        SetRange(plan, occurrences, options.today);
        plan.setMan = random.Chance(90) ? random.Pick(staff).name : "";
        plan.doneMan = random.Chance(80) ? random.Pick(staff).name : "";

        const std::string begin = plan.begin.IsoDateTime();
        const std::string end = plan.end.IsoDateTime();
        insert.Bind(std::int64_t{plan.taskId}).Bind(plan.title).Bind(begin).Bind(end);
        insert.Bind(std::int64_t{plan.circleType}).Bind(std::int64_t{plan.circleValue});
        insert.Bind(std::int64_t{plan.month}).Bind(std::int64_t{plan.day});
        insert.Bind(std::int64_t{plan.week}).Bind(std::int64_t{plan.type});
        insert.Bind(std::int64_t{plan.typeValue})
            .Bind(plan.setMan)
            .Bind(plan.doneMan)
            .Bind(plan.content);
        insert.Run();
        plans.push_back(std::move(plan));
        progress.Advance();
    }
    return plans;
}

}  // namespace zv::zvdb
