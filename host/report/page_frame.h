// What stands around the rows: the heading with company and title, the footer with page, date and
// user.
#pragma once

#include "report/document.h"
#include "report/font_set.h"
#include "report/page.h"

namespace zv::report {

class PageFrame {
 public:
    /// Both must outlive this. `records`: number shown beside the subtitle, -1 for none.
    PageFrame(const Document& document, const FontSet& fonts, double pageWidth, double pageHeight,
              int records);

    /// Where the rows of a page begin and end; `page` counts from 1.
    double BodyTop(int page) const;
    double BodyBottom() const;
    void Draw(Page& target, int page, int pages) const;

 private:
    void DrawFirstHeading(Page& target) const;
    void DrawRunningHeading(Page& target) const;
    void DrawFooter(Page& target, int page, int pages) const;
    /// Cut with an ellipsis where it is wider than `room`.
    std::string Fit(const std::string& text, double size, double room) const;

    const Document& document_;
    const FontSet& fonts_;
    double width_;
    double height_;
    std::vector<std::string> titleLines_;
    std::vector<std::string> subtitleLines_;
    std::string records_;
};

}  // namespace zv::report
