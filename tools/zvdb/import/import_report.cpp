#include "zvdb/import/import_report.h"

namespace zv::zvdb {
namespace {

const char* Head(Weight weight) {
    switch (weight) {
        case Weight::Remark:
            return "remark: ";
        case Weight::Fault:
            return "wrong: ";
        case Weight::Refusal:
            break;
    }
    return "refused: ";
}

}  // namespace

void ImportReport::Add(Weight weight, const std::string& what, const std::string& row) {
    if (weight == Weight::Refusal) ++refusals_;
    if (weight == Weight::Fault) ++faults_;
    const auto [place, isNew] = byText_.try_emplace(what, entries_.size());
    if (isNew) entries_.push_back({weight, what, {}, 0});
    Entry& entry = entries_[place->second];
    if (row.empty()) return;
    if (++entry.count <= kRowsShown) entry.rows += (entry.count > 1 ? ", " : "") + row;
}

void ImportReport::Print(std::ostream& out) const {
    for (const Entry& entry : entries_) {
        out << Head(entry.weight) << entry.what;
        if (entry.count > 0) out << ": " << entry.rows;
        if (entry.count > kRowsShown) out << ", ...";
        if (entry.count > 1) out << " (" << entry.count << " in all)";
        out << '\n';
    }
}

}  // namespace zv::zvdb
