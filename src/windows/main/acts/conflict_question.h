// An item's fields in two versions, as the user is asked about them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "items/item_row.h"
#include "session/conflict_question.h"
#include "windows/main/acts/field_labels.h"

namespace zv::windows {

class ConflictQuestion {
 public:
    ConflictQuestion(Session& session, const FieldLabels& labels, const items::ItemRow& stored,
                     const items::ItemRow& own)
        : session_(session), labels_(labels), stored_(stored), own_(own) {}

    /// Which version of these fields is to be written; nothing when the save is called off.
    /// Database errors reach the caller.
    std::optional<store::RowMerge::Version> Ask(const std::vector<std::size_t>& fields) const;

 private:
    std::string Caption(std::size_t position) const;
    std::string Shown(std::size_t position, const items::ItemRow& row) const;
    std::string CardText(std::int32_t card) const;

    Session& session_;
    const FieldLabels& labels_;
    const items::ItemRow& stored_;
    const items::ItemRow& own_;
};

}  // namespace zv::windows
