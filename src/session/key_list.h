// The keys of a window, listed for its user.
#pragma once

#include <vector>

#include "forms/key_chord.h"
#include "resources/key_texts.h"
#include "session/session.h"

namespace zv {

/// Keys that do the same, and what that is.
struct KeyLine {
    std::vector<forms::KeyChord> chords;
    resources::KeyText act;
};

/// Shows the keys in a box, a line each.
void ShowKeyList(const Session& session, const std::vector<KeyLine>& lines);

}  // namespace zv
