// A document on pages, the same whether they are shown, printed or written to a file.
#pragma once

#include <memory>
#include <vector>

#include "report/document.h"
#include "report/font_set.h"
#include "report/page.h"
#include "report/page_frame.h"
#include "report/page_setup.h"
#include "report/pagination.h"
#include "report/rows.h"

namespace zv::report {

class Layout {
 public:
    /// Document and fonts must outlive the layout and stay as they are.
    Layout(const Document& document, const FontSet& fonts, const PageSetup& setup = {});
    ~Layout();
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    int PageCount() const { return static_cast<int>(pages_.size()); }
    /// In points.
    double PageWidth() const { return area_.width; }
    double PageHeight() const { return area_.height; }
    const PageSetup& Setup() const { return setup_; }
    /// `number` from 1. Pages are made when they are asked for, so a long list keeps none of them.
    Page MakePage(int number) const;
    const Document& Source() const { return document_; }
    const FontSet& Fonts() const { return fonts_; }

 private:
    /// Behind the rows of a table stands how many there are.
    bool HasTotal() const;
    std::size_t LinesAt(std::size_t row) const;
    std::size_t LineCount(const Row& row) const;
    double DrawTotal(Page& page, double top) const;
    void DrawFoot(Page& page, double top) const;
    double HeadingHeight() const;
    double DrawHeading(Page& page, double top) const;
    double DrawFragment(Page& page, double top, const Fragment& fragment) const;
    void DrawCell(Page& page, const Cell& cell, double top, const Fragment& fragment) const;
    void DrawMark(Page& page, const Cell& cell, double top, bool isContinued) const;
    void DrawFrameOfRow(Page& page, const Row& row, double top, double height) const;
    double LineHeight() const;

    const Document& document_;
    const FontSet& fonts_;
    PageSetup setup_;
    PageArea area_;
    std::unique_ptr<RowSource> rows_;
    std::unique_ptr<PageFrame> frame_;
    Row heading_;
    std::vector<std::vector<Fragment>> pages_;
};

}  // namespace zv::report
