#include "user_locale.h"

#include <clocale>

#ifdef _WIN32
#include <windows.h>
#endif

namespace zv::script {
namespace {

struct Region {
    const char* name;
    const char* unixName;
    unsigned long windowsId;
    char point;
    char thousands;
    std::time_base::dateorder order;
};
constexpr Region kRegions[] = {
    {"zh-CN", "zh_CN.UTF-8", 0x0804, '.', ',', std::time_base::ymd},
    {"en-US", "en_US.UTF-8", 0x0409, '.', ',', std::time_base::mdy},
    {"de-DE", "de_DE.UTF-8", 0x0407, ',', '.', std::time_base::dmy},
};

const Region* FindRegion(const std::string& name) {
    for (const Region& region : kRegions) {
        if (name == region.name) return &region;
    }
    return nullptr;
}

// Numbers as the region writes them, so that a number that goes through a stream shows it even
// where the system holds no such locale.
class Numbers : public std::numpunct<char> {
 public:
    explicit Numbers(const Region& region) : region_(region) {}

 protected:
    char do_decimal_point() const override { return region_.point; }
    char do_thousands_sep() const override { return region_.thousands; }
    std::string do_grouping() const override { return "\3"; }

 private:
    const Region& region_;
};

class Dates : public std::time_get<char> {
 public:
    explicit Dates(const Region& region) : region_(region) {}

 protected:
    dateorder do_date_order() const override { return region_.order; }

 private:
    const Region& region_;
};

}  // namespace

UserLocale::UserLocale() : beforeC_(std::setlocale(LC_ALL, nullptr)) {
#ifdef _WIN32
    beforeThread_ = GetThreadLocale();
#endif
}

UserLocale::~UserLocale() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, beforeC_.c_str());
#ifdef _WIN32
    SetThreadLocale(beforeThread_);
#endif
}

bool UserLocale::IsKnown(const std::string& name) {
    return FindRegion(name) != nullptr;
}

void UserLocale::Select(const std::string& name) {
    const Region& region = *FindRegion(name);
    std::locale::global(
        std::locale(std::locale(std::locale::classic(), new Numbers(region)), new Dates(region)));
    // Not every machine holds every region; the streams above have it in any case.
    std::setlocale(LC_ALL, region.unixName);
#ifdef _WIN32
    SetThreadLocale(region.windowsId);
#endif
}

}  // namespace zv::script
