#include "session/store_client.h"

#include <algorithm>
#include <functional>

#include "forms/form.h"
#include "session/session.h"

namespace zv {
namespace {

StoreClient* ClientOf(forms::Form* form) {
    return dynamic_cast<StoreClient*>(form);
}

void ForEachLoaded(const Session& session, const std::function<void(StoreClient&)>& act) {
    for (forms::Form* form : session.windows.Windows()) {
        // A box that stands while one is filled lets others close.
        const auto present = session.windows.Windows();
        if (std::find(present.begin(), present.end(), form) == present.end()) continue;
        StoreClient* client = ClientOf(form);
        if (client && form->IsLoaded() && !form->IsLoading()) act(*client);
    }
}

}  // namespace

bool EditUnderWay(const Session& session) {
    const auto windows = session.windows.Windows();
    return std::any_of(windows.begin(), windows.end(), [](forms::Form* form) {
        const StoreClient* client = ClientOf(form);
        return client && client->HoldsInput();
    });
}

void ShowNewStore(Session& session) {
    for (forms::Form* form : session.windows.Windows()) {
        if (StoreClient* client = ClientOf(form)) client->ForgetStore();
    }
    session.acts.ForgetOthers();
    ForEachLoaded(session, [](StoreClient& client) { client.ShowStore(); });
}

void ShowChangedRows(const Session& session, const std::vector<changes::RowChange>& rows) {
    ForEachLoaded(session, [&rows](StoreClient& client) { client.ShowRows(rows); });
}

}  // namespace zv
