// What every print hands to the report component alike.
#pragma once

#include "platform/report_printer.h"
#include "session/session.h"

namespace zv::reports {

/// A job with the settings of the shared connection, user, heading line and language; the rest is
/// the caller's.
platform::ReportJob NewJob(const Session& session);

/// The line at the head of printed lists: the workstation setting "FullName"; without it the
/// company that the host named, otherwise the catalogue's company name.
std::string CompanyHeading(const Session& session);

}  // namespace zv::reports
