// The values of an item's fields in the controls that edit them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "items/item_row.h"
#include "session/session.h"
#include "windows/main/panels/field_box.h"

namespace zv::windows {

class ItemValues {
 public:
    /// The session must outlive this.
    ItemValues(Session& session, std::vector<FieldBox> boxes);

    void Show(std::size_t field, const store::Value& value) const;
    /// What a box holds, as the user reads it.
    std::string Text(std::size_t field) const;
    /// The number of the row that is chosen in a list; -1 for none.
    int Row(std::size_t field) const;

    /// What a save stores when it stores what the controls hold: the writer is the current user,
    /// the item alerts at its moment, and `number` is that of its plan or card. A list without a
    /// chosen row has nothing to store.
    items::ItemEntry Entry(std::int32_t number) const;

 private:
    forms::Control* BoxOf(std::size_t field) const;
    std::optional<store::Value> ValueOf(std::size_t field) const;

    Session& session_;
    std::vector<FieldBox> boxes_;
};

}  // namespace zv::windows
