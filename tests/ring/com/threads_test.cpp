// Threads that use the control after each other, and one that lets go of it too late.
#include <gtest/gtest.h>

#include <thread>

#include "ring.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

TEST(Threads, OneAfterTheOther) {
    EXPECT_EQ(WhatIsLeft(), "");
    for (Rounds rounds(8); rounds.Next();) {
        std::string wrong = "did not run\n";
        Now("a thread of its own");
        std::thread([&] {
            OleInitialize(nullptr);
            Stage stage;
            wrong = stage.control ? "" : "no control\n";
            if (stage.control) {
                SetDatabase(*stage.Borrow<IDispatch>());
                stage.Borrow<ITask>(zv::com::kInterfaceId)->refresh(9, 0);
                wrong += CloseWindows() ? "" : "windows are left\n";
                wrong += stage.Close();
            }
            OleUninitialize();
        }).join();
        EXPECT_EQ(wrong, "");
        EXPECT_EQ(NormalLife(), "");
    }
}

TEST(Threads, EndedWithWindowsOpenLeavesTheControlToTheNext) {
    EXPECT_EQ(WhatIsLeft(), "");
    std::thread([] {
        OleInitialize(nullptr);
        {
            ComPtr<ITask> task;
            CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER,
                             zv::com::kInterfaceId, task.PutVoid());
            SetDatabase(*task.As<IDispatch>(IID_IDispatch));
            task->refresh(9, 0);
        }
        OleUninitialize();
    }).join();
    EXPECT_EQ(NormalLife(), "");
}

TEST(Threads, ReleasedOnceTheirApartmentIsGone) {
    EXPECT_EQ(WhatIsLeft(), "");
    std::thread([] {
        OleInitialize(nullptr);
        ComPtr<IUnknown> control;
        CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                         control.PutVoid());
        SetDatabase(*control.As<IDispatch>());
        OleUninitialize();
        control.Reset();
    }).join();
    EXPECT_EQ(NormalLife(), "");
}

}  // namespace
}  // namespace zv::ring::com
