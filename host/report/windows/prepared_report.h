// A report that is ready to be shown, printed or saved.
#pragma once

#include <memory>
#include <string>

#include "report/arrangement.h"
#include "report/document.h"
#include "report/font_set.h"
#include "report/windows/font_files.h"

namespace zv::report {

class PreparedReport {
 public:
    /// Takes as many fonts as the document's characters ask for. Throws 482 when there is none.
    PreparedReport(Document document, FontFiles& fonts, const PageSetup& setup);
    PreparedReport(const PreparedReport&) = delete;
    PreparedReport& operator=(const PreparedReport&) = delete;

    const Document& Source() const { return document_; }
    const Layout& Pages() const { return arrangement_->Pages(); }
    /// For the user's set-up.
    Arrangement& Arranged() { return *arrangement_; }

 private:
    Document document_;
    std::unique_ptr<FontSet> fonts_;
    std::unique_ptr<Arrangement> arrangement_;
};

/// Title of the report as the name of a file, without an extension; never empty.
std::string FileNameOf(const Document& document);

}  // namespace zv::report
