// An item's fields in two versions, as the user is asked about them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mainwindow/item_record.h"
#include "session/conflict_question.h"

namespace zv::mainwindow {

class frmTaskMain;

class ConflictQuestion {
 public:
    ConflictQuestion(const frmTaskMain& window, const store::RowValues& stored,
                     const store::RowValues& own)
        : window_(window), stored_(stored), own_(own) {}

    /// Which version of these fields is to be written; nothing when the save is called off.
    /// Database errors reach the caller.
    std::optional<store::RowMerge::Version> Ask(const std::vector<std::size_t>& fields) const;

 private:
    std::string Caption(std::string_view field) const;
    std::string Shown(std::string_view field, const store::RowValues& row) const;
    std::string CardText(std::int32_t card) const;

    const frmTaskMain& window_;
    const store::RowValues& stored_;
    const store::RowValues& own_;
};

}  // namespace zv::mainwindow
