// What the reader of scripts has against a text.
#pragma once

#include <string>

#include "script_text.h"

namespace zv::script {

/// "LINE: reason" of the error that `read` throws, otherwise "accepted".
template <class Read>
std::string RefusalBy(Read read, const std::string& text) {
    try {
        read(text);
    } catch (const ScriptError& error) {
        return std::to_string(error.Line()) + ": " + error.Reason();
    }
    return "accepted";
}

}  // namespace zv::script
