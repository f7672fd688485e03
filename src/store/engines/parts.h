// The parts of which the folder of each engine has one file each. The folders stand in the list of
// CMakeLists.txt, from which engine_list.h is made.
#pragma once

#include <string_view>

namespace zv::store::dialect {
class Target;
}

namespace zv::store::engines {

class Bulk;
struct Codes;
class Connecting;
class Facts;

#define ZV_ENGINE(folder)                                            \
    namespace folder {                                               \
    const Codes& TheCodes();                   /* codes.cpp */       \
    const Connecting& TheConnecting();         /* connecting.cpp */  \
    const Facts& TheFacts();                   /* facts.cpp */       \
    const dialect::Target* TheDialect();       /* dialect.cpp */     \
    const dialect::Target* TheDriverDialect(); /* dialect.cpp */     \
    const Bulk* TheBulk();                     /* bulk.cpp */        \
    std::string_view TheSchema();              /* schema.sql */      \
    std::string_view TheSideTables();          /* side_tables.sql */ \
    }
#include "engine_list.h"
#undef ZV_ENGINE

}  // namespace zv::store::engines
