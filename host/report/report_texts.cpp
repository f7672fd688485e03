#include "report/report_texts.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "resources/catalogue.h"
#include "resources/design_texts.h"
#include "resources/text_ids.h"
#include "resources/text_table.h"

namespace zv::report {
namespace {

// In the order of the enumeration. Kinds and states have the names of the windows.
// clang-format off
constexpr auto kTexts = std::to_array<resources::TextEntry<ReportText>>({
    {ReportText::PageOf, "第 {0} 页，共 {1} 页", "第 {0} 頁，共 {1} 頁"},
    {ReportText::PrintedOn, "打印日期：{0}", "列印日期：{0}"},
    {ReportText::PrintedBy, "打印人：{0}", "列印人：{0}"},
    {ReportText::RecordCount, "共 {0} 条记录", "共 {0} 筆記錄"},
    {ReportText::NoRecords, "（没有记录）", "（沒有記錄）"},
    {ReportText::Continued, "(续)", "(續)"},
    {ReportText::ContinuesBelow, "(转下页)", "(轉下頁)"},
    {ReportText::KindTask, "", ""},
    {ReportText::KindGuest, "", ""},
    {ReportText::KindDiary, "", ""},
    {ReportText::StateNotDone, "", ""},
    {ReportText::StateDone, "", ""},
    {ReportText::StateInHand, "", ""},
    {ReportText::Preview, "打印预览 - {0}", "預覽列印 - {0}"},
    {ReportText::FirstPage, "首页(&H)", "首頁(&H)"},
    {ReportText::PreviousPage, "上一页(&B)", "上一頁(&B)"},
    {ReportText::NextPage, "下一页(&N)", "下一頁(&N)"},
    {ReportText::LastPage, "末页(&E)", "末頁(&E)"},
    {ReportText::PageNumber, "页码", "頁碼"},
    {ReportText::OfPages, "/ {0} 页", "/ {0} 頁"},
    {ReportText::ZoomOut, "缩小(&-)", "縮小(&-)"},
    {ReportText::ZoomIn, "放大(&+)", "放大(&+)"},
    {ReportText::Zoom, "缩放", "縮放"},
    {ReportText::FitWidth, "页宽", "頁寬"},
    {ReportText::WholePage, "整页", "整頁"},
    {ReportText::Print, "打印(&P)...", "列印(&P)..."},
    {ReportText::SavePdf, "存为 PDF(&S)...", "存為 PDF(&S)..."},
    {ReportText::SaveCsv, "存为 CSV(&V)...", "存為 CSV(&V)..."},
    {ReportText::Close, "关闭(&C)", "關閉(&C)"},
    {ReportText::PageArea, "页面", "頁面"},
    {ReportText::PdfFilter, "PDF 文件 (*.pdf)|*.pdf", "PDF 檔案 (*.pdf)|*.pdf"},
    {ReportText::CsvFilter, "CSV 文件 (*.csv)|*.csv", "CSV 檔案 (*.csv)|*.csv"},
    {ReportText::SavePdfTitle, "存为 PDF", "存為 PDF"},
    {ReportText::SaveCsvTitle, "存为 CSV", "存為 CSV"},
    {ReportText::PrinterFileFilter, "打印机文件 (*.prn)|*.prn", "印表機檔案 (*.prn)|*.prn"},
    {ReportText::PrinterFileTitle, "打印到文件", "列印到檔案"},
    {ReportText::NoPrinter, "没有安装打印机。请先安装打印机，或存为 PDF。",
     "沒有安裝印表機。請先安裝印表機，或存為 PDF。"},
    {ReportText::UnknownPrinter, "找不到打印机“{0}”。", "找不到印表機「{0}」。"},
    {ReportText::PrinterFailed, "打印失败：{0}", "列印失敗：{0}"},
    {ReportText::PrintCancelled, "打印已取消。", "列印已取消。"},
    {ReportText::NoFont, "没有可以使用的中文字体。", "沒有可以使用的中文字型。"},
    {ReportText::BadMode, "打印方式无效：{0}", "列印方式無效：{0}"},
    {ReportText::NothingToPrint, "没有可供打印的内容。", "沒有可供列印的內容。"},
    {ReportText::FileNotWritten, "文件无法写入：{0}", "檔案無法寫入：{0}"},
    {ReportText::SavingCancelled, "保存已取消，没有写入文件。", "儲存已取消，沒有寫入檔案。"},
    {ReportText::Printing, "正在打印", "正在列印"},
    {ReportText::Saving, "正在保存", "正在儲存"},
});
// clang-format on

static_assert(resources::IsInOrder(kTexts, ReportText::Saving));

std::optional<resources::DesignText> OfWindows(ReportText id) {
    using resources::DesignText;
    switch (id) {
        case ReportText::KindGuest:
            return DesignText::KindGuest;
        case ReportText::KindDiary:
            return DesignText::KindDiary;
        case ReportText::StateNotDone:
            return DesignText::StateNotDone;
        case ReportText::StateDone:
            return DesignText::StateDone;
        case ReportText::StateInHand:
            return DesignText::StateInHand;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::string GetReportText(ReportText id, std::int16_t language) {
    if (id == ReportText::KindTask) {
        return resources::LoadText(text_id::kTask, language == resources::kTraditionalLanguage
                                                       ? language
                                                       : std::int16_t{0});
    }
    if (const auto design = OfWindows(id)) return resources::GetDesignText(*design, language);
    return resources::FindText(kTexts, id, language);
}

std::string FormatReportText(ReportText id, std::int16_t language, const std::string& first,
                             const std::string& second) {
    const std::string pattern = GetReportText(id, language);
    std::string result;
    for (std::size_t i = 0; i < pattern.size(); i++) {
        if (pattern.compare(i, 3, "{0}") == 0) {
            result += first;
            i += 2;
        } else if (pattern.compare(i, 3, "{1}") == 0) {
            result += second;
            i += 2;
        } else {
            result += pattern[i];
        }
    }
    return result;
}

}  // namespace zv::report
