#include "command.h"

#include <gtest/gtest.h>

#include "refusal.h"

namespace zv::script {
namespace {

TEST(CompileScript, AcceptsEveryCommand) {
    constexpr const char* kLines[] = {
        "clock 2003-03-07T09:30:00",
        "advance 5m",
        "codepage 936",
        "database t.db",
        "picture frmTaskMain name",
        "picture frmTaskMain.mnuTask name",
        "picture box name",
        "expect box.faults == \"\"",
        "database t.db none",
        "sql \"delete from tTaskList\"",
        "show rows \"select 1\"",
        "set UserName 张三",
        "setting zvTask Startup 1",
        "bag init",
        "bag read",
        "bag read Language=1 \"UserName=a b\"",
        "bag write",
        "item",
        "item fID=3 taskTitle=\"a b\" TASKTIME=2003-03-07T10:00:00 tDuring2=2003-03-07 tDone=",
        "plan TaskID=3 Type=2",
        "card CompName=x Birthday=1970-01-01",
        "staff fName=x",
        "during box\n  show error",
        "during input\n\tshow error",
        "during menu\n # first\n\n show error\nshow error",
        "locale de-DE",
        "opener fail",
        "dberror 1 \"text\"",
        "answer cancel",
        "input \"text\"",
        "input cancel",
        "refresh 0 0",
        "click frmTaskMain.cmdAction(3)",
        "menu frmTaskMain.mnuTaskDoneOk",
        "node frmTaskMain.tvwTask Z1",
        "rightclick frmTaskMain.tvwTask Z1",
        "rightclick frmTaskMain.cmdTaskOK",
        "type frmTaskMain.txtTitle0 \"\"",
        "leave frmTaskMain.txtTitle0",
        "key frmTaskMain.txtTitle0 Enter",
        "pick frmTaskMain.cboState -1",
        "date frmTaskMain.DTPicker0 2003-03-07",
        "date frmTaskMain.DTPicker0 2003-03-07T10:00:00",
        "date frmTaskMain.DTPicker0 empty",
        "spin frmTaskMain.UpDown1 down",
        "tick frmTaskMain.Timer1",
        "mouse frmTaskMain.tvwTask 150 300",
        "close frmTaskMain",
        "call MakeLikePattern abc",
        "call GenerateTaskList 7",
        "call AddTaskInstance 7 2003-03-07",
        "call MakeDate 2003 2 29",
        "call ListBirthdays 5",
        "call PrintReport 0 zvTask01 标题 \"\" a.fType",
        "call PrintItem 1",
        "call frmAsk",
        "show error",
        "expect error == \"\"",
        "expect frmTaskMain.Grid1.cell(1,2) ~ \"x\"",
        "expect rows \"select 1\" !~ \"x\"",
    };
    for (const char* line : kLines) EXPECT_EQ(RefusalBy(CompileScript, line), "accepted") << line;
}

TEST(CompileScript, RefusesAnUnknownCommand) {
    EXPECT_EQ(RefusalBy(CompileScript, "\nclik frmTaskMain.cmdExit"),
              "2: unknown command \"clik\"");
}

TEST(CompileScript, RefusesAWrongNumberOfWords) {
    EXPECT_EQ(RefusalBy(CompileScript, "clock"),
              "1: wrong number of words: clock 2003-03-07T09:30:00");
    for (const char* line :
         {"clock 2003-03-07 09:30:00", "refresh 0", "refresh 0 0 0", "set UserName", "bag init x",
          "bag write x", "expect error ==", "expect error == a b", "expect rows == a", "show rows",
          "show error bag", "call MakeLikePattern", "call LoadText 1 2", "close",
          "mouse frmTaskMain.tvwTask 1", "database a none b"}) {
        EXPECT_NE(RefusalBy(CompileScript, line), "accepted") << line;
    }
}

TEST(CompileScript, RefusesUnknownNames) {
    EXPECT_EQ(RefusalBy(CompileScript, "click frmMain.cmdExit"), "1: unknown window \"frmMain\"");
    EXPECT_EQ(RefusalBy(CompileScript, "set userName x"),
              "1: unknown control property \"userName\"");
    EXPECT_EQ(RefusalBy(CompileScript, "set showMode 1"),
              "1: unknown control property \"showMode\"");
    EXPECT_EQ(RefusalBy(CompileScript, "show control.Nothing"),
              "1: unknown control property \"Nothing\"");
    EXPECT_EQ(RefusalBy(CompileScript, "show frmTaskMain.cmdExit.colour"),
              "1: unknown property \"colour\"");
    EXPECT_EQ(RefusalBy(CompileScript, "show frmTaskMain.text"),
              "1: a window has no property \"text\"");
    EXPECT_EQ(RefusalBy(CompileScript, "call Nothing"), "1: unknown operation \"Nothing\"");
    EXPECT_EQ(RefusalBy(CompileScript, "show nothing"), "1: unknown query \"nothing\"");
}

TEST(CompileScript, RefusesWordsOutOfTheirRange) {
    for (const char* line : {"clock yesterday",
                             "clock 2003-02-30",
                             "advance 5",
                             "advance -5m",
                             "advance 5y",
                             "codepage 437",
                             "database t.db some",
                             "bag maybe",
                             "bag read =x",
                             "bag read x",
                             "item taskTitle",
                             "item =x",
                             "item nothing=1",
                             "item fType=x",
                             "item taskTime=yesterday",
                             "item tDone=1 TDONE=2",
                             "plan fID=1",
                             "card fName=x",
                             "card",
                             "staff",
                             "locale fr-FR",
                             "opener works",
                             "dberror 0 x",
                             "dberror x y",
                             "answer maybe",
                             "key frmTaskMain.txtTitle0 F13",
                             "key frmTaskMain.txtTitle0 S",
                             "press frmTaskMain Alt+S",
                             "pick frmTaskMain.cboState first",
                             "date frmTaskMain.DTPicker0 2003-13-01",
                             "spin frmTaskMain.UpDown1 left",
                             "expect error = x",
                             "close frmMain",
                             "show setting.zvTask"}) {
        EXPECT_NE(RefusalBy(CompileScript, line), "accepted") << line;
    }
}

TEST(CompileScript, ADuringTakesTheLinesThatAreIndentedDeeper) {
    const auto steps = CompileScript(
        "  during box\n"
        "      during input\n"
        "          show error\n"
        "      show error\n"
        "  # no line\n"
        "  show error\n"
        "    show error\n");
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[0].line, 1);
    EXPECT_EQ(steps[1].line, 6);
    EXPECT_EQ(steps[2].line, 7);
}

TEST(CompileScript, RefusesADuringThatIsWrong) {
    EXPECT_EQ(RefusalBy(CompileScript, "during\n show error"),
              "1: wrong number of words: during box, during input or during menu");
    EXPECT_EQ(RefusalBy(CompileScript, "during window\n show error"),
              "1: during box, during input or during menu");
    for (const char* text : {"during box", "during box\nshow error", "  during box\n show error"}) {
        EXPECT_EQ(RefusalBy(CompileScript, text),
                  "1: no line follows that is indented deeper: during box");
    }
    EXPECT_EQ(RefusalBy(CompileScript, "during box\n  during menu\n    clik x\n"),
              "3: unknown command \"clik\"");
}

}  // namespace
}  // namespace zv::script
