// What the user is asked before something that somebody else stored is overwritten.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mainwindow/item_record.h"

namespace zv::mainwindow {

class frmTaskMain;

/// Two texts, each short enough for a line. Where they begin alike for long they are shown from
/// shortly before the first difference on; "..." stands for what is left out.
std::pair<std::string, std::string> Excerpts(std::string_view one, std::string_view other);

class ConflictQuestion {
 public:
    ConflictQuestion(const frmTaskMain& window, const ItemRecord& now, const ItemEntry& own)
        : window_(window), now_(now), own_(own) {}

    /// Shows both values of each field and answers whether the own ones are to be written. Database
    /// errors reach the caller.
    bool MayOverwrite(const std::vector<std::size_t>& fields) const;

 private:
    std::string Line(std::size_t field) const;
    std::string Caption(std::string_view field) const;
    std::string Shown(std::string_view field, const store::Value& value, bool visit) const;
    std::string CardText(std::int32_t card) const;
    bool IsVisitNow() const;
    bool IsVisitInEditor() const;

    const frmTaskMain& window_;
    const ItemRecord& now_;
    const ItemEntry& own_;
};

}  // namespace zv::mainwindow
