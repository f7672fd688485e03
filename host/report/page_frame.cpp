#include "report/page_frame.h"

#include <algorithm>

#include "base/text.h"
#include "report/report_texts.h"
#include "report/styles.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr std::size_t kMostTitleLines = 4;
constexpr std::size_t kMostAskedLines = 3;
constexpr double kGap = 8;  // between heading and rows
constexpr double kRuleGap = 2;
constexpr char kEllipsis[] = "…";

double LineOf(double size) {
    return size * style::kLineHeight;
}

std::string OneLine(const std::string& text) {
    return text::Replace(CleanText(text), "\n", " ");
}

std::string ToTheMinute(const DateTime& time) {
    constexpr std::size_t kWithMinutes = 16;
    return time.IsoDateTime().substr(0, kWithMinutes);
}

}  // namespace

PageFrame::PageFrame(const Document& document, const FontSet& fonts, const PageArea& area,
                     int records)
    : document_(document), fonts_(fonts), area_(area) {
    titleLines_ = Wrap(document_.title, style::kTitleSize, area_.Room(), kMostTitleLines);
    subtitleLines_ = Wrap(document_.subtitle, style::kSubtitleSize, area_.Room(), kMostTitleLines);
    if (records >= 0) {
        records_ =
            FormatReportText(ReportText::RecordCount, document_.language, std::to_string(records));
    }
    askedLines_ = Wrap(document_.asked, style::kRunningSize, AskedRoom(), kMostAskedLines);
}

std::vector<std::string> PageFrame::Wrap(const std::string& raw, double size, double room,
                                         std::size_t most) const {
    const std::string text = OneLine(raw);
    const auto lines = BreakLines(
        text, room, [&](char32_t c) { return static_cast<double>(fonts_.Find(c).advance) * size; });
    std::vector<std::string> result;
    for (const Line& line : lines) {
        if (result.size() == most) {
            result.back() = Fit(result.back() + text.substr(line.begin), size, room);
            break;
        }
        if (line.length > 0) result.push_back(text.substr(line.begin, line.length));
    }
    return result;
}

double PageFrame::AskedRoom() const {
    if (records_.empty()) return area_.Room();
    return area_.Room() - fonts_.Width(records_, style::kRunningSize) - 2 * kGap;
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
    const double line = LineOf(style::kRunningSize);
    if (page > 1) return area_.top + line * (HasAskedLine() ? 2 : 1) + kRuleGap + kGap;
    double top = area_.top;
    if (!OneLine(document_.company).empty()) top += LineOf(style::kCompanySize);
    top += static_cast<double>(titleLines_.size()) * LineOf(style::kTitleSize);
    top += static_cast<double>(subtitleLines_.size()) * LineOf(style::kSubtitleSize);
    if (HasAskedLine()) {
        top += line * static_cast<double>(std::max<std::size_t>(askedLines_.size(), 1));
    }
    return top + kGap;
}

double PageFrame::BodyBottom() const {
    return area_.bottom - LineOf(style::kRunningSize) - kGap;
}

void PageFrame::Draw(Page& target, int page, int pages) const {
    page == 1 ? DrawFirstHeading(target) : DrawRunningHeading(target);
    DrawFooter(target, page, pages);
}

void PageFrame::DrawLeft(Page& target, double top, double size, const std::string& text) const {
    if (text.empty()) return;
    target.texts.push_back(
        {area_.left, top + size * style::kAscent, size, false, style::kSoft, text});
}

void PageFrame::DrawRight(Page& target, double top, double size, const std::string& text) const {
    if (text.empty()) return;
    target.texts.push_back({area_.right - fonts_.Width(text, size), top + size * style::kAscent,
                            size, false, style::kSoft, text});
}

void PageFrame::DrawAcross(Page& target, double y) const {
    target.rules.push_back({area_.left, y, area_.right, y, style::kThin, style::kHairline});
}

void PageFrame::DrawFirstHeading(Page& target) const {
    double top = area_.top;
    const auto centred = [&](const std::string& text, double size, bool bold, Grey grey) {
        const double x = area_.left + (area_.Room() - fonts_.Width(text, size)) / 2;
        target.texts.push_back({x, top + size * style::kAscent, size, bold, grey, text});
        top += LineOf(size);
    };
    const std::string company = Fit(OneLine(document_.company), style::kCompanySize, area_.Room());
    if (!company.empty()) centred(company, style::kCompanySize, false, style::kSoft);
    for (const std::string& line : titleLines_) {
        centred(line, style::kTitleSize, true, style::kBlack);
    }
    for (const std::string& line : subtitleLines_) {
        centred(line, style::kSubtitleSize, false, style::kSoft);
    }
    DrawRight(target, top, style::kRunningSize, records_);
    for (const std::string& line : askedLines_) {
        DrawLeft(target, top, style::kRunningSize, line);
        top += LineOf(style::kRunningSize);
    }
}

void PageFrame::DrawRunningHeading(Page& target) const {
    const double size = style::kRunningSize;
    const double half = area_.Room() / 2 - kGap;
    DrawLeft(target, area_.top, size, Fit(OneLine(document_.company), size, half));
    DrawRight(target, area_.top, size, Fit(OneLine(document_.title), size, half));
    double top = area_.top + LineOf(size);
    if (HasAskedLine()) {
        DrawLeft(target, top, size, Fit(OneLine(document_.asked), size, AskedRoom()));
        DrawRight(target, top, size, records_);
        top += LineOf(size);
    }
    DrawAcross(target, top + kRuleGap);
}

void PageFrame::DrawFooter(Page& target, int page, int pages) const {
    const double size = style::kRunningSize;
    const double y = area_.bottom - LineOf(size);
    const double top = y + 3;
    DrawAcross(target, y);
    const std::string number = FormatReportText(ReportText::PageOf, document_.language,
                                                std::to_string(page), std::to_string(pages));
    const double numberWidth = fonts_.Width(number, size);
    const double side = (area_.Room() - numberWidth) / 2 - kGap;
    DrawLeft(target, top, size,
             Fit(FormatReportText(ReportText::PrintedOn, document_.language,
                                  ToTheMinute(document_.printed)),
                 size, side));
    target.texts.push_back({area_.left + (area_.Room() - numberWidth) / 2,
                            top + size * style::kAscent, size, false, style::kSoft, number});
    const std::string who = OneLine(document_.user);
    if (who.empty()) return;
    DrawRight(target, top, size,
              Fit(FormatReportText(ReportText::PrintedBy, document_.language, who), size, side));
}

}  // namespace zv::report
