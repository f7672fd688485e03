#include "session/text_checks.h"

#include <gtest/gtest.h>

#include "application/test_application.h"
#include "forms/text_box.h"

namespace zv {
namespace {

using Messages = std::vector<std::string>;

TEST(CheckText, RefusesTheSingleQuoteOnly) {
    test::TestApplication stage;
    EXPECT_TRUE(CheckText(stage.session, ""));
    EXPECT_TRUE(CheckText(stage.session, "say \"yes\""));
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_FALSE(CheckText(stage.session, "O'Brien"));
    EXPECT_EQ(stage.dialogs.messages, Messages{"48|文本错误: 文本中不可含有<引号>或<单引号> !"});
}

TEST(CheckText, ReportsInTheControlsLanguage) {
    test::TestApplication stage;
    stage.session.state.Language = 1;
    EXPECT_FALSE(CheckText(stage.session, "'"));
    EXPECT_EQ(stage.dialogs.messages, Messages{"48|文本錯誤: 文本中不可含有<引號>或<單引號> !"});
}

class FieldText : public testing::Test {
 protected:
    bool Check(const std::string& text, bool numericOnly) {
        box.SetText(text);
        box.Select(0, 0);
        stage.dialogs.messages.clear();
        return CheckFieldText(stage.session, box, numericOnly);
    }
    test::TestApplication stage;
    forms::Form form{stage.windows, "frmTest"};
    forms::TextBox box{form, "txtTest"};
};

TEST_F(FieldText, AQuoteIsRefusedAndTheTextSelected) {
    EXPECT_TRUE(Check("a'b", false));
    EXPECT_EQ(stage.dialogs.messages, Messages{"48|不能输入单引号,请删除!"});
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 3);
}

TEST_F(FieldText, OnlyNumbersPassWhereNumbersAreAsked) {
    EXPECT_TRUE(Check("12a", true));
    EXPECT_EQ(stage.dialogs.messages, Messages{"48|只能输入数字,请删除其它字符!"});
    EXPECT_EQ(box.SelLength(), 3);
    EXPECT_FALSE(Check("12", true));
    EXPECT_FALSE(Check("", true));
    EXPECT_FALSE(Check("12a", false));
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST(CutToBytes, CountsDoubleByteCharactersTwice) {
    const platform::scripted::ScriptedCodePage codePage;
    EXPECT_EQ(ByteLength(codePage, "ab任务"), 6u);
    EXPECT_EQ(CutToBytes(codePage, "ab任务", 6), "ab任务");
    EXPECT_EQ(CutToBytes(codePage, "ab任务", 5), "ab任");
    EXPECT_EQ(CutToBytes(codePage, "任务", 1), "");
    EXPECT_EQ(CutToBytes(codePage, "", 0), "");
}

TEST(FitTextBytes, ReportsOnlyWhenSomethingIsCutAndTheFieldNamed) {
    test::TestApplication stage;
    EXPECT_EQ(FitTextBytes(stage.session, "任务计划", 8, "主题"), "任务计划");
    EXPECT_EQ(FitTextBytes(stage.session, "任务计划", 7, ""), "任务计");
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_EQ(FitTextBytes(stage.session, "任务计划", 7, "主题"), "任务计");
    EXPECT_EQ(stage.dialogs.messages, Messages{"64|[主题] over max length (7) !"});
}

}  // namespace
}  // namespace zv
