// What registering leaves in the registry, and that unregistering leaves nothing.
#include "container.h"

namespace container {
namespace {

using Snapshot = std::map<std::wstring, std::wstring>;

void Collect(HKEY key, const std::wstring& path, Snapshot& all) {
    all[path] = L"";
    wchar_t name[512];
    std::vector<BYTE> data(1 << 16);
    for (DWORD i = 0;; i++) {
        DWORD length = ARRAYSIZE(name);
        DWORD size = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key, i, name, &length, nullptr, &type, data.data(), &size) !=
            ERROR_SUCCESS) {
            break;
        }
        all[path + L"@" + std::wstring(name, length)] =
            std::wstring(reinterpret_cast<const wchar_t*>(data.data()), size / sizeof(wchar_t));
    }
    for (DWORD i = 0;; i++) {
        DWORD length = ARRAYSIZE(name);
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        Collect(child, path + L"\\" + std::wstring(name, length), all);
        RegCloseKey(child);
    }
}

Snapshot Classes(HKEY root) {
    Snapshot all;
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &key) != ERROR_SUCCESS) return all;
    Collect(key, L"", all);
    RegCloseKey(key);
    return all;
}

std::string Difference(const Snapshot& before, const Snapshot& after) {
    std::string text;
    for (const auto& [path, value] : after) {
        const auto at = before.find(path);
        if (at == before.end()) text += "+" + zv::win32::ToUtf8(path) + "\n";
        if (at != before.end() && at->second != value) {
            text += "~" + zv::win32::ToUtf8(path) + "\n";
        }
    }
    for (const auto& [path, value] : before) {
        if (!after.contains(path)) text += "-" + zv::win32::ToUtf8(path) + "\n";
    }
    return text;
}

// The tests of this file start with the control unregistered.
class RegistrationTest : public ::testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(File().unregisterServer(), S_OK);
        machine = Classes(HKEY_LOCAL_MACHINE);
        user = Classes(HKEY_CURRENT_USER);
    }
    void TearDown() override { ASSERT_EQ(File().registerServer(), S_OK); }

    Snapshot machine;
    Snapshot user;
};

std::wstring ValueOf(const std::wstring& path, const wchar_t* name = nullptr) {
    wchar_t text[512];
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_CLASSES_ROOT, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) !=
        ERROR_SUCCESS) {
        return L"<none>";
    }
    return text;
}

TEST_F(RegistrationTest, UnregisteringLeavesNothingOfTheMachine) {
    ASSERT_EQ(File().registerServer(), S_OK);
    EXPECT_NE(Difference(machine, Classes(HKEY_LOCAL_MACHINE)), "");
    EXPECT_EQ(Difference(user, Classes(HKEY_CURRENT_USER)), "");
    ASSERT_EQ(File().unregisterServer(), S_OK);
    EXPECT_EQ(Difference(machine, Classes(HKEY_LOCAL_MACHINE)), "");
    EXPECT_EQ(Difference(user, Classes(HKEY_CURRENT_USER)), "");
}

TEST_F(RegistrationTest, CanBeForTheUserOnly) {
    ASSERT_EQ(File().install(TRUE, L"user"), S_OK);
    EXPECT_EQ(Difference(machine, Classes(HKEY_LOCAL_MACHINE)), "");
    EXPECT_NE(Difference(user, Classes(HKEY_CURRENT_USER)), "");
    // Read where it was written: not every system shows the user's classes among all classes.
    EXPECT_TRUE(Classes(HKEY_CURRENT_USER).contains(L"\\zv_Task.zvTask\\CLSID"));
    ASSERT_EQ(File().install(FALSE, L"user"), S_OK);
    EXPECT_EQ(Difference(user, Classes(HKEY_CURRENT_USER)), "");
}

TEST_F(RegistrationTest, UnregisteringFindsWhatIsTheUsersToo) {
    ASSERT_EQ(File().install(TRUE, L"user"), S_OK);
    ASSERT_EQ(File().unregisterServer(), S_OK);
    EXPECT_EQ(Difference(user, Classes(HKEY_CURRENT_USER)), "");
}

// Keys that go with the session refuse lasting ones below them: a machine that cannot be written.
TEST_F(RegistrationTest, WithoutTheRightToWriteForTheMachineItIsForTheUser) {
    constexpr wchar_t kScratch[] = L"Software\\zvTask registration test";
    HKEY scratch = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, kScratch, 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &scratch, nullptr),
              ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, scratch), ERROR_SUCCESS);
    const HRESULT registered = File().registerServer();
    const Snapshot refused = Classes(HKEY_LOCAL_MACHINE);
    const Snapshot now = Classes(HKEY_CURRENT_USER);
    const HRESULT unregistered = File().unregisterServer();
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(scratch);
    RegDeleteTreeW(HKEY_CURRENT_USER, kScratch);
    EXPECT_EQ(registered, S_OK);
    EXPECT_TRUE(refused.empty());
    EXPECT_NE(Difference(user, now), "");
    EXPECT_EQ(unregistered, S_OK);
    EXPECT_EQ(Difference(user, Classes(HKEY_CURRENT_USER)), "");
    EXPECT_EQ(Difference(machine, Classes(HKEY_LOCAL_MACHINE)), "");
}

TEST_F(RegistrationTest, RegisteringTwiceIsAsOnce) {
    ASSERT_EQ(File().registerServer(), S_OK);
    const Snapshot once = Classes(HKEY_LOCAL_MACHINE);
    ASSERT_EQ(File().registerServer(), S_OK);
    EXPECT_EQ(Difference(once, Classes(HKEY_LOCAL_MACHINE)), "");
}

