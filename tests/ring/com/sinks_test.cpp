// Sinks and cookies that no host should bring.
#include <gtest/gtest.h>

#include "ring.h"
#include "rules.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

class Sinks : public testing::Test {
 protected:
    void TearDown() override { EXPECT_EQ(stage.End(), ""); }
    void SetAlertType(std::int16_t value) {
        EXPECT_EQ(stage.Borrow<ITask>(zv::com::kInterfaceId)->put_AlertType(value), S_OK);
    }
    Stage stage;
};

TEST_F(Sinks, WithoutTheInterfaceAreRefused) {
    stage.sink.offersNothing = true;
    stage.secondSink.answersWithNothing = true;
    for (const IID& iid : {IID_IPropertyNotifySink, zv::com::kEventsId}) {
        DWORD cookie = 9;
        EXPECT_EQ(stage.Point(iid)->Advise(stage.sink.Identity(), &cookie),
                  CONNECT_E_CANNOTCONNECT);
        EXPECT_EQ(cookie, 0u);
        EXPECT_EQ(stage.Point(iid)->Advise(stage.secondSink.Identity(), &cookie),
                  CONNECT_E_CANNOTCONNECT);
        EXPECT_EQ(stage.Point(iid)->Advise(nullptr, &cookie), E_POINTER);
        EXPECT_EQ(stage.Point(iid)->Advise(stage.sink.Identity(), nullptr), E_POINTER);
        for (const DWORD wrong : {0ul, 1ul, 77ul, 0xFFFFFFFFul}) {
            EXPECT_EQ(stage.Point(iid)->Unadvise(wrong), CONNECT_E_NOCONNECTION);
        }
    }
    SetAlertType(1);
}

TEST_F(Sinks, OnceDisconnectedHearNoMore) {
    ASSERT_EQ(stage.Point(IID_IPropertyNotifySink)->Advise(stage.sink.Identity(), &stage.cookie),
              S_OK);
    ASSERT_EQ(stage.Point(IID_IPropertyNotifySink)
                  ->Advise(stage.secondSink.Identity(), &stage.secondCookie),
              S_OK);
    stage.sink.onCall = [&] { stage.Point(IID_IPropertyNotifySink)->Unadvise(stage.secondCookie); };
    SetAlertType(1);
    EXPECT_EQ(stage.sink.calls, 1);
    EXPECT_EQ(stage.secondSink.calls, 0) << "the first had it disconnected before its turn";
}

TEST_F(Sinks, ManyTimesTheSame) {
    constexpr int kTimes = 500;
    std::vector<DWORD> cookies;
    for (int i = 0; i < kTimes; i++) {
        DWORD cookie = 0;
        ASSERT_EQ(stage.Point(IID_IPropertyNotifySink)->Advise(stage.sink.Identity(), &cookie),
                  S_OK);
        cookies.push_back(cookie);
    }
    SetAlertType(2);
    EXPECT_EQ(stage.sink.calls, kTimes);
    for (const DWORD cookie : cookies) {
        EXPECT_EQ(stage.Point(IID_IPropertyNotifySink)->Unadvise(cookie), S_OK);
    }
    EXPECT_EQ(stage.sink.Imbalance(), "");
}

TEST_F(Sinks, WhatTheyThrowStaysWithThem) {
    ASSERT_EQ(stage.Point(zv::com::kEventsId)->Advise(stage.sink.Identity(), &stage.cookie), S_OK);
    // It is asked for its interface first.
    stage.trouble.Plan(2, DISP_E_EXCEPTION);
    SetDatabase(*stage.Borrow<IDispatch>());
    const Closer closer;
    EXPECT_EQ(stage.Borrow<ITask>(zv::com::kInterfaceId)->refresh(9, 1), S_OK);
    EXPECT_TRUE(CloseWindows());
    EXPECT_GT(stage.sink.calls, 0);
}

}  // namespace
}  // namespace zv::ring::com
