#include "reports/report_job.h"

#include "resources/settings.h"

namespace zv::reports {

platform::ReportJob NewJob(const Session& session) {
    platform::ReportJob job;
    job.connection = session.Settings();
    job.userName = session.state.UserName;
    job.companyHeading = CompanyHeading(session);
    job.language = session.state.Language;
    job.copyright = session.state.Copyright;
    return job;
}

std::string CompanyHeading(const Session& session) {
    constexpr std::int16_t kCompanyName = 3;
    const std::string setting = session.GetSetting(resources::kTaskSection, "FullName", "");
    if (!setting.empty()) return setting;
    return session.state.CompName.empty() ? session.LoadText(kCompanyName) : session.state.CompName;
}

}  // namespace zv::reports
