// What a random playing begins with, types and asks of the host.
#include <array>
#include <string_view>

#include "monkey/possible_acts.h"
#include "script_text.h"

namespace zv::script {
namespace {

constexpr auto kTexts = std::to_array<std::string_view>(
    {"",           "甲",         "O'Brien", "\"引号\"",    "a;b",  "12",       "-1",
     "0",          "2147483648", "65536",   "99999999999", "%_[*", "繁體中文", "\xF0\x9F\x98\x80",
     "2003-03-08", " 前后 ",     "a\tb",    "报表",        "--",   "0001"});
constexpr auto kHostActs = std::to_array<std::string_view>(
    {"refresh 0 0",
     "refresh 1 0",
     "refresh 1 1",
     "refresh 2 0",
     "refresh 3 0",
     "refresh 4 1",
     "refresh 9 0",
     "refresh -1 0",
     "refresh 10 1",
     "set UserName \"O'Brien\"",
     "set UserName 张三",
     "set UserName \"\"",
     "set Language 1",
     "set Language 0",
     "set myPower 00000000000000000000",
     "set myPower 11111111111111111111",
     "advance 1m",
     "advance 1d",
     "dberror 1 \"disk I/O error\"",
     "dberror 2 \"database is locked\"",
     "opener fail",
     "sql \"delete from tTaskList where fID=2\"",
     "sql \"update tTaskList set taskTitle='别人改的' where fID=1\"",
     "sql \"update tTaskList set tDone=1 where fID=3\"",
     "item taskTitle=新来的",
     "item fType=1 taskTitle=拜访 TaskID=5",
     "call StartReminders",
     "call StartReminders",
     "call StopReminders",
     "sql \"drop table zvReminder\"",
     "bag write",
     "endsession"});

}  // namespace

std::vector<std::string> OpeningLines() {
    return {"clock 2003-03-07T09:30:00",
            "database t.db side",
            "sql \"insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')\"",
            "sql \"insert into tSysFunc(SerialNo,model_Name) values(2,'mnuZjComp')\"",
            "set myPower 11111111111111111111",
            "card fID=5 CompCode=C5 CompName=甲公司 name=王 Birthday=1970-03-09",
            "card fID=6 CompCode=C6 CompName=O'Brien name=李",
            "staff fCode=001 fName=张三",
            "staff fCode=002 fName=O'Brien",
            "item fID=1 taskTitle=报表",
            "item fID=2 taskTitle=会议 taskTime=2003-03-01 tDuring1=2003-03-01 tDuring2=2003-03-31",
            "item fID=3 fType=1 taskTitle=拜访 TaskID=5",
            "item fID=4 fType=2 taskTitle=日志",
            "item fID=5 taskTitle=O'Brien tDone=2",
            "plan TaskID=7 taskTitle=月报",
            "set UserName 张三",
            "refresh 1 0"};
}

std::string ChooseText(RandomChoice& random) {
    constexpr std::size_t kLong = 300;
    if (random.Once(kTexts.size())) return Quote(std::string(kLong, 'x'));
    return Quote(random.Of(kTexts));
}

std::string ChooseHostAct(RandomChoice& random) {
    return std::string(random.Of(kHostActs));
}

}  // namespace zv::script
