#include "zvdb/version.h"

#include <sqlite3.h>

#include <cstddef>

#define ZV_TEXT_OF(number) #number
#define ZV_TEXT(number) ZV_TEXT_OF(number)

namespace zv::zvdb {

std::string VersionText() {
    std::string text = "zvdb " ZV_VERSION "\n";
    text += std::string("SQLite ") + sqlite3_libversion() + "\n";
    // The compiler for Windows knows the first number only.
    text += "GCC runtime " ZV_TEXT(_GLIBCXX_RELEASE) "\n";
#ifdef __MINGW64_VERSION_STR
    text += std::string("MinGW-w64 runtime and winpthreads ") + __MINGW64_VERSION_STR + "\n";
#endif
    return text;
}

}  // namespace zv::zvdb
