// Pages as a PDF file whose texts can be searched and copied.
#pragma once

#include "platform/machine.h"
#include "report/layout.h"
#include "report/progress.h"

namespace zv::report {

/// Writes all pages; what the fonts hold of the characters in use goes into the file. The commit of
/// the file is the caller's. False when `progress` stopped it: the file is then not complete. A
/// character that no font has is a box on the page and remains itself in the file's text. Throws
/// RuntimeError: what the file throws, 51 when the pages cannot be written.
bool WritePdf(const Layout& layout, platform::OutputFile& file, const Progress& progress = {});

}  // namespace zv::report
