// Opens connections in the way that a test chooses, counts them and keeps what was asked for.
#pragma once

#include <functional>
#include <memory>

#include "store/connection_opener.h"

namespace zv::doubles {

class RecordingOpener : public store::ConnectionOpener {
 public:
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override;

    /// Opens in place of the embedded engine; empty: the embedded engine does.
    std::function<std::unique_ptr<store::Connection>(const store::ConnectionSettings&)> open;
    int openings = 0;  ///< asked for, also those that failed
    store::ConnectionSettings last;
};

}  // namespace zv::doubles
