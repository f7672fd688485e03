// The doors by which a value comes in. Each drives the boundary values through its fields.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "place.h"

namespace zv::ring {

/// One value at one field by one door.
struct Cell {
    std::string name;
    std::string fate;
    /// Why that must not be, whatever the other engines do; empty: it may.
    std::string wrong;
};
using Cells = std::vector<Cell>;

struct Door {
    const char* name;
    Cells (*drive)(Place& place);
};

Cells AddItems(Place& place);     ///< typed in the editor of a new visit
Cells ChangeItems(Place& place);  ///< typed in the editor of a visit that is there
Cells EditPlans(Place& place);    ///< typed in the plan editor, for a new plan and for one there
Cells NameUsers(Place& place);    ///< the host's UserName: who did an item, who set it
Cells CallModes(Place& place);    ///< the host's myTaskID and myDate
Cells SearchItems(Place& place);  ///< typed in the filter, against items that hold the value
Cells QueryItems(Place& place);   ///< typed in the query window, likewise
Cells SearchCards(
    Place& place);  ///< typed in the search for customers, against a card that holds it
Cells FindStored(Place& place);  ///< stored by another program in an item that is then changed

/// Of one act, after which only these cells may be as they are said to be, or nothing is changed
/// and somebody was told.
Cell Judge(std::string name, const Fate& fate, const Stored& meant);

}  // namespace zv::ring
