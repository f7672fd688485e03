#include "resources/file_settings.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/errors.h"
#include "temporary_folder.h"

namespace zv::resources {
namespace {

class FileSettingsTest : public ::testing::Test {
 protected:
    test::TemporaryFolder folder;
    FileSettings settings{folder / "settings.ini"};
};

TEST_F(FileSettingsTest, AnswersTheDefaultWithoutAFile) {
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "Startup", "1"), "1");
}

TEST_F(FileSettingsTest, KeepsATextForTheNextObject) {
    settings.Save("Tarnell", "zvTask", "DataPath", "D:\\数据 库\\t.mdb");
    EXPECT_EQ(FileSettings(folder / "settings.ini").Get("Tarnell", "zvTask", "DataPath", ""),
              "D:\\数据 库\\t.mdb");
}

TEST_F(FileSettingsTest, AnEmptyTextIsNotAbsent) {
    settings.Save("Tarnell", "zvTask", "Startup", "");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "Startup", "1"), "");
}

TEST_F(FileSettingsTest, ComparesNamesWithoutRegardToCase) {
    settings.Save("Tarnell", "zvTask", "Startup", "0");
    settings.Save("tarnell", "ZVTASK", "startup", "1");
    EXPECT_EQ(settings.Get("TARNELL", "zvtask", "STARTUP", ""), "1");
}

TEST_F(FileSettingsTest, DistinguishesSectionsAndApplications) {
    settings.Save("Tarnell", "zvTask", "K", "a");
    settings.Save("Tarnell", "zv2000", "K", "b");
    settings.Save("Other", "zvTask", "K", "c");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "K", ""), "a");
    EXPECT_EQ(settings.Get("Tarnell", "zv2000", "K", ""), "b");
    EXPECT_EQ(settings.Get("Other", "zvTask", "K", ""), "c");
}

TEST_F(FileSettingsTest, AnyTextAndNameSurvives) {
    const std::string text = "a=b\r\n[c]\\n;\t ";
    settings.Save("[x", "y]", "[k=", text);
    settings.Save("[x", "y]", "k]", "]");
    EXPECT_EQ(settings.Get("[x", "y]", "[k=", ""), text);
    EXPECT_EQ(settings.Get("[x", "y]", "k]", ""), "]");
}

TEST_F(FileSettingsTest, SeesWhatAnotherObjectSaved) {
    FileSettings other(folder / "settings.ini");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "K", ""), "");
    other.Save("Tarnell", "zvTask", "K", "v");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "K", ""), "v");
}

TEST_F(FileSettingsTest, AFileThatCannotBeWrittenIsAnError) {
    FileSettings missing(folder / "no folder" / "settings.ini");
    try {
        missing.Save("Tarnell", "zvTask", "K", "v");
        FAIL() << "nothing was thrown";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::PathFileAccess);
    }
}

TEST_F(FileSettingsTest, LeavesNoHalfFileBehind) {
    settings.Save("Tarnell", "zvTask", "K", "v");
    EXPECT_FALSE(std::filesystem::exists(folder / "settings.ini.part"));
}

}  // namespace
}  // namespace zv::resources
