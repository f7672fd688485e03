// Identity, aggregation, threads, and when the file may be unloaded.
#include <thread>

#include "container.h"

namespace container {
namespace {

using LifetimeTest = ContainerTest;

TEST_F(LifetimeTest, EveryInterfaceLeadsToEveryOther) {
    for (const IID& from : ControlInterfaces()) {
        ComPtr<IUnknown> first;
        ASSERT_EQ(control->QueryInterface(from, first.PutVoid()), S_OK) << from.Data1;
        for (const IID& to : ControlInterfaces()) {
            ComPtr<IUnknown> second;
            EXPECT_EQ(first->QueryInterface(to, second.PutVoid()), S_OK) << to.Data1;
        }
        EXPECT_EQ(first.As<IUnknown>(), control.As<IUnknown>());
    }
}

TEST_F(LifetimeTest, OffersNoPropertyPages) {
    ComPtr<IUnknown> pages;
    EXPECT_EQ(control->QueryInterface(IID_ISpecifyPropertyPages, pages.PutVoid()), E_NOINTERFACE);
    EXPECT_FALSE(pages);
}

TEST_F(LifetimeTest, TheFileStaysWhileAControlLives) {
    EXPECT_EQ(File().canUnload(), S_FALSE);
    dispatch.Reset();
    control.Reset();
    EXPECT_EQ(File().canUnload(), S_OK);
}

TEST_F(LifetimeTest, TheFileStaysWhileItsFactoryIsLocked) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(File().getClassObject(zv::com::kClassId, IID_IClassFactory, factory.PutVoid()), S_OK);
    dispatch.Reset();
    control.Reset();
    EXPECT_EQ(File().canUnload(), S_FALSE);
    ASSERT_EQ(factory->LockServer(TRUE), S_OK);
    IClassFactory& kept = *factory;
    factory.Reset();
    EXPECT_EQ(File().canUnload(), S_FALSE);
    ASSERT_EQ(kept.LockServer(FALSE), S_OK);
    EXPECT_EQ(File().canUnload(), S_OK);
}

TEST_F(LifetimeTest, KnowsNoOtherClass) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(File().getClassObject(IID_IUnknown, IID_IClassFactory, factory.PutVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(LifetimeTest, PropertiesAreThoseOfTheProcessAndOutliveTheControls) {
    PutText(L"UserID", "kept");
    dispatch.Reset();
    control.Reset();
    ASSERT_EQ(File().canUnload(), S_OK);
    ContainerTest::SetUp();
    EXPECT_EQ(zv::win32::ToUtf8(Get(*dispatch, L"UserID").value.Get().bstrVal), "kept");
    PutText(L"UserID", "");
}

class Outer final : public IUnknown {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid == IID_IUnknown) {
            *object = this;
            AddRef();
            return S_OK;
        }
        return inner->QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    ULONG references = 1;
    ComPtr<IUnknown> inner;
};

TEST_F(LifetimeTest, CanBeAggregated) {
    Outer outer;
    ComPtr<IDispatch> refused;
    EXPECT_EQ(CoCreateInstance(zv::com::kClassId, &outer, CLSCTX_INPROC_SERVER, IID_IDispatch,
                               refused.PutVoid()),
              CLASS_E_NOAGGREGATION);
    ASSERT_EQ(CoCreateInstance(zv::com::kClassId, &outer, CLSCTX_INPROC_SERVER, IID_IUnknown,
                               outer.inner.PutVoid()),
              S_OK);
    ComPtr<IOleObject> object;
    ASSERT_EQ(outer.QueryInterface(IID_IOleObject, object.PutVoid()), S_OK);
    EXPECT_EQ(outer.references, 2u);
    EXPECT_EQ(object.As<IUnknown>().Get(), &outer);
    object.Reset();
    EXPECT_EQ(outer.references, 1u);
    outer.inner.Reset();
}

TEST_F(LifetimeTest, ASecondThreadIsRefusedWhileTheFirstUsesIt) {
    HRESULT hr = S_OK;
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ComPtr<IUnknown> second;
        hr = CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                              second.PutVoid());
        CoUninitialize();
    });
    other.join();
    EXPECT_EQ(hr, RPC_E_WRONG_THREAD);
}

}  // namespace
}  // namespace container
