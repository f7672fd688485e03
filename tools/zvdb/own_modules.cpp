#include "zvdb/own_modules.h"

namespace zv::zvdb {
namespace {

struct OwnModule {
    /// First of the module's flags in the rights string; the flags behind it are its operations.
    int serial;
    const char* key;
    const char* simplified;
    const char* traditional;
};

constexpr OwnModule kOwnModules[] = {
    {11, "mnuCardLimited", "查看全部客户", "檢視全部客戶"},
    {21, "mnuCardPlan", "客户计划", "客戶計劃"},
    {31, "mnuToolTask", "任务管理", "任務管理"},
    {41, "mnuZjComp", "客户跟进", "客戶跟進"},
};

}  // namespace

std::vector<std::string> RegisterOwnModules(std::string_view textPrefix) {
    const auto literal = [&](const char* text) {
        return "," + std::string(textPrefix) + "'" + text + "'";
    };
    std::vector<std::string> statements;
    for (const OwnModule& module : kOwnModules) {
        statements.push_back(std::string("insert into ") + kModuleTable +
                             "(SerialNo,model_Name,Model_Name_0,Model_Name_1,SecondPass,"
                             "password,NoUse_) values(" +
                             std::to_string(module.serial) + literal(module.key) +
                             literal(module.simplified) + literal(module.traditional) +
                             ",'0','',0)");
    }
    return statements;
}

std::string IsOwnModule() {
    std::string condition;
    for (const OwnModule& module : kOwnModules) {
        condition += std::string(condition.empty() ? "(" : " or ") +
                     "SerialNo=" + std::to_string(module.serial) + " and model_Name='" +
                     module.key + "'";
    }
    return "(" + condition + ") and password='' and NoUse_=0)";
}

}  // namespace zv::zvdb
