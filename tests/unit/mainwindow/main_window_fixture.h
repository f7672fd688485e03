// A main window in the manager's mode over an empty database.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "application/test_application.h"

namespace zv::windows {

// Rows of the lists of kinds and states.
inline constexpr int kTask = Number(items::ItemKind::Task);
inline constexpr int kGuest = Number(items::ItemKind::Guest);
inline constexpr int kDiary = Number(items::ItemKind::Diary);
inline constexpr int kNotDone = Number(items::ItemState::NotDone);
inline constexpr int kDone = Number(items::ItemState::Done);
inline constexpr int kInHand = Number(items::ItemState::InHand);

class MainWindow : public testing::Test {
 protected:
    /// Adds an item whose alert window is the day of its date.
    void AddItem(int kind, const std::string& title, int done = 0,
                 const std::string& day = "2003-03-07") {
        stage.Sql(
            "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) values(" +
            std::to_string(kind) + ",'" + title + "','" + day + " 00:00:00','" + day +
            " 00:00:00','" + day + " 00:00:00'," + std::to_string(done) + ")");
    }
    frmTaskMain& Open(std::int32_t mode = kManagerMode) {
        EXPECT_EQ(stage.Refresh(mode), 0) << stage.errorText;
        stage.statements.Take();
        return *stage.Window();
    }
    void ClickNode(const std::string& key) {
        stage.user.ClickNode(stage.Window()->tree.tvwTask, key);
    }
    void ShowTab(int tab) { stage.user.SelectTab(stage.Window()->SSTab1, tab); }

    test::TestApplication stage;
};

using Lines = std::vector<std::string>;

}  // namespace zv::windows
