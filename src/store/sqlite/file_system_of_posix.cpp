#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <fstream>
#include <sstream>

#include "store/sqlite/file_system_of.h"

namespace zv::store::sqlite {
namespace {

// Lines of the table of mounts: "36 35 98:0 /root /mount options [tags...] - ext4 /dev/sda
// options". The last one of a device names what its files are seen through.
std::string TypeOfDevice(const std::string& device) {
    std::ifstream table("/proc/self/mountinfo");
    std::string found;
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string id;
        std::string parent;
        std::string number;
        std::string word;
        words >> id >> parent >> number;
        if (number != device) continue;
        while (words >> word && word != "-") {
        }
        words >> found;
    }
    return found;
}

}  // namespace

std::string FileSystemOf(const std::filesystem::path& file) {
    struct stat facts {};
    if (stat(file.c_str(), &facts) != 0) {
        const auto folder = file.has_parent_path() ? file.parent_path() : ".";
        if (stat(folder.c_str(), &facts) != 0) return {};
    }
    return TypeOfDevice(std::to_string(major(facts.st_dev)) + ":" +
                        std::to_string(minor(facts.st_dev)));
}

}  // namespace zv::store::sqlite
