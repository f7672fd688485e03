#include "items/item_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/path.h"
#include "doubles/recording_opener.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::items {
namespace {

// The domain on an embedded file, without any window, session or machine.
class ItemStore : public testing::Test {
 protected:
    ItemStore() {
        std::string name = (std::filesystem::temp_directory_path() / "zv-items-XXXXXX").string();
        folder_ = mkdtemp(name.data());
        path_ = Utf8Of(folder_ / "t.db");
        store::CreateSqliteDatabase(path_);
        opener_.open = [this](const store::ConnectionSettings&) {
            return store::OpenSqlite(path_);
        };
    }
    ~ItemStore() override {
        database.Close();
        std::filesystem::remove_all(folder_);
    }
    void Sql(const std::string& statement) {
        database.EnsureConnection();
        database.Execute(statement);
    }
    static ItemEntry Entry(const std::string& title) {
        ItemEntry entry(kFields.size());
        entry[field::kKind] = store::Value(0);
        entry[field::kTitle] = store::Value(title);
        entry[field::kTime] = store::Value(DateTime(2003, 3, 7));
        entry[field::kAlertFrom] = entry[field::kAlertUntil] = entry[field::kTime];
        entry[field::kUser] = store::Value("张三");
        return entry;
    }

    std::filesystem::path folder_;
    std::string path_;
    doubles::RecordingOpener opener_;
    store::Database database{opener_, [] { return store::ConnectionSettings{}; }};
};

TEST_F(ItemStore, WhatIsAddedCanBeLoaded) {
    const SavedItem saved = Add(database, 0, Entry("甲"));
    ASSERT_NE(saved.id, 0);
    EXPECT_EQ(saved.title, "甲");
    const auto row = Load(database, saved.id);
    ASSERT_TRUE(row);
    EXPECT_EQ((*row)[field::kTitle].ToText(), "甲");
    EXPECT_FALSE(Load(database, saved.id + 1));
}

TEST_F(ItemStore, AChangeKeepsWhatOnlySomebodyElseChanged) {
    const std::int32_t id = Add(database, 0, Entry("甲")).id;
    const auto read = Load(database, id);
    const ItemEntry shown = Entry("甲");
    Sql("update tTaskList set fContent='他人的'");
    ItemChange change(database, id, Entry("乙"), read, shown);
    EXPECT_TRUE(std::holds_alternative<SavedItem>(change.Save()));
    const auto row = Load(database, id);
    EXPECT_EQ((*row)[field::kTitle].ToText(), "乙");
    EXPECT_EQ((*row)[field::kContent].ToText(), "他人的");
}

TEST_F(ItemStore, WhatBothChangedIsAConflictUntilItIsDecided) {
    const std::int32_t id = Add(database, 0, Entry("甲")).id;
    const auto read = Load(database, id);
    Sql("update tTaskList set taskTitle='他人的'");
    ItemChange change(database, id, Entry("乙"), read, Entry("甲"));
    const ItemChange::Outcome outcome = change.Save();
    const auto* conflict = std::get_if<ItemChange::Conflict>(&outcome);
    ASSERT_TRUE(conflict);
    EXPECT_EQ((*Load(database, id))[field::kTitle].ToText(), "他人的");
    for (const std::size_t group : change.Merge().Conflicts(conflict->stored)) {
        change.Merge().Decide(group, store::RowMerge::Version::Own, conflict->stored);
    }
    EXPECT_TRUE(std::holds_alternative<SavedItem>(change.Save()));
    EXPECT_EQ((*Load(database, id))[field::kTitle].ToText(), "乙");
}

TEST_F(ItemStore, AnItemThatIsGoneIsNotWrittenAgain) {
    const std::int32_t id = Add(database, 0, Entry("甲")).id;
    const auto read = Load(database, id);
    Delete(database, id);
    ItemChange change(database, id, Entry("乙"), read, Entry("甲"));
    EXPECT_TRUE(std::holds_alternative<ItemChange::Gone>(change.Save()));
    EXPECT_FALSE(Load(database, id));
}

}  // namespace
}  // namespace zv::items
