#include "doors.h"

namespace zv::ring {

Cell Judge(std::string name, const Fate& fate, const Stored& meant) {
    Cell cell{std::move(name), fate.Text(), {}};
    if (!fate.told.empty()) {
        if (!fate.changed.empty()) cell.wrong = "it was refused, and something changed: ";
    } else {
        for (const auto& [place, value] : meant) {
            const auto found = fate.now.find(place);
            const std::string held = found == fate.now.end() ? " is missing" : found->second;
            if (held != value) {
                cell.wrong += place + " holds " + Shown(held) + " and not " + Shown(value) + "; ";
            }
        }
        for (const auto& [place, value] : fate.changed) {
            if (!meant.contains(place)) {
                cell.wrong += place + " has changed to " + Shown(value) + "; ";
            }
        }
    }
    return cell;
}

}  // namespace zv::ring
