// Items in a database, for tests of what happens to their rows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "changes/row_change.h"
#include "items/item_row.h"
#include "watched_database.h"

namespace zv::changes {

class StoredItemsTest : public store::WatchedDatabaseTest {
 protected:
    using Strings = std::vector<std::string>;

    void SetUp() override {
        WatchedDatabaseTest::SetUp();
        if (IsSkipped()) return;
        database_.EnsureConnection();
    }
    /// As another program would.
    void Run(const std::string& sql) { Another()->Execute(sql); }
    void Insert(std::int32_t id, const std::string& title) {
        Run("insert into tTaskList(fID,taskTitle,fType,tDone,fContent) values(" +
            std::to_string(id) + ",'" + title + "',0,0,'O''Brien')");
    }
    std::optional<Fields> Row(std::int32_t id) { return Load(database_, items::ItemTable(), id); }
    /// The titles of all items, by number.
    Strings Titles() {
        const auto connection = Another();
        const auto rows =
            connection->Open("select fID,taskTitle from tTaskList order by fID",
                             store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        Strings titles;
        for (; !rows->Eof(); rows->MoveNext()) {
            titles.push_back(rows->Field(0).ToText() + " " + rows->Field(1).ToText());
        }
        return titles;
    }
    RowChange Deletion(std::int32_t id) { return {&items::ItemTable(), id, Row(id), std::nullopt}; }
    static RowChange Retitled(std::int32_t id, const std::string& from, const std::string& to) {
        RowChange change{&items::ItemTable(), id, Fields(items::kFields.size()),
                         Fields(items::kFields.size())};
        (*change.before)[items::field::kTitle] = from;
        (*change.after)[items::field::kTitle] = to;
        return change;
    }
};

}  // namespace zv::changes
