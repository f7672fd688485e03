// The recurrence engine on the database: turns a plan into the dated items of tTaskList. What it
// has to ask it asks through functions; no recordset is open meanwhile.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "changes/row_change.h"
#include "store/database.h"

namespace zv::plans {

/// Called before each row is written: the rows written so far, and which part (0 to 1) of the
/// plan's time lies before the row. What it throws ends the run like a database error.
using GenerationProgress = std::function<void(int rows, double part)>;

struct GenerationRequest {
    std::string taskId;  ///< goes into the statements as it stands
    std::string user;    ///< who takes the items
    /// Whether items that are done are deleted like the others; asked when there are any.
    std::function<bool()> deletesDone;
    GenerationProgress progress;  ///< may be empty
    /// Takes what the run does to rows, for which it reads those that it deletes and the plan.
    /// After an error it holds what was done before. May be null.
    std::vector<changes::RowChange>* record = nullptr;
};

/// PlanIsGone: somebody deleted the plan while the question stood, and nothing was generated.
enum class Generation { Finished, PlanIsGone };
struct GenerationResult {
    Generation outcome = Generation::Finished;
    int rows = 0;  ///< items written
};

/// Deletes the old items of a plan (all, or only the undone ones as the user answers), writes the
/// new ones and stamps the plan with the user. Each row is saved by itself; an error of the
/// database or error 6 (see Occurrences) ends the run where it stands and reaches the caller, the
/// plan not stamped.
GenerationResult GenerateTaskList(store::Database& database, const GenerationRequest& request);

/// IsThere: an undone item for the date exists, also when it was added.
enum class Instance { IsThere, CalledOff, PlanIsGone };
struct InstanceResult {
    Instance outcome = Instance::PlanIsGone;
    /// The item that was added; its number is 0 when the database does not give it.
    std::optional<changes::RowChange> added;
};

/// Adds the one item of a plan for a date. `confirms` answers whether an item of the plan with this
/// title is added; it is asked when there is none yet. Database errors reach the caller.
InstanceResult AddTaskInstance(store::Database& database, std::int16_t taskId, DateTime date,
                               const std::function<bool(const std::string& title)>& confirms);

}  // namespace zv::plans
