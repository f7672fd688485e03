#include "current_point.h"

#include <unistd.h>

#include <fstream>
#include <system_error>

namespace zv::ring {

CurrentPoint::CurrentPoint(const std::string& text)
    : file_("fault-point-" + std::to_string(getpid()) + ".txt") {
    std::ofstream(file_) << text;
}

CurrentPoint::~CurrentPoint() {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
}

}  // namespace zv::ring
