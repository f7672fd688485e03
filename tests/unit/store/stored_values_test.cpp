// Values go into every engine and come out as they were.

#include <vector>

#include "base/text.h"
#include "engines.h"

namespace zv::store {
namespace {

class StoredValues : public EngineTest {
 protected:
    /// Writes the value through a recordset into a new item; answers its number.
    int Add(const std::string& field, const Value& value) {
        const auto rows = Edit("select * from tTaskList");
        rows->AddNew();
        rows->SetField(field, value);
        rows->Update();
        return rows->Field("fID").ToInt32();
    }
    Value Get(const std::string& field, int fID) {
        const auto rows =
            Read("select " + field + ",tDone from tTaskList where fID=" + std::to_string(fID));
        EXPECT_EQ(rows->Field(1).ToInt32(), 0) << "the column behind a text";
        return rows->Field(0);
    }
    Value Again(const std::string& field, int fID) {
        return Edit("select * from tTaskList where fID=" + std::to_string(fID))->Field(field);
    }
};
ZV_ON_EVERY_ENGINE(StoredValues);

/// `units` UTF-16 units, with characters of one to four bytes.
std::string Mixed(std::size_t units, std::string_view repeated) {
    std::string text;
    const std::size_t length = text::Length(repeated);
    while (units >= length) {
        text += repeated;
        units -= length;
    }
    return text + std::string(units, 'x');
}

TEST_P(StoredValues, TextsOfAnyLengthComeBackWhole) {
    // Around the sizes of buffers: those that are bound, first and further pieces.
    for (const std::size_t units :
         {0,    1,    2,    255,  256,  257,  258,  511,   4094,  4095,
          4096, 4097, 4098, 8190, 8191, 8192, 9000, 65535, 65536, 300000}) {
        for (const char* repeated : {"abcdefg", "标题文字", "x😀", "é😀标a"}) {
            const std::string text = Mixed(units, repeated);
            const int fID = Add("fContent", text);
            const Value read = Get("fContent", fID);
            ASSERT_TRUE(read == Value(text)) << units << " units of " << repeated << ": "
                                             << text::Length(read.ToText()) << " came back";
            ASSERT_TRUE(Again("fContent", fID) == Value(text)) << units << " of " << repeated;
        }
    }
}
TEST_P(StoredValues, TextsInStatementsComeBackWhole) {
    for (const std::size_t units : {1, 256, 5000, 70000}) {
        const bool rare = Traits().takesRareCharactersInStatements;
        const std::string text = Mixed(units, rare ? "标题😀 a" : "标题é a");
        Execute("delete from tTaskList");
        Execute("insert into tTaskList(fContent) values('" + text + "')");
        EXPECT_TRUE(Read("select fContent from tTaskList")->Field(0) == Value(text)) << units;
    }
}
TEST_P(StoredValues, AnEmptyTextIsNotNull) {
    EXPECT_EQ(Get("taskTitle", Add("taskTitle", "")), Value(""));
    EXPECT_TRUE(Get("taskTitle", Add("taskTitle", Value())).IsNull());
}
TEST_P(StoredValues, LineBreaksBlanksAndPunctuationStay) {
    for (const char* text :
         {" ", "  a  ", "a\r\nb\tc", "?{}[]%_\\'\"`;--", "'", "\\n", "{d '2003-03-07'}"}) {
        EXPECT_EQ(Get("taskTitle", Add("taskTitle", text)), Value(text));
    }
}
TEST_P(StoredValues, ACharacterZeroStaysInATextWhereTheEngineKeepsIt) {
    if (!Traits().keepsNulCharacters) GTEST_SKIP() << "not kept by this engine";
    const std::string text("a\0b", 3);
    EXPECT_EQ(Get("taskTitle", Add("taskTitle", text)), Value(text));
}
TEST_P(StoredValues, DatesOfTheWholeCalendarComeBack) {
    for (const DateTime date :
         {DateTime(100, 1, 1), DateTime(1582, 10, 10), DateTime(1899, 12, 29, 23, 59, 59),
          DateTime(1900, 2, 28), DateTime(2003, 3, 7, 10, 30, 15), DateTime(2024, 2, 29),
          DateTime(9999, 12, 31, 23, 59, 59)}) {
        EXPECT_EQ(Get("taskTime", Add("taskTime", date)), Value(date)) << date.IsoDateTime();
    }
}
TEST_P(StoredValues, NumbersComeBack) {
    for (const int number : {0, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(Get("TaskID", Add("TaskID", number)), Value(number));
    }
}
TEST_P(StoredValues, WhatIsOfAnotherKindIsTurnedIntoTheColumns) {
    EXPECT_EQ(Get("taskTitle", Add("taskTitle", 12)).ToText(), "12");
    EXPECT_EQ(Get("TaskID", Add("TaskID", "12")).ToInt32(), 12);
    EXPECT_EQ(Get("taskTime", Add("taskTime", "2003-3-7")), Value(DateTime(2003, 3, 7)));
}
TEST_P(StoredValues, AnUnchangedTextOfAnyLengthIsRecognisedWhenItIsOverwritten) {
    const std::string text = Mixed(20000, "标题😀 a");
    const int fID = Add("fContent", text);
    const auto rows = Edit("select * from tTaskList where fID=" + std::to_string(fID));
    rows->SetField("fContent", "short");
    rows->Update();
    EXPECT_EQ(Get("fContent", fID), Value("short"));
}
TEST_P(StoredValues, SumsAndCountsAreNumbers) {
    Execute("insert into tTaskList(TaskID,tDone) values(2147483647,1),(2147483647,2)");
    const auto rows = Read("select count(*) as a,sum(TaskID) as b,max(tDone) as c from tTaskList");
    EXPECT_EQ(rows->Field("a").ToInt32(), 2);
    EXPECT_EQ(rows->Field("b").ToDouble(), 4294967294.0);
    EXPECT_EQ(rows->Field("c").ToInt32(), 2);
}
TEST_P(StoredValues, ALargeResultIsReadToItsEnd) {
    constexpr int kRows = 5000;
    std::string values;
    for (int i = 0; i < kRows; i++) {
        values += (i == 0 ? "(" : ",(") + std::to_string(i) + ",'" + Mixed(200, "标 a") + "')";
    }
    Execute("insert into tTaskList(TaskID,fContent) values" + values);
    int count = 0;
    for (const auto rows = Read("select TaskID,fContent from tTaskList order by TaskID");
         !rows->Eof(); rows->MoveNext()) {
        ASSERT_EQ(rows->Field(0).ToInt32(), count++);
        ASSERT_EQ(rows->Field(1).TextIf()->size(), Mixed(200, "标 a").size());
    }
    EXPECT_EQ(count, kRows);
}

}  // namespace
}  // namespace zv::store
