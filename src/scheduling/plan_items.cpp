#include "scheduling/plan_items.h"

namespace zv::scheduling {

std::string OnlyItemsOfPlan(Session& session, std::string_view taskId) {
    const auto others = session.database.Open(
        "select count(*) from tTaskList Where taskID =" + std::string(taskId) + " And fType<>0");
    const bool any = others->Field(0).ToDouble() > 0;
    others->Close();
    return any ? " And (fType=0 Or fType is Null)" : "";
}

void DeletePlan(Session& session, std::int32_t taskId) {
    session.database.EnsureConnection();
    const std::string number = std::to_string(taskId);
    session.database.Execute("Delete from tTaskList where taskID =" + number +
                             OnlyItemsOfPlan(session, number));
    session.database.Execute("Delete from tTaskSet where taskID =" + number);
}

}  // namespace zv::scheduling
