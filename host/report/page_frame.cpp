#include "report/page_frame.h"

#include "base/text.h"
#include "report/report_texts.h"
#include "report/styles.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr std::size_t kMostTitleLines = 4;
constexpr double kGap = 8;  // between heading and rows
constexpr char kEllipsis[] = "…";

double LineOf(double size) {
    return size * style::kLineHeight;
}

std::string OneLine(const std::string& text) {
    return text::Replace(CleanText(text), "\n", " ");
}

}  // namespace

PageFrame::PageFrame(const Document& document, const FontSet& fonts, double pageWidth,
                     double pageHeight, int records)
    : document_(document), fonts_(fonts), width_(pageWidth), height_(pageHeight) {
    const double room = width_ - 2 * style::kMargin;
    const auto wrap = [&](const std::string& raw, double size) {
        const std::string text = OneLine(raw);
        const auto lines = BreakLines(text, room, [&](char32_t c) {
            return static_cast<double>(fonts_.Find(c).advance) * size;
        });
        std::vector<std::string> result;
        for (const Line& line : lines) {
            if (result.size() == kMostTitleLines) {
                result.back() = Fit(result.back() + text.substr(line.begin), size, room);
                break;
            }
            if (line.length > 0) result.push_back(text.substr(line.begin, line.length));
        }
        return result;
    };
    titleLines_ = wrap(document_.title, style::kTitleSize);
    subtitleLines_ = wrap(document_.subtitle, style::kSubtitleSize);
    if (records >= 0) {
        records_ =
            FormatReportText(ReportText::RecordCount, document_.language, std::to_string(records));
    }
}

std::string PageFrame::Fit(const std::string& text, double size, double room) const {
    if (fonts_.Width(text, size) <= room) return text;
    const double ellipsis = fonts_.Width(kEllipsis, size);
    double used = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        std::size_t next = position;
        used += static_cast<double>(fonts_.Find(text::NextCodePoint(text, next)).advance) * size;
        if (used + ellipsis > room) break;
        position = next;
    }
    return text.substr(0, position) + kEllipsis;
}

double PageFrame::BodyTop(int page) const {
    if (page > 1) return style::kMargin + LineOf(style::kRunningSize) + kGap + 2;
    double top = style::kMargin;
    if (!OneLine(document_.company).empty()) top += LineOf(style::kCompanySize);
    top += static_cast<double>(titleLines_.size()) * LineOf(style::kTitleSize);
    top += static_cast<double>(subtitleLines_.size()) * LineOf(style::kSubtitleSize);
    if (!records_.empty()) top += LineOf(style::kRunningSize);
    return top + kGap;
}

double PageFrame::BodyBottom() const {
    return height_ - style::kMargin - LineOf(style::kRunningSize) - kGap;
}

void PageFrame::Draw(Page& target, int page, int pages) const {
    page == 1 ? DrawFirstHeading(target) : DrawRunningHeading(target);
    DrawFooter(target, page, pages);
}

void PageFrame::DrawFirstHeading(Page& target) const {
    const double room = width_ - 2 * style::kMargin;
    double top = style::kMargin;
    const auto centred = [&](const std::string& text, double size, bool bold, Grey grey) {
        const double x = (width_ - fonts_.Width(text, size)) / 2;
        target.texts.push_back({x, top + size * style::kAscent, size, bold, grey, text});
        top += LineOf(size);
    };
    const std::string company = Fit(OneLine(document_.company), style::kCompanySize, room);
    if (!company.empty()) centred(company, style::kCompanySize, false, style::kSoft);
    for (const std::string& line : titleLines_) {
        centred(line, style::kTitleSize, true, style::kBlack);
    }
    for (const std::string& line : subtitleLines_) {
        centred(line, style::kSubtitleSize, false, style::kSoft);
    }
    if (!records_.empty()) {
        const double size = style::kRunningSize;
        target.texts.push_back({width_ - style::kMargin - fonts_.Width(records_, size),
                                top + size * style::kAscent, size, false, style::kSoft, records_});
    }
}

void PageFrame::DrawRunningHeading(Page& target) const {
    const double size = style::kRunningSize;
    const double room = width_ - 2 * style::kMargin;
    const double baseline = style::kMargin + size * style::kAscent;
    const std::string company = Fit(OneLine(document_.company), size, room / 2 - kGap);
    const std::string title = Fit(OneLine(document_.title), size, room / 2 - kGap);
    if (!company.empty()) {
        target.texts.push_back({style::kMargin, baseline, size, false, style::kSoft, company});
    }
    if (!title.empty()) {
        target.texts.push_back({width_ - style::kMargin - fonts_.Width(title, size), baseline, size,
                                false, style::kSoft, title});
    }
    const double y = style::kMargin + LineOf(size) + 2;
    target.rules.push_back(
        {style::kMargin, y, width_ - style::kMargin, y, style::kThin, style::kHairline});
}

void PageFrame::DrawFooter(Page& target, int page, int pages) const {
    const double size = style::kRunningSize;
    const double y = height_ - style::kMargin - LineOf(size);
    const double third = (width_ - 2 * style::kMargin) / 3 - kGap;
    const double baseline = y + size * style::kAscent + 3;
    target.rules.push_back(
        {style::kMargin, y, width_ - style::kMargin, y, style::kThin, style::kHairline});
    const std::string number = FormatReportText(ReportText::PageOf, document_.language,
                                                std::to_string(page), std::to_string(pages));
    const std::string date =
        FormatReportText(ReportText::PrintedOn, document_.language, document_.printed.IsoDate());
    target.texts.push_back({style::kMargin, baseline, size, false, style::kSoft, date});
    target.texts.push_back(
        {(width_ - fonts_.Width(number, size)) / 2, baseline, size, false, style::kSoft, number});
    const std::string who = OneLine(document_.user);
    if (who.empty()) return;
    const std::string user =
        Fit(FormatReportText(ReportText::PrintedBy, document_.language, who), size, third);
    target.texts.push_back({width_ - style::kMargin - fonts_.Width(user, size), baseline, size,
                            false, style::kSoft, user});
}

}  // namespace zv::report
