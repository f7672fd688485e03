#include "report/layout.h"

#include <algorithm>

#include "report/item_rows.h"
#include "report/report_texts.h"
#include "report/styles.h"
#include "report/table_rows.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr int kNoRecords = -1;

std::vector<Line> Break(const Cell& cell, const FontSet& fonts, double size) {
    return BreakLines(cell.text, cell.width - 2 * style::kCellPadX, [&](char32_t c) {
        return static_cast<double>(fonts.Find(c).advance) * size;
    });
}

}  // namespace

Layout::Layout(const Document& document, const FontSet& fonts)
    : document_(document), fonts_(fonts), width_(style::kShortSide), height_(style::kLongSide) {
    int records = kNoRecords;
    if (document.kind == DocumentKind::Table) {
        auto rows = std::make_unique<TableRows>(document.table, fonts);
        if (rows->IsLandscape()) std::swap(width_, height_);
        records = static_cast<int>(rows->Count());
        rows_ = std::move(rows);
    } else {
        rows_ = std::make_unique<ItemRows>(document.fields, fonts, width_ - 2 * style::kMargin);
    }
    heading_ = rows_->Heading();
    frame_ = std::make_unique<PageFrame>(document, fonts, width_, height_, records);
    const double bottom = frame_->BodyBottom();
    const double heading = HeadingHeight();
    pages_ =
        Paginate(rows_->Count(), [this](std::size_t row) { return LineCount(rows_->At(row)); },
                 {bottom - frame_->BodyTop(1) - heading, bottom - frame_->BodyTop(2) - heading},
                 {LineHeight(), 2 * style::kCellPadY});
}

Layout::~Layout() = default;

double Layout::LineHeight() const {
    return rows_->TextSize() * style::kLineHeight;
}

std::size_t Layout::LineCount(const Row& row) const {
    std::size_t most = 1;
    for (const Cell& cell : row) {
        most = std::max(most, Break(cell, fonts_, rows_->TextSize()).size());
    }
    return most;
}

double Layout::HeadingHeight() const {
    if (heading_.empty()) return 0;
    return static_cast<double>(LineCount(heading_)) * LineHeight() + 2 * style::kCellPadY + 1;
}

Page Layout::MakePage(int number) const {
    Page page;
    page.width = width_;
    page.height = height_;
    frame_->Draw(page, number, PageCount());
    double top = DrawHeading(page, frame_->BodyTop(number));
    for (const Fragment& fragment : pages_[static_cast<std::size_t>(number - 1)]) {
        top = DrawFragment(page, top, fragment);
    }
    if (rows_->Count() == 0) {
        const std::string text = GetReportText(ReportText::NoRecords, document_.language);
        const double size = style::kTextSize;
        page.texts.push_back({(width_ - fonts_.Width(text, size)) / 2, top + size * 2, size, false,
                              style::kSoft, text});
    } else if (!rows_->HasBoxes()) {
        // The foot of the table.
        page.rules.push_back(
            {style::kMargin, top, width_ - style::kMargin, top, style::kStrong, style::kBlack});
    }
    return page;
}

double Layout::DrawHeading(Page& page, double top) const {
    if (heading_.empty()) return top;
    const double height = HeadingHeight() - 1;
    const double right = width_ - style::kMargin;
    page.grounds.push_back(
        {style::kMargin, top, right - style::kMargin, height, style::kCaptionGround});
    page.rules.push_back({style::kMargin, top, right, top, style::kStrong, style::kBlack});
    page.rules.push_back(
        {style::kMargin, top + height, right, top + height, style::kThin, style::kBlack});
    const Fragment whole{0, 0, LineCount(heading_), false, false};
    for (const Cell& cell : heading_) DrawCell(page, cell, top, whole);
    return top + height + 1;
}

double Layout::DrawFragment(Page& page, double top, const Fragment& fragment) const {
    const Row row = rows_->At(fragment.row);
    const RowHeights heights{LineHeight(), 2 * style::kCellPadY};
    const double height = heights.OfLines(fragment.lines, fragment.isContinued, fragment.continues);
    DrawFrameOfRow(page, row, top, height);
    for (const Cell& cell : row) DrawCell(page, cell, top, fragment);
    if (fragment.isContinued && !row.empty()) DrawMark(page, row.front(), top, true);
    if (fragment.continues && !row.empty()) {
        DrawMark(page, row.back(), top + height - LineHeight() - 2 * style::kCellPadY, false);
    }
    return top + height;
}

void Layout::DrawFrameOfRow(Page& page, const Row& row, double top, double height) const {
    const double right = width_ - style::kMargin;
    const double bottom = top + height;
    if (!rows_->HasBoxes()) {
        page.rules.push_back(
            {style::kMargin, bottom, right, bottom, style::kThin, style::kHairline});
        return;
    }
    for (const Cell& cell : row) {
        const double x = style::kMargin + cell.x;
        if (cell.isCaption) {
            page.grounds.push_back({x, top, cell.width, height, style::kCaptionGround});
        }
        page.rules.push_back({x, top, x, bottom, style::kThin, style::kSoft});
    }
    page.rules.push_back({right, top, right, bottom, style::kThin, style::kSoft});
    page.rules.push_back({style::kMargin, top, right, top, style::kThin, style::kSoft});
    page.rules.push_back({style::kMargin, bottom, right, bottom, style::kThin, style::kSoft});
}

void Layout::DrawCell(Page& page, const Cell& cell, double top, const Fragment& fragment) const {
    const double size = rows_->TextSize();
    const std::vector<Line> lines = Break(cell, fonts_, size);
    const std::size_t end = std::min(lines.size(), fragment.firstLine + fragment.lines);
    double y = top + style::kCellPadY + (fragment.isContinued ? LineHeight() : 0);
    for (std::size_t i = fragment.firstLine; i < end; i++, y += LineHeight()) {
        if (lines[i].length == 0) continue;
        std::string text = cell.text.substr(lines[i].begin, lines[i].length);
        double x = style::kMargin + cell.x + style::kCellPadX;
        if (cell.align == Align::Right) {
            x = style::kMargin + cell.x + cell.width - style::kCellPadX - fonts_.Width(text, size);
        }
        page.texts.push_back(
            {x, y + size * style::kAscent, size, cell.isCaption, style::kBlack, std::move(text)});
    }
}

void Layout::DrawMark(Page& page, const Cell& cell, double top, bool isContinued) const {
    const double size = rows_->TextSize();
    const std::string text = GetReportText(
        isContinued ? ReportText::Continued : ReportText::ContinuesBelow, document_.language);
    double x = style::kMargin + cell.x + style::kCellPadX;
    if (!isContinued) {
        x = std::max(style::kMargin, style::kMargin + cell.x + cell.width - style::kCellPadX -
                                         fonts_.Width(text, size));
    }
    page.texts.push_back(
        {x, top + style::kCellPadY + size * style::kAscent, size, false, style::kSoft, text});
}

}  // namespace zv::report
