// zvdb: makes, fills and checks embedded databases.
#include <cstdio>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

#include "base/text.h"
#include "zvdb/tool.h"

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

zv::DateTime Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return zv::DateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

int Run(const std::vector<std::string>& arguments, bool terminal) {
    return zv::zvdb::RunTool(arguments, Today(), {std::cout, std::cerr, terminal});
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** values) {
    SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(zv::text::FromUtf16(reinterpret_cast<const char16_t*>(values[i])));
    }
    return Run(arguments, _isatty(_fileno(stderr)) != 0);
}
#else
int main(int count, char** values) {
    return Run(std::vector<std::string>(values + 1, values + count), isatty(STDERR_FILENO) != 0);
}
#endif
