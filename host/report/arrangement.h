// A report on the pages that its user wants, which may be laid out anew.
#pragma once

#include <memory>

#include "report/layout.h"

namespace zv::report {

class Arrangement {
 public:
    /// Document and fonts must outlive this and stay as they are.
    Arrangement(const Document& document, const FontSet& fonts, const PageSetup& setup)
        : pages_(std::make_unique<Layout>(document, fonts, setup)) {}

    /// Until the next SetUp.
    const Layout& Pages() const { return *pages_; }
    void SetUp(const PageSetup& setup) {
        if (setup == pages_->Setup()) return;
        pages_ = std::make_unique<Layout>(pages_->Source(), pages_->Fonts(), setup);
    }

 private:
    std::unique_ptr<Layout> pages_;
};

}  // namespace zv::report
