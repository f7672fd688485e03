// Interfaces, aggregation, factories and locks of both files.
#include <gtest/gtest.h>

#include "ring.h"
#include "rules.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

/// An aggregate's outer object: it has nothing but what the control has.
class Outer final : public Double<Outer, IUnknown> {
 public:
    explicit Outer(Trouble& trouble) : Double("outer", trouble) {}
    IUnknown* Find(REFIID) { return nullptr; }
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown) return inner ? inner->QueryInterface(iid, object) : E_NOINTERFACE;
        *object = static_cast<IUnknown*>(this);
        Add();
        return S_OK;
    }
    ComPtr<IUnknown> inner;
};

TEST(Identity, AloneAndInAnAggregate) {
    Trouble none;
    Troupe troupe;
    {
        Stage stage;
        EXPECT_EQ(InterfaceComplaint(*stage.control, container::ControlInterfaces()), "");
        EXPECT_EQ(stage.Close(), "");
    }
    Outer& outer = troupe.Make<Outer>(none);
    ASSERT_EQ(CoCreateInstance(zv::com::kClassId, &outer, CLSCTX_INPROC_SERVER, IID_IUnknown,
                               outer.inner.PutVoid()),
              S_OK);
    EXPECT_EQ(InterfaceComplaint(outer, container::ControlInterfaces()), "");
    EXPECT_EQ(outer.Imbalance(), "");
    outer.inner.Reset();
    EXPECT_EQ(troupe.Imbalance(), "");
    EXPECT_EQ(NormalLife(), "");
}

TEST(Identity, FactoryRefusesWhatItCannotMake) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        container::File().getClassObject(zv::com::kClassId, IID_IClassFactory, factory.PutVoid()),
        S_OK);
    void* made = &factory;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStorage, &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(InterfaceComplaint(*factory, {IID_IUnknown, IID_IClassFactory}), "");
    EXPECT_EQ(container::File().getClassObject(zv::com::kClassId, IID_IStorage, &made),
              E_NOINTERFACE);
    EXPECT_EQ(container::File().getClassObject(zv::com::kClassId, IID_IUnknown, nullptr),
              E_POINTER);
    factory.Reset();
    EXPECT_EQ(WhatIsLeft(), "");
}

TEST(Identity, AnUnlockTooManyUnlocksNothing) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        container::File().getClassObject(zv::com::kClassId, IID_IClassFactory, factory.PutVoid()),
        S_OK);
    Stage stage;
    for (int i = 0; i < 5; i++) EXPECT_TRUE(FAILED(factory->LockServer(FALSE)));
    IClassFactory& kept = *factory;
    factory.Reset();
    EXPECT_EQ(container::File().canUnload(), S_FALSE) << "a control lives";
    EXPECT_EQ(stage.Close(), "");
    EXPECT_EQ(kept.LockServer(TRUE), S_OK);
    EXPECT_EQ(container::File().canUnload(), S_FALSE);
    EXPECT_EQ(kept.LockServer(FALSE), S_OK);
    EXPECT_EQ(WhatIsLeft(), "");
}

/// The opener, the recordset, the runner of modules and the printer of reports.
constexpr CLSID kHostClasses[] = {
    {0x336EFE7F, 0x89AB, 0x4286, {0x91, 0x69, 0xB1, 0xB6, 0x11, 0x10, 0x66, 0xF7}},
    {0xD98B1F19, 0xFE25, 0x430E, {0xAD, 0x23, 0x1B, 0x7C, 0xFB, 0x31, 0x3A, 0x26}},
    {0x5203B1CD, 0xCA6E, 0x4578, {0xB3, 0xA3, 0x86, 0x32, 0x1E, 0xAB, 0xD5, 0x65}},
    {0x8DFBA9A8, 0xD18E, 0x4655, {0x9D, 0x30, 0x38, 0x09, 0x4F, 0x13, 0xAA, 0xB9}},
};

/// Of the file beside the control's.
LPFNGETCLASSOBJECT HostClassObjects() {
    std::wstring path = container::File().path;
    path.replace(path.find_last_of(L"\\/") + 1, std::wstring::npos, L"zv_Host.dll");
    const HMODULE module = LoadLibraryW(path.c_str());
    return module ? reinterpret_cast<LPFNGETCLASSOBJECT>(
                        reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")))
                  : nullptr;
}

TEST(Identity, ObjectsForHostsStandAloneAndKeepTheRules) {
    const LPFNGETCLASSOBJECT getClassObject = HostClassObjects();
    ASSERT_NE(getClassObject, nullptr);
    for (const CLSID& id : kHostClasses) {
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(getClassObject(id, IID_IClassFactory, factory.PutVoid()), S_OK);
        ComPtr<IDispatch> object;
        ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.PutVoid()), S_OK);
        EXPECT_EQ(InterfaceComplaint(*object, {IID_IUnknown, IID_IDispatch, IID_ISupportErrorInfo}),
                  "");
        LPOLESTR names[] = {nullptr, nullptr};
        DISPID ids[] = {7, 7};
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
        Trouble none;
        Troupe troupe;
        Object& outer = troupe.Make<Object>(none);
        void* made = &outer;
        EXPECT_EQ(factory->CreateInstance(&outer, IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(made, nullptr);
    }
}

}  // namespace
}  // namespace zv::ring::com
