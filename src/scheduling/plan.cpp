#include "scheduling/plan.h"

namespace zv::scheduling {

Plan ReadPlan(const store::Recordset& row) {
    Plan plan;
    plan.taskId = row.Field("TaskID").ToInt32();
    plan.title = row.Field("taskTitle").ToText();
    plan.begin = row.Field("tbegin").ToDate();
    plan.end = row.Field("tEnd").ToDate();
    plan.circleType = row.Field("CircleType").ToInt16();
    plan.circleValue = row.Field("CircleValue").ToInt16();
    plan.month = row.Field("taskMonth").ToInt16();
    plan.day = row.Field("taskday").ToInt16();
    plan.week = row.Field("TaskWeek").ToInt16();
    plan.type = row.Field("Type").ToInt16();
    plan.typeValue = row.Field("TypeValue").ToInt16();
    plan.setMan = row.Field("SetMan").ToText();
    plan.doneMan = row.Field("DoneMan").ToText();
    plan.content = row.Field("Content").ToText();
    return plan;
}

void WritePlan(const Plan& plan, store::Recordset& row) {
    row.SetField("TaskID", plan.taskId);
    row.SetField("taskTitle", plan.title);
    row.SetField("tbegin", plan.begin);
    row.SetField("tEnd", plan.end);
    row.SetField("CircleValue", plan.circleValue);
    row.SetField("CircleType", plan.circleType);
    row.SetField("taskMonth", plan.month);
    row.SetField("taskday", plan.day);
    row.SetField("TaskWeek", plan.week);
    row.SetField("Type", plan.type);
    row.SetField("TypeValue", plan.typeValue);
    row.SetField("SetMan", plan.setMan);
    row.SetField("DoneMan", plan.doneMan);
    row.SetField("Content", plan.content);
}

}  // namespace zv::scheduling
