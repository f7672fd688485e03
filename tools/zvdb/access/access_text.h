// Texts as Access stores them.
#pragma once

#include <string>

#include "zvdb/access/page.h"

namespace zv::zvdb::access {

struct DecodedText {
    std::string utf8;
    /// Halves of surrogate pairs without their other half; each became U+FFFD.
    int halves = 0;
};

/// UTF-16LE; or, after FF FE, stretches of one byte a character and of UTF-16LE in turn, each ended
/// by a zero byte. Throws Damage when it ends in the middle of a character.
DecodedText DecodeText(Bytes stored);

}  // namespace zv::zvdb::access
