// That the rules and counts find anything at all: doubles with planted faults.
#include <gtest/gtest.h>

#include <array>

#include "members.h"
#include "rules.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

TEST(RingCom, SeesAReferenceTooManyAndOneTooFew) {
    Trouble none;
    Troupe troupe;
    troupe.Make<Sink>(none).AddRef();
    EXPECT_NE(troupe.Imbalance(), "");
    Troupe another;
    another.Make<Sink>(none).Release();
    EXPECT_NE(another.Imbalance(), "");
}

/// Its object has an identity for each way to it.
class TwoFaced final : public Double<TwoFaced, IDispatch> {
 public:
    explicit TwoFaced(Trouble& trouble) : Double("two-faced", trouble), other_(trouble) {}
    IUnknown* Find(REFIID iid) { return iid == IID_IUnknown ? this : nullptr; }
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        if (iid == IID_IDispatch) return other_.QueryInterface(iid, object);
        return Double::QueryInterface(iid, object);
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_FAIL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return E_FAIL;
    }

 private:
    Object other_;
};

TEST(RingCom, SeesAnObjectWithTwoIdentities) {
    Trouble none;
    TwoFaced object(none);
    EXPECT_NE(InterfaceComplaint(object, {IID_IUnknown, IID_IDispatch}), "");
    EXPECT_NE(InterfaceComplaint(object, {IID_IUnknown, IID_IStorage}), "");
}

TEST(RingCom, SeesResultsThatNobodyDefines) {
    EXPECT_FALSE(IsDefined(static_cast<HRESULT>(0x8ABC1234)));
    EXPECT_FALSE(IsDefined(0x12345678));
    EXPECT_TRUE(IsDefined(DISP_E_EXCEPTION));
    VARIANT number{};
    number.vt = VT_I4;
    const EXCEPINFO nothing{};
    EXPECT_NE(InvokeComplaint({E_FAIL, number, nothing, UINT_MAX, 0, VT_I4}), "");
    EXPECT_NE(InvokeComplaint({S_OK, number, nothing, UINT_MAX, 0, VT_BSTR}), "");
    EXPECT_NE(InvokeComplaint({DISP_E_TYPEMISMATCH, VARIANT{}, nothing, 3, 1, VT_EMPTY}), "");
    EXPECT_EQ(InvokeComplaint({S_OK, number, nothing, UINT_MAX, 0, VT_I4}), "");
}

TEST(RingCom, SeesAControlThatIsNotReleased) {
    ComPtr<IUnknown> forgotten;
    {
        Stage stage;
        forgotten = stage.control;
        EXPECT_EQ(stage.Close(), "");
    }
    EXPECT_NE(WhatIsLeft(), "");
    forgotten.Reset();
    EXPECT_EQ(WhatIsLeft(), "");
}

TEST(RingCom, SeesObjectsOfTheSystemThatStay) {
    constexpr int kPens = 40;
    constexpr int kBytes = 100'000;
    const Census before = Take();
    std::array<HPEN, kPens> pens{};
    for (HPEN& pen : pens) pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    const HWND window =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    std::array<HANDLE, kPens> events{};
    for (HANDLE& event : events) event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const std::string bytes(kBytes, 'x');
    const Census after = Take();
    EXPECT_GE(after.gdi - before.gdi, kPens);
    EXPECT_GT(after.windows, before.windows);
    EXPECT_GT(after.handles, before.handles);
    EXPECT_GE(after.heap - before.heap, kBytes);
    for (const HPEN pen : pens) DeleteObject(pen);
    DestroyWindow(window);
    for (const HANDLE event : events) CloseHandle(event);
}

}  // namespace
}  // namespace zv::ring::com
