// What stands around the rows: the heading with company, title, what was asked and the number of
// records, the footer with page, time and user.
#pragma once

#include "report/document.h"
#include "report/font_set.h"
#include "report/page.h"
#include "report/page_setup.h"

namespace zv::report {

class PageFrame {
 public:
    /// Document and fonts must outlive this. `records`: number shown on every page, -1 for none.
    PageFrame(const Document& document, const FontSet& fonts, const PageArea& area, int records);

    /// Where the rows of a page begin and end; `page` counts from 1.
    double BodyTop(int page) const;
    double BodyBottom() const;
    void Draw(Page& target, int page, int pages) const;

 private:
    void DrawFirstHeading(Page& target) const;
    void DrawRunningHeading(Page& target) const;
    void DrawFooter(Page& target, int page, int pages) const;
    /// One line at the left edge, or ending at the right one.
    void DrawLeft(Page& target, double top, double size, const std::string& text) const;
    void DrawRight(Page& target, double top, double size, const std::string& text) const;
    void DrawAcross(Page& target, double y) const;
    std::vector<std::string> Wrap(const std::string& raw, double size, double room,
                                  std::size_t most) const;
    bool HasAskedLine() const { return !askedLines_.empty() || !records_.empty(); }
    /// Room beside the number of records.
    double AskedRoom() const;
    /// Cut with an ellipsis where it is wider than `room`.
    std::string Fit(const std::string& text, double size, double room) const;

    const Document& document_;
    const FontSet& fonts_;
    PageArea area_;
    std::vector<std::string> titleLines_;
    std::vector<std::string> subtitleLines_;
    std::vector<std::string> askedLines_;
    std::string records_;
};

}  // namespace zv::report