TEST_F(RegistrationTest, UnregisteringWhatIsNotThereSucceeds) {
    EXPECT_EQ(File().unregisterServer(), S_OK);
}

TEST_F(RegistrationTest, TheLibraryStaysForTheOtherWordSize) {
    ASSERT_EQ(File().registerServer(), S_OK);
    const std::wstring platforms = L"TypeLib\\{F23DC7BD-6762-4632-97F0-90358220B00D}\\1.0\\0\\";
    const std::wstring own = platforms + (sizeof(void*) == 8 ? L"win64" : L"win32");
    const std::wstring other = platforms + (sizeof(void*) == 8 ? L"win32" : L"win64");
    const std::wstring key = L"Software\\Classes\\" + other;
    EXPECT_NE(ValueOf(own), L"<none>");
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, L"x", 4),
              ERROR_SUCCESS);
    ASSERT_EQ(File().unregisterServer(), S_OK);
    EXPECT_EQ(ValueOf(other), L"x");
    EXPECT_EQ(ValueOf(own), L"<none>");
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
    ASSERT_EQ(File().unregisterServer(), S_OK);
    EXPECT_EQ(Difference(machine, Classes(HKEY_LOCAL_MACHINE)), "");
}

// One name stands for both classes, so that it serves the one that is left.
TEST_F(RegistrationTest, TheNamesStayForTheOtherWordSize) {
    BOOL ofTheOther = FALSE;
    IsWow64Process(GetCurrentProcess(), &ofTheOther);
    if (sizeof(void*) == 4 && !ofTheOther) GTEST_SKIP() << "the system knows 32 bits only";
    ASSERT_EQ(File().registerServer(), S_OK);
    constexpr wchar_t kServer[] =
        L"Software\\Classes\\CLSID\\{29DE1175-A4EF-4D13-9534-1C19C40DDBC5}\\InprocServer32";
    constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY other = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, kServer, 0, nullptr, 0,
                              KEY_ALL_ACCESS | kOtherView, nullptr, &other, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(other);
    ASSERT_EQ(File().unregisterServer(), S_OK);
    EXPECT_NE(ValueOf(L"zv_Task.zvTask\\CLSID"), L"<none>");
    EXPECT_NE(ValueOf(L"zv_Task.zvTask.1\\CLSID"), L"<none>");
    HKEY classes = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", 0,
                            KEY_ALL_ACCESS | kOtherView, &classes),
              ERROR_SUCCESS);
    RegDeleteTreeW(classes, L"{29DE1175-A4EF-4D13-9534-1C19C40DDBC5}");
    RegCloseKey(classes);
    ASSERT_EQ(File().unregisterServer(), S_OK);
    EXPECT_EQ(ValueOf(L"zv_Task.zvTask\\CLSID"), L"<none>");
    EXPECT_EQ(Difference(user, Classes(HKEY_CURRENT_USER)), "");
}

TEST_F(RegistrationTest, SaysWhatContainersLookFor) {
    ASSERT_EQ(File().registerServer(), S_OK);
    const std::wstring key = L"CLSID\\{29DE1175-A4EF-4D13-9534-1C19C40DDBC5}";
    const auto value = [&](const wchar_t* below) { return ValueOf((key + below).c_str()); };
    EXPECT_EQ(value(L"\\ProgID"), L"zv_Task.zvTask.1");
    EXPECT_EQ(value(L"\\VersionIndependentProgID"), L"zv_Task.zvTask");
    EXPECT_EQ(ValueOf(L"zv_Task.zvTask\\CurVer"), L"zv_Task.zvTask.1");
    EXPECT_EQ(_wcsicmp(value(L"\\InprocServer32").c_str(), File().path.c_str()), 0);
    EXPECT_EQ(ValueOf((key + L"\\InprocServer32").c_str(), L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(value(L"\\Version"), L"1.0");
    EXPECT_EQ(value(L"\\TypeLib"), L"{F23DC7BD-6762-4632-97F0-90358220B00D}");
    EXPECT_TRUE(value(L"\\ToolboxBitmap32").ends_with(L", 102"));
    for (const wchar_t* present :
         {L"\\Control", L"\\Programmable",
          L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}"}) {
        HKEY opened = nullptr;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, (key + present).c_str(), 0, KEY_READ, &opened),
                  ERROR_SUCCESS)
            << zv::win32::ToUtf8(present);
        if (opened) RegCloseKey(opened);
    }
    // Nothing claims that pages from anywhere may script the control or feed it data.
    for (const wchar_t* absent :
         {L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
          L"\\Implemented Categories\\{7DD95802-9882-11CF-9FA9-00AA006C42C4}"}) {
        HKEY opened = nullptr;
        EXPECT_NE(RegOpenKeyExW(HKEY_CLASSES_ROOT, (key + absent).c_str(), 0, KEY_READ, &opened),
                  ERROR_SUCCESS);
        if (opened) RegCloseKey(opened);
    }
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(zv::com::kLibraryId, 1, 0, LOCALE_NEUTRAL, library.Put()), S_OK);
}

TEST_F(RegistrationTest, RefusesAnUnknownScope) {
    EXPECT_EQ(File().install(TRUE, L"everybody"), E_INVALIDARG);
}

}  // namespace
}  // namespace container
