// Pages as a PDF file whose texts can be searched and copied.
#pragma once

#include <memory>

#include "platform/machine.h"
#include "report/layout.h"

namespace zv::report {

/// What the fonts hold of the characters in use goes into the file. A character that no font has
/// is a box on the page and remains itself in the file's text. Every operation throws RuntimeError:
/// what the file throws, 51 when something cannot be written.
class PdfFile {
 public:
    /// Both must outlive this. The commit of the file is the caller's.
    PdfFile(const Layout& layout, platform::OutputFile& file);
    ~PdfFile();
    PdfFile(const PdfFile&) = delete;
    PdfFile& operator=(const PdfFile&) = delete;

    /// Pages from 1 on, each once and in their order.
    void WritePage(int number);
    void End();

 private:
    struct Writing;
    const Layout& layout_;
    std::unique_ptr<Writing> writing_;
};

/// All pages.
void WritePdf(const Layout& layout, platform::OutputFile& file);

}  // namespace zv::report
