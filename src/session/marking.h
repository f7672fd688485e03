// Brings an item into a state, from any window or by the host.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "changes/row_change.h"
#include "items/item.h"
#include "session/session.h"

namespace zv {

enum class Marking {
    Marked,
    NoItem,  ///< for the number 0
    Gone,    ///< somebody has deleted the item
};

struct MarkRequest {
    std::int32_t item = 0;
    std::int16_t state = 0;  ///< as it is stored; a host may give any number
    std::string doer;
    std::string title{};  ///< of the item; empty where it is not known
    /// State and doer as the user was shown them; nothing where he was not.
    std::optional<changes::Fields> before{};
};

/// State and doer alone.
changes::Fields StateAndDoer(const store::Value& state, const store::Value& doer);

/// Marks the item, announces it, and lets the user take it back where it is known what was before.
/// Opens the connection; database errors reach the caller.
Marking MarkItem(Session& session, MarkRequest request);
/// The same, not to be taken back: by the host.
Marking MarkForHost(Session& session, MarkRequest request);

inline MarkRequest Request(std::int32_t item, items::ItemState state, std::string doer) {
    return {item, static_cast<std::int16_t>(Number(state)), std::move(doer)};
}

}  // namespace zv
