#include "windows/generation/boxes.h"

#include "base/number.h"
#include "resources/text_ids.h"

namespace zv::windows {
namespace {

void SayThatPlanIsGone(const Session& session, const std::string& taskId) {
    session.windows.ShowMessage(forms::BoxText(session.LoadText(text_id::kTaskNumber)) + " [" +
                                    forms::Inserted{taskId} + "] " +
                                    session.LoadText(text_id::kExistsNoMore),
                                forms::box::kExclamation);
}

}  // namespace

void GenerateTaskList(Session& session, const std::string& taskId,
                      const plans::GenerationProgress& progress) {
    const auto deletesDone = [&session] {
        return session.windows.ShowMessage(session.LoadText(text_id::kDeleteDoneToo),
                                           forms::box::kYesNo + forms::box::kQuestion) ==
               forms::Answer::Yes;
    };
    // The user who starts the run, also when the host names another while a question stands.
    plans::GenerationRequest request{taskId, session.state.UserName, deletesDone, progress};
    DoneAct act{.kind = changes::Act::Generate,
                .notice = resources::ChangeText::Generated,
                .title = taskId};
    // Without a history nothing is read that the run itself does not need.
    if (session.acts.KeepsHistory()) request.record = &act.rows;
    const plans::GenerationResult result = [&] {
        try {
            return plans::GenerateTaskList(session.database, request);
        } catch (...) {
            // The old items are gone: they can come back.
            session.acts.Done(std::move(act));
            throw;
        }
    }();
    session.acts.Done(std::move(act));
    session.Announce([plan = number::ToInt32(number::Val(taskId)),
                      rows = result.rows](HostEvents& host) { host.PlanGenerated(plan, rows); });
    if (result.outcome == plans::Generation::PlanIsGone) return SayThatPlanIsGone(session, taskId);
    session.windows.ShowMessage("[" + session.LoadText(text_id::kGenerate) + "]" +
                                    session.LoadText(text_id::kCompleted) + "!",
                                forms::box::kInformation);
}

bool AddTaskInstance(Session& session, std::int16_t taskId, DateTime date) {
    const std::string id = std::to_string(taskId);
    const auto confirms = [&](const std::string& title) {
        const forms::BoxText question =
            forms::BoxText(session.LoadText(text_id::kConfirmInstance)) + " [" +
            forms::Inserted{id + " - " + title} + "] ?";
        return session.windows.ShowMessage(question,
                                           forms::box::kOkCancel + forms::box::kQuestion) !=
               forms::Answer::Cancel;
    };
    const plans::InstanceResult result =
        plans::AddTaskInstance(session.database, taskId, date, confirms);
    if (result.added) {
        session.acts.Done({.kind = changes::Act::Add,
                           .notice = resources::ChangeText::Added,
                           .rows = {*result.added}});
        session.Announce(
            [item = result.added->row](HostEvents& host) { host.ItemSaved(item, true); });
    }
    if (result.outcome == plans::Instance::PlanIsGone) SayThatPlanIsGone(session, id);
    return result.outcome == plans::Instance::IsThere;
}

}  // namespace zv::windows
