#include "resources/ask_texts.h"

#include "base/text.h"
#include "resources/text_table.h"

namespace zv::resources {
namespace {

// In the order of the enumeration.
// clang-format off
constexpr auto kTexts = std::to_array<TextEntry<AskText>>({
    {AskText::WrittenBy, "用户", "使用者"},
    {AskText::ButtonExport, "导出(&E)...", "匯出(&E)..."},
    {AskText::NothingFound, "没有符合条件的任务。", "沒有符合條件的任務。"},
    {AskText::RowsFound, "共 {n} 行", "共 {n} 列"},
    {AskText::RowsSoFar, "已读取 {n} 行", "已讀取 {n} 列"},
    {AskText::QueryCancelled, "查询已取消，只列出前 {n} 行。", "查詢已取消，只列出前 {n} 列。"},
    {AskText::ExportTitle, "导出列表", "匯出清單"},
    {AskText::CsvFilter, "CSV 文件 (*.csv)|*.csv|所有文件 (*.*)|*.*",
     "CSV 檔案 (*.csv)|*.csv|所有檔案 (*.*)|*.*"},
    {AskText::RowsExported, "已导出 {n} 行：", "已匯出 {n} 列："},
    {AskText::ExportCancelled, "导出已取消，没有写入文件。", "匯出已取消，沒有寫入檔案。"},
    {AskText::Working, "请稍候...", "請稍候..."},
});
// clang-format on

static_assert(IsInOrder(kTexts, AskText::Working));

}  // namespace

std::string GetAskText(AskText id, std::int16_t language) {
    return FindText(kTexts, id, language);
}

std::string GetAskText(AskText id, std::int16_t language, int number) {
    return text::Replace(GetAskText(id, language), "{n}", std::to_string(number));
}

}  // namespace zv::resources
