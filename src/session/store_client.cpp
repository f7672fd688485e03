#include "session/store_client.h"

#include <algorithm>

#include "forms/form.h"
#include "session/session.h"

namespace zv {
namespace {

StoreClient* ClientOf(forms::Form* form) {
    return dynamic_cast<StoreClient*>(form);
}

}  // namespace

bool EditUnderWay(const Session& session) {
    const auto windows = session.windows.Windows();
    return std::any_of(windows.begin(), windows.end(), [](forms::Form* form) {
        const StoreClient* client = ClientOf(form);
        return client && client->HoldsInput();
    });
}

void ShowNewStore(const Session& session) {
    for (forms::Form* form : session.windows.Windows()) {
        if (StoreClient* client = ClientOf(form)) client->ForgetStore();
    }
    for (forms::Form* form : session.windows.Windows()) {
        // A box that stands while one is filled lets others close.
        const auto present = session.windows.Windows();
        if (std::find(present.begin(), present.end(), form) == present.end()) continue;
        StoreClient* client = ClientOf(form);
        if (client && form->IsLoaded() && !form->IsLoading()) client->ShowStore();
    }
}

}  // namespace zv
