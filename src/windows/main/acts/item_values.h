// The values of an item's fields in the controls that edit them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "forms/date_picker.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "items/item_row.h"
#include "session/session.h"
#include "windows/main/panels/field_box.h"

namespace zv::windows {

class ItemValues {
 public:
    /// The session and the controls must outlive this.
    ItemValues(Session& session, const std::vector<FieldBox>& boxes);

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
    /// Nothing for a field that no control edits.
    using Box = std::variant<std::monostate, forms::TextBox*, forms::ComboBox*, forms::DatePicker*>;

    static Box Known(forms::Control* box);
    template <class T>
    T* BoxAs(std::size_t field) const {
        T* const* box = std::get_if<T*>(&boxes_[field]);
        return box ? *box : nullptr;
    }
    std::optional<store::Value> ValueOf(std::size_t field) const;

    Session& session_;
    std::vector<Box> boxes_;  ///< by field
};

}  // namespace zv::windows
