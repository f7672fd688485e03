#include "reports/report_job.h"

#include "resources/settings.h"
#include "resources/text_ids.h"

namespace zv::reports {

platform::ReportJob NewJob(const Session& session) {
    platform::ReportJob job;
    // The list is read where the windows read: a host that sets something moves both at its next
    // refresh.
    const store::ConnectionSettings* opened = session.database.OpenedWith();
    job.connection = opened ? *opened : session.Settings();
    job.userName = session.state.UserName;
    job.companyHeading = CompanyHeading(session);
    job.language = session.state.Language;
    job.copyright = session.state.Copyright;
    return job;
}

std::string CompanyHeading(const Session& session) {
    std::string setting = session.GetSetting(resources::kTaskSection, "FullName", "");
    if (!setting.empty()) return setting;
    return session.state.CompName.empty() ? session.LoadText(text_id::kCompanyName)
                                          : session.state.CompName;
}

}  // namespace zv::reports
