#include "session/marking.h"

#include <utility>

#include "items/item_store.h"

namespace zv {
namespace {

/// What was done; nothing unless the item was marked.
std::pair<Marking, DoneAct> Mark(Session& session, MarkRequest request) {
    DoneAct act{.kind = changes::Act::Mark,
                .notice = resources::ChangeText::Marked,
                .title = std::move(request.title)};
    session.database.EnsureConnection();
    auto before =
        session.acts.RowBefore(items::ItemTable(), request.item, std::move(request.before));
    if (!items::Mark(session.database, request.item, request.state, request.doer)) {
        return {Marking::NoItem, act};
    }
    if (session.database.ChangedNothing()) return {Marking::Gone, act};
    if (before) {
        act.rows.push_back({&items::ItemTable(), request.item, std::move(before),
                            StateAndDoer(store::Value(request.state), store::Value(request.doer))});
    }
    session.Announce(
        [id = request.item, state = request.state](HostEvents& host) { host.ItemDone(id, state); });
    return {Marking::Marked, std::move(act)};
}

}  // namespace

changes::Fields StateAndDoer(const store::Value& state, const store::Value& doer) {
    changes::Fields fields(items::kFields.size());
    fields[items::field::kState] = state;
    fields[items::field::kDoer] = doer;
    return fields;
}

Marking MarkItem(Session& session, MarkRequest request) {
    auto [marking, act] = Mark(session, std::move(request));
    if (marking == Marking::Marked) session.acts.Done(std::move(act));
    return marking;
}

Marking MarkForHost(Session& session, MarkRequest request) {
    const auto [marking, act] = Mark(session, std::move(request));
    if (marking == Marking::Marked) session.acts.DoneForGood(act);
    return marking;
}

}  // namespace zv
