// The floor of writing pages: the PDF library alone, given the same texts at the same places.
#pragma once

#include <string>
#include <vector>

#include "report/page.h"

namespace zv::bench {

/// Writes the pages' texts with one font into a file: no line breaking, no pagination, no lines.
void WriteRawPdf(const std::vector<report::Page>& pages, const std::string& font,
                 const std::string& path);

}  // namespace zv::bench
