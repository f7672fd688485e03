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

Layout::Layout(const Document& document, const FontSet& fonts, const PageSetup& setup)
    : document_(document), fonts_(fonts), setup_(setup) {
    int records = kNoRecords;
    if (document.kind == DocumentKind::Table) {
        auto rows = std::make_unique<TableRows>(document.table, fonts, setup);
        area_ = AreaOf(setup, rows->IsLandscape());
        records = static_cast<int>(rows->Count());
        rows_ = std::move(rows);
    } else {
        area_ = AreaOf(setup, setup.direction == Direction::Across);
        rows_ = std::make_unique<ItemRows>(document.fields, fonts, area_.Room());
    }
    heading_ = rows_->Heading();
    frame_ = std::make_unique<PageFrame>(document, fonts, area_, records);
    const double bottom = frame_->BodyBottom();
    const double heading = HeadingHeight();
    const std::size_t rows = rows_->Count();
    pages_ = Paginate(
        rows + (HasTotal() ? 1 : 0), [this](std::size_t row) { return LinesAt(row); },
        {bottom - frame_->BodyTop(1) - heading, bottom - frame_->BodyTop(2) - heading},
        {LineHeight(), 2 * style::kCellPadY},
        [this, rows](std::size_t row) {
            return HasTotal() ? row + 1 == rows : rows_->KeepsWithNext(row);
        });
}

Layout::~Layout() = default;

double Layout::LineHeight() const {
    return rows_->TextSize() * style::kLineHeight;
}

bool Layout::HasTotal() const {
    return document_.kind == DocumentKind::Table && rows_->Count() > 0;
}

std::size_t Layout::LinesAt(std::size_t row) const {
    return row < rows_->Count() ? LineCount(rows_->At(row)) : 1;
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
    page.width = area_.width;
    page.height = area_.height;
    frame_->Draw(page, number, PageCount());
    double top = DrawHeading(page, frame_->BodyTop(number));
    bool hasFoot = rows_->HasBoxes();
    for (const Fragment& fragment : pages_[static_cast<std::size_t>(number - 1)]) {
        if (fragment.row < rows_->Count()) {
            top = DrawFragment(page, top, fragment);
        } else {
            DrawFoot(page, top);
            top = DrawTotal(page, top);
            hasFoot = true;
        }
    }
    if (rows_->Count() == 0) {
        const std::string text = GetReportText(ReportText::NoRecords, document_.language);
        const double size = style::kTextSize;
        page.texts.push_back({area_.left + (area_.Room() - fonts_.Width(text, size)) / 2,
                              top + size * 2, size, false, style::kSoft, text});
    } else if (!hasFoot) {
        DrawFoot(page, top);
    }
    return page;
}

void Layout::DrawFoot(Page& page, double top) const {
    page.rules.push_back({area_.left, top, area_.right, top, style::kStrong, style::kBlack});
}

double Layout::DrawTotal(Page& page, double top) const {
    const double size = rows_->TextSize();
    const std::string text =
        FormatReportText(ReportText::Total, document_.language, std::to_string(rows_->Count()));
    page.texts.push_back({area_.left + style::kCellPadX,
                          top + style::kCellPadY + size * style::kAscent, size, true, style::kBlack,
                          text});
    return top + LineHeight() + 2 * style::kCellPadY;
}

double Layout::DrawHeading(Page& page, double top) const {
    if (heading_.empty()) return top;
    const double height = HeadingHeight() - 1;
    const double right = area_.right;
    page.grounds.push_back({area_.left, top, area_.Room(), height, style::kCaptionGround});
    page.rules.push_back({area_.left, top, right, top, style::kStrong, style::kBlack});
    page.rules.push_back(
        {area_.left, top + height, right, top + height, style::kThin, style::kBlack});
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
    const double right = area_.right;
    const double bottom = top + height;
    if (!rows_->HasBoxes()) {
        page.rules.push_back({area_.left, bottom, right, bottom, style::kThin, style::kHairline});
        return;
    }
    for (const Cell& cell : row) {
        const double x = area_.left + cell.x;
        if (cell.isCaption) {
            page.grounds.push_back({x, top, cell.width, height, style::kCaptionGround});
        }
        page.rules.push_back({x, top, x, bottom, style::kThin, style::kSoft});
    }
    page.rules.push_back({right, top, right, bottom, style::kThin, style::kSoft});
    page.rules.push_back({area_.left, top, right, top, style::kThin, style::kSoft});
    page.rules.push_back({area_.left, bottom, right, bottom, style::kThin, style::kSoft});
}

void Layout::DrawCell(Page& page, const Cell& cell, double top, const Fragment& fragment) const {
    const double size = rows_->TextSize();
    const std::vector<Line> lines = Break(cell, fonts_, size);
    const std::size_t end = std::min(lines.size(), fragment.firstLine + fragment.lines);
    double y = top + style::kCellPadY + (fragment.isContinued ? LineHeight() : 0);
    for (std::size_t i = fragment.firstLine; i < end; i++, y += LineHeight()) {
        if (lines[i].length == 0) continue;
        std::string text = cell.text.substr(lines[i].begin, lines[i].length);
        double x = area_.left + cell.x + style::kCellPadX;
        if (cell.align == Align::Right) {
            x = area_.left + cell.x + cell.width - style::kCellPadX - fonts_.Width(text, size);
        }
        page.texts.push_back(
            {x, y + size * style::kAscent, size, cell.isCaption, style::kBlack, std::move(text)});
    }
}

void Layout::DrawMark(Page& page, const Cell& cell, double top, bool isContinued) const {
    const double size = rows_->TextSize();
    const std::string text = GetReportText(
        isContinued ? ReportText::Continued : ReportText::ContinuesBelow, document_.language);
    double x = area_.left + cell.x + style::kCellPadX;
    if (!isContinued) {
        x = std::max(area_.left, area_.left + cell.x + cell.width - style::kCellPadX -
                                     fonts_.Width(text, size));
    }
    page.texts.push_back(
        {x, top + style::kCellPadY + size * style::kAscent, size, false, style::kSoft, text});
}

}  // namespace zv::report
