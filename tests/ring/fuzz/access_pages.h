// Access files whose pages of rows hold anything.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"
#include "zvdb/access/access_value.h"
#include "zvdb/access/mdb_file.h"
#include "zvdb/import/table_source.h"

namespace zv::fuzz {

using FieldReader =
    std::function<bool(zvdb::access::MdbFile&, const zvdb::access::AccessRow&,
                       const zvdb::access::AccessColumn&, store::Value&, zvdb::CellRemark&)>;

/// The input are changes of pages of rows in a file of the fixtures (see kChangeHead). The file is
/// refused as damaged, or every row is read, twice the same; texts are UTF-8, dates are in the
/// calendar, what was lost is said, and all arrives at the other end of the stream between the two
/// processes. A table none of whose pages was changed is read as it was.
void PlayAccessPages(std::string_view input, const FieldReader& read = zvdb::access::DecodeField);
std::vector<std::string> AccessSeeds();

}  // namespace zv::fuzz
