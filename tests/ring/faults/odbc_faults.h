// Calls of a database driver that fail. For a program that is linked with the wrapped names.
#pragma once

#include <memory>

#include "fault.h"
#include "server_store.h"

namespace zv::ring {

/// Flows of windows on a file in roll-back mode, through the driver for such files, or on a server.
/// An operation is the name of a function of ODBC; "odbc" counts all of them. What fails once is
/// refused for no reason; what fails for ever is a connection that is lost.
class OdbcFaults final : public Faults {
 public:
    OdbcFaults() = default;
    explicit OdbcFaults(std::shared_ptr<ServerStore> server) : server_(std::move(server)) {}

    /// That for files; empty when there is no such driver on this machine.
    static std::string Driver();

    std::vector<std::string> Operations() const override;
    FlowOptions Options() const override;
    void Arm(const FaultPoint& point) override;
    bool Disarm() override;

 private:
    std::shared_ptr<ServerStore> server_;
};

}  // namespace zv::ring
