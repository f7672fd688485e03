// Staff, module registry and field captions.
#include <cstdio>

#include "zvdb/own_modules.h"
#include "zvdb/random.h"
#include "zvdb/sample_parts.h"
#include "zvdb/words.h"

namespace zv::zvdb {
namespace {

constexpr int kStaff = 20;

struct Module {
    /// First of the module's flags in the rights string; the flags behind it are its operations.
    int serial;
    const char* key;
    const char* simplified;
    const char* traditional;
    const char* password;
    int noUse;
};

/// Beside those that the windows ask for.
constexpr Module kModules[] = {
    {1, "mnuCard", "客户资料", "客戶資料", "", 0},
    {51, "mnuStaff", "职员资料", "職員資料", "", 0},
    {61, "mnuReport", "报表中心", "報表中心", "", 0},
    {71, "mnuSalary", "工资管理", "薪資管理", "zv2000", 0},
    {81, "mnuOldTask", "旧版日程", "舊版日程", "", 1},
};

struct Caption {
    const char* field;
    const char* simplified;
    const char* traditional;
    int type;
};

/// A type of -1 hides the column; 0 is text, 1 a number, 2 a date.
constexpr Caption kCaptions[] = {
    {"fID", "编号", "編號", -1},
    {"TaskID", "任务号", "任務號", -1},
    {"fType", "类型", "類型", 1},
    {"taskTitle", "主题", "主題", 0},
    {"taskTime", "日期", "日期", 2},
    {"tDuring1", "报警开始", "報警開始", -1},
    {"tDuring2", "报警结束", "報警結束", -1},
    {"tDone", "状况", "狀況", 1},
    {"tDoneMan", "执行人", "執行人", 0},
    {"fUser", "设置人", "設置人", 0},
    {"fWay", "联系方式", "聯絡方式", 0},
    {"fGuest", "联系人", "聯絡人", 0},
    {"fContent", "内容", "內容", 0},
    {"fOther0", "重要程度", "重要程度", 0},
    {"fOther1", "地点", "地點", 0},
    {"fOther2", "参加人员", "參加人員", 0},
    {"fOther3", "费用", "費用", 0},
    {"fOther4", "结果", "結果", 0},
    {"fOther5", "备注", "備註", 0},
};

}  // namespace

std::vector<Person> FillStaff(Engine& engine, const SampleOptions& options) {
    Random random(options.seed, "staff");
    std::vector<Person> staff;
    Statement basic(engine, "insert into tRsBasic(fCode,fName) values(?,?)");
    Statement employees(engine, "insert into Employees(employcode,employee) values(?,?)");
    const auto departments = Departments();
    while (staff.size() < kStaff) {
        const std::size_t n = staff.size();
        // One colleague in seven comes from an office that writes in the traditional script.
        const bool traditional = options.IsTraditional(n % 7 == 6);
        Person person;
        const std::string given(random.Pick(GivenNames()).In(traditional));
        person.name = std::string(random.Pick(Surnames()).In(traditional)) + given;
        bool taken = false;
        for (const Person& other : staff) taken = taken || other.name == person.name;
        if (taken) continue;
        char code[16];
        std::snprintf(code, sizeof code, "%s%03d",
                      std::string(departments[n % departments.size()].code).c_str(),
                      static_cast<int>(n / departments.size()) + 1);
        person.code = code;
        basic.Bind(person.code).Bind(person.name).Run();
        employees.Bind(person.code).Bind(person.name).Run();
        staff.push_back(std::move(person));
    }
    return staff;
}

void FillRegistry(Engine& engine) {
    for (const std::string& statement : RegisterOwnModules()) engine.Run(statement);
    Statement modules(engine,
                      "insert into tSysFunc(SerialNo,model_Name,Model_Name_0,Model_Name_1,"
                      "SecondPass,password,NoUse_) values(?,?,?,?,?,?,?)");
    for (const Module& module : kModules) {
        modules.Bind(std::int64_t{module.serial})
            .Bind(module.key)
            .Bind(module.simplified)
            .Bind(module.traditional)
            .Bind(*module.password != '\0' ? "1" : "0")
            .Bind(module.password)
            .Bind(std::int64_t{module.noUse})
            .Run();
    }
    Statement captions(engine,
                       "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,"
                       "FieldType,fieldID) values('ttasklist',?,?,?,?,?)");
    int order = 0;
    for (const Caption& caption : kCaptions) {
        captions.Bind(caption.field)
            .Bind(caption.simplified)
            .Bind(caption.traditional)
            .Bind(std::int64_t{caption.type})
            .Bind(std::int64_t{++order})
            .Run();
    }
}

}  // namespace zv::zvdb
