#include "automation/class_factory.h"

#include <gtest/gtest.h>

#include "automation/module.h"
#include "base/win32/com_ptr.h"

namespace zv::automation {
namespace {

constexpr CLSID kMadeClass = {0x6b1f0f35, 0x2f0d, 0x4d1e, {0x8a, 1, 2, 3, 4, 5, 6, 7}};
int made = 0;

HRESULT Make(IUnknown* outer, REFIID, void**) noexcept {
    made++;
    return outer ? CLASS_E_NOAGGREGATION : E_ABORT;
}

TEST(ClassFactory, KeepsTheFileWhileItIsHeldOrLocked) {
    ClassFactory factories[] = {{kMadeClass, &Make}};
    EXPECT_FALSE(module::IsLocked());
    win32::ComPtr<IClassFactory> factory;
    ASSERT_EQ(GetClassObject(factories, kMadeClass, IID_IClassFactory, factory.PutVoid()), S_OK);
    EXPECT_EQ(module::Locks(), 1);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory->LockServer(TRUE);
    EXPECT_EQ(module::Locks(), 3);
    factory->LockServer(FALSE);
    factory->LockServer(FALSE);
    factory.Reset();
    EXPECT_FALSE(module::IsLocked());
}

TEST(ClassFactory, AnswersWhatTheMakerAnswers) {
    ClassFactory factory(kMadeClass, &Make);
    void* object = &factory;
    made = 0;
    EXPECT_EQ(factory.CreateInstance(nullptr, IID_IUnknown, &object), E_ABORT);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory.CreateInstance(&factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory.CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(made, 2);
}

TEST(ClassFactory, OtherClassesAreNotAvailable) {
    ClassFactory factories[] = {{kMadeClass, &Make}};
    void* object = &factories;
    EXPECT_EQ(GetClassObject(factories, IID_IUnknown, IID_IClassFactory, &object),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(GetClassObject(factories, kMadeClass, IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(GetClassObject(factories, kMadeClass, IID_IClassFactory, nullptr), E_POINTER);
}

TEST(Module, KnowsItsFile) {
    EXPECT_EQ(module::Handle(), GetModuleHandleW(nullptr));
    const std::wstring path = module::Path();
    EXPECT_EQ(path, module::PathOf(nullptr));
    EXPECT_NE(path.find(L"automation_test.exe"), std::wstring::npos);
    EXPECT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace zv::automation
