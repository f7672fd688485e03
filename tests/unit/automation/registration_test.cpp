// What is written to the user's part of the registry, and that all of it goes again.
#include "automation/registration.h"

#include <gtest/gtest.h>

namespace zv::automation {
namespace {

constexpr CLSID kRegisteredClass = {0x3c2f6a71, 0x91d2, 0x4be8, {0x9b, 8, 7, 6, 5, 4, 3, 2}};
constexpr wchar_t kRegisteredName[] = L"zvAutomationTest.Class";

std::optional<std::wstring> Value(const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[300];
    DWORD size = sizeof text;
    const LSTATUS result = RegGetValueW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + key).c_str(),
                                        name, RRF_RT_REG_SZ, nullptr, text, &size);
    if (result != ERROR_SUCCESS) return std::nullopt;
    return text;
}

bool IsThere(const std::wstring& key) {
    HKEY opened = nullptr;
    const std::wstring path = L"Software\\Classes\\" + key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(opened);
    return true;
}

Registration OneClass() {
    Registration registration;
    AddClass(registration, {kRegisteredClass, kRegisteredName, L"A class"}, L"C:\\some\\file.dll");
    const std::wstring key = ClassKey(kRegisteredClass);
    registration.entries.push_back({key + L"\\Alone", L"", {}});
    registration.entries.push_back({key + L"\\Empty", L"", L""});
    registration.removals.push_back({.key = key});
    registration.removals.push_back({.key = kRegisteredName});
    return registration;
}

TEST(Registration, WritesAClassAndItsName) {
    const Registration registration = OneClass();
    const std::wstring key = ClassKey(kRegisteredClass);
    ASSERT_EQ(Register(registration, Scope::User), S_OK);
    EXPECT_EQ(Value(key), L"A class");
    EXPECT_EQ(Value(key + L"\\InprocServer32"), L"C:\\some\\file.dll");
    EXPECT_EQ(Value(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(Value(key + L"\\ProgID"), kRegisteredName);
    EXPECT_EQ(Value(kRegisteredName), L"A class");
    EXPECT_EQ(Value(std::wstring(kRegisteredName) + L"\\CLSID"), Braced(kRegisteredClass));
    EXPECT_TRUE(IsThere(key + L"\\Alone"));
    EXPECT_EQ(Value(key + L"\\Alone"), std::nullopt);
    EXPECT_EQ(Value(key + L"\\Empty"), L"");
    EXPECT_EQ(Unregister(registration, Scope::User), S_OK);
    EXPECT_FALSE(IsThere(key));
    EXPECT_FALSE(IsThere(kRegisteredName));
    EXPECT_EQ(Unregister(registration, Scope::User), S_OK) << "nothing is there";
}

TEST(Registration, AFailureLeavesNothing) {
    Registration registration = OneClass();
    registration.entries.push_back({std::wstring(300, L'x'), L"", L"too long a name"});
    EXPECT_TRUE(FAILED(Register(registration, Scope::User)));
    EXPECT_FALSE(IsThere(ClassKey(kRegisteredClass)));
    EXPECT_FALSE(IsThere(kRegisteredName));
}

TEST(Registration, WhatIsSharedStaysWithTheOther) {
    const std::wstring root = L"zvAutomationTest";
    Registration registration;
    registration.entries = {{root + L"\\mine", L"", L"1"}, {root + L"\\other", L"", L"2"}};
    registration.removals = {{.key = root + L"\\mine"},
                             {.key = root, .unless = root + L"\\other"},
                             {.key = root, .kind = RegistryRemoval::Kind::IfEmpty}};
    ASSERT_EQ(Register(registration, Scope::User), S_OK);
    EXPECT_EQ(Unregister(registration, Scope::User), S_OK);
    EXPECT_FALSE(IsThere(root + L"\\mine"));
    EXPECT_EQ(Value(root + L"\\other"), L"2");
    registration.removals.insert(registration.removals.begin(), {.key = root + L"\\other"});
    EXPECT_EQ(Unregister(registration, Scope::User), S_OK);
    EXPECT_FALSE(IsThere(root));
}

}  // namespace
}  // namespace zv::automation
