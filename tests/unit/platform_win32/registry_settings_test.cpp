#include "resources/win32/registry_settings.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace zv::resources::win32 {
namespace {

constexpr wchar_t kTestRoot[] = L"Software\\zvTask settings test";

class RegistrySettingsTest : public ::testing::Test {
 protected:
    void SetUp() override { Remove(); }
    void TearDown() override { Remove(); }
    static void Remove() { RegDeleteTreeW(HKEY_CURRENT_USER, kTestRoot); }

    static void Store(const wchar_t* name, DWORD type, const void* data, DWORD size) {
        const std::wstring path = std::wstring(kTestRoot) + L"\\Tarnell\\zvTask";
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name, type, data, size),
                  ERROR_SUCCESS);
    }

    RegistrySettings settings{kTestRoot};
};

TEST_F(RegistrySettingsTest, AnswersTheFallbackWhenAbsent) {
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "TimeSetting", "0"), "0");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "DataPath", ""), "");
}

TEST_F(RegistrySettingsTest, KeepsTextsOfAnyScript) {
    settings.Save("Tarnell", "zvTask", "DataPath", "C:\\数据 库\\taskAlert.mdb");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "DataPath", ""), "C:\\数据 库\\taskAlert.mdb");
}

TEST_F(RegistrySettingsTest, ComparesNamesWithoutRegardToCase) {
    settings.Save("tarnell", "ZVTASK", "startup", "0");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "Startup", "1"), "0");
}

TEST_F(RegistrySettingsTest, AnEmptyStoredTextIsNotTheFallback) {
    settings.Save("Tarnell", "zvTask", "Startup", "");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "Startup", "1"), "");
}

TEST_F(RegistrySettingsTest, StoresPlainTexts) {
    settings.Save("Tarnell", "zv2000", "JbrFrom", "1");
    const std::wstring path = std::wstring(kTestRoot) + L"\\Tarnell\\zv2000";
    wchar_t text[8];
    DWORD size = sizeof text;
    DWORD type = 0;
    ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, path.c_str(), L"JbrFrom", RRF_RT_REG_SZ, &type, text,
                           &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(text), L"1");
}

TEST_F(RegistrySettingsTest, ReadsEveryTypeAsText) {
    const DWORD number = 30;
    const unsigned long long large = 1ull << 40;
    const unsigned char bytes[] = {0x0A, 0xFF};
    const wchar_t lines[] = L"a\0b\0";
    const wchar_t unterminated[] = {L'x', L'y'};
    Store(L"number", REG_DWORD, &number, sizeof number);
    Store(L"large", REG_QWORD, &large, sizeof large);
    Store(L"bytes", REG_BINARY, bytes, sizeof bytes);
    Store(L"lines", REG_MULTI_SZ, lines, sizeof lines);
    Store(L"open", REG_SZ, unterminated, sizeof unterminated);
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "number", ""), "30");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "large", ""), "1099511627776");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "bytes", ""), "0AFF");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "lines", ""), "a\nb");
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "open", ""), "xy");
}

TEST_F(RegistrySettingsTest, ReadsLongTexts) {
    const std::string text(5000, 'x');
    settings.Save("Tarnell", "zvTask", "FullName", text);
    EXPECT_EQ(settings.Get("Tarnell", "zvTask", "FullName", ""), text);
}

}  // namespace
}  // namespace zv::resources::win32
