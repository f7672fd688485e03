#include "floors/server_client.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace zv::bench {
namespace {

// "Time: 12.345 ms", a line a statement; longer times have more in parentheses behind.
double SumOfTimes(const std::string& arguments) {
    const std::string command = "psql -X -q -v ON_ERROR_STOP=1 -o /dev/null " + arguments;
    std::FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) throw std::runtime_error("psql cannot be started");
    double sum = 0;
    int lines = 0;
    char line[256];
    while (std::fgets(line, sizeof line, output) != nullptr) {
        double time = 0;
        if (std::sscanf(line, "Time: %lf ms", &time) == 1) {
            sum += time;
            lines++;
        }
    }
    if (pclose(output) != 0 || lines == 0) throw std::runtime_error("psql failed");
    return sum;
}

}  // namespace

double ClientTime(const std::string& statement) {
    const auto path = std::filesystem::temp_directory_path() / "zvbench_statement.sql";
    std::ofstream(path) << statement << ";\n";
    const double time = ClientTimeOfFile(path.string());
    std::filesystem::remove(path);
    return time;
}

double ClientTimeOfFile(const std::string& path) {
    return SumOfTimes("-c '\\timing on' -f '" + path + "'");
}

}  // namespace zv::bench
