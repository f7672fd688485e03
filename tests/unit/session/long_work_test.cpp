#include "session/long_work.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv::progress {
namespace {

class Pieces : public LongWork {
 public:
    explicit Pieces(int count) : left_(count) {}
    bool Continue() override {
        if (failing && left_ == 1) throw RuntimeError(ErrorNumber::DiskFull);
        return --left_ > 0;
    }
    int Left() const { return left_; }
    bool failing = false;

 private:
    int left_;
};

class LongWorkWindow : public testing::Test {
 protected:
    /// Ticks until the window is gone, or cancels it after so many ticks.
    void Play(int cancelAfter = -1) {
        stage_.backend.modalLoop = [this, cancelAfter](forms::Form& form) {
            shown_ = true;
            auto& window = static_cast<frmProgress&>(form);
            for (int tick = 0; form.IsShown(); tick++) {
                if (tick == cancelAfter) {
                    stage_.user.Click(window.cmdCancel);
                } else {
                    stage_.user.Tick(window.Timer1);
                }
            }
        };
    }
    WorkEnd Run(Pieces& work) {
        WorkEnd end = WorkEnd::Cancelled;
        stage_.windows.FromHost([&] { end = RunLongWork(stage_.session, "工作", work); });
        return end;
    }

    test::TestApplication stage_;
    bool shown_ = false;
};

TEST_F(LongWorkWindow, ShortWorkNeedsNoWindow) {
    Play();
    Pieces work(LongWork::kPiecesAtOnce);
    EXPECT_EQ(Run(work), WorkEnd::Finished);
    EXPECT_FALSE(shown_);
}

TEST_F(LongWorkWindow, LongWorkDoesOnePieceATick) {
    Play();
    Pieces work(LongWork::kPiecesAtOnce + 3);
    EXPECT_EQ(Run(work), WorkEnd::Finished);
    EXPECT_TRUE(shown_);
    EXPECT_EQ(work.Left(), 0);
    EXPECT_TRUE(stage_.windows.Windows().empty());
}

TEST_F(LongWorkWindow, WorkIsShownWhenItsFirstSecondIsOver) {
    Play();
    class Slow : public Pieces {
     public:
        explicit Slow(platform::scripted::ScriptedClock& clock) : Pieces(3), clock_(clock) {}
        bool Continue() override {
            clock_.Advance(2);
            return Pieces::Continue();
        }

     private:
        platform::scripted::ScriptedClock& clock_;
    };
    Slow work(stage_.clock);
    EXPECT_EQ(Run(work), WorkEnd::Finished);
    EXPECT_TRUE(shown_);
}

TEST_F(LongWorkWindow, ACancelStopsBetweenPieces) {
    Play(2);
    Pieces work(LongWork::kPiecesAtOnce + 5);
    EXPECT_EQ(Run(work), WorkEnd::Cancelled);
    EXPECT_EQ(work.Left(), 3);
}

TEST_F(LongWorkWindow, AnErrorLeavesWhenTheWindowIsGone) {
    Play();
    Pieces work(LongWork::kPiecesAtOnce + 3);
    work.failing = true;
    EXPECT_THROW(Run(work), RuntimeError);
    EXPECT_TRUE(stage_.windows.Windows().empty());
    EXPECT_TRUE(stage_.dialogs.messages.empty());
}

}  // namespace
}  // namespace zv::progress
