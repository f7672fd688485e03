// An Access file as the source of an import. On Windows the system's own provider reads it, over
// automation; elsewhere the library libmdb.
#pragma once

#include <memory>
#include <string>

#include "zvdb/import/table_source.h"

namespace zv::zvdb {

/// Opens it for reading only. Throws SourceError.
std::unique_ptr<TableSource> OpenAccessFile(const std::string& path);

}  // namespace zv::zvdb
