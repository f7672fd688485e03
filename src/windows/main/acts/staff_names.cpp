#include "windows/main/acts/staff_names.h"

#include <utility>

#include "staff/staff_store.h"

namespace zv::windows {

void StaffNames::SetSource(int source) {
    stale_ = stale_ || source != source_;
    source_ = source;
}

void StaffNames::FillIfNeeded() {
    if (stale_) Fill();
}

void StaffNames::Fill() {
    stale_ = false;
    panel_.SetStaff(Names());
}

std::vector<std::string> StaffNames::Names() const {
    if (source_ != 0 && source_ != 1) return {};
    std::vector<std::string> names;
    try {
        const auto source = static_cast<staff::Source>(source_);
        for (staff::Person& person : staff::List(session_.database, source)) {
            names.push_back(std::move(person.name));
        }
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::DatabaseTable) throw;
    }
    return names;
}

}  // namespace zv::windows
