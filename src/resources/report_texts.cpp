#include "resources/report_texts.h"

#include "resources/text_table.h"

namespace zv::resources {
namespace {

// In the order of the enumeration.
constexpr auto kTexts = std::to_array<TextEntry<ReportText>>({
    {ReportText::SearchWindow, "高级查询", "進階查詢"},
    {ReportText::Field, "字段", "欄位"},
    {ReportText::Contains, "包含", "包含"},
    {ReportText::BeginsWith, "开头是", "開頭是"},
    {ReportText::Equal, "等于", "等於"},
    {ReportText::NotEqual, "不等于", "不等於"},
    {ReportText::Less, "小于", "小於"},
    {ReportText::LessOrEqual, "小于或等于", "小於或等於"},
    {ReportText::Greater, "大于", "大於"},
    {ReportText::GreaterOrEqual, "大于或等于", "大於或等於"},
    {ReportText::Empty, "为空", "為空"},
    {ReportText::NotEmpty, "不为空", "不為空"},
    {ReportText::On, "当天", "當天"},
    {ReportText::NotOn, "不在当天", "不在當天"},
    {ReportText::Before, "早于", "早於"},
    {ReportText::OnOrBefore, "不晚于", "不晚於"},
    {ReportText::After, "晚于", "晚於"},
    {ReportText::OnOrAfter, "不早于", "不早於"},
    {ReportText::And, "并且", "並且"},
    {ReportText::Or, "或者", "或者"},
    {ReportText::ButtonAnd, "并且(&B)", "並且(&B)"},
    {ReportText::ButtonOr, "或者(&H)", "或者(&H)"},
    {ReportText::Comparison, "比较", "比較"},
    {ReportText::ComparedValue, "值", "值"},
    {ReportText::Conditions, "查询条件", "查詢條件"},
    {ReportText::ConditionsHint, "条件自上而下依次组合；没有条件时列出全部。",
     "條件自上而下依次組合；沒有條件時列出全部。"},
    {ReportText::ButtonAddCondition, "添加条件(&A)", "新增條件(&A)"},
    {ReportText::ButtonRemove, "移除(&R)", "移除(&R)"},
    {ReportText::ButtonClear, "全部清除(&L)", "全部清除(&L)"},
    {ReportText::ListLayout, "列表设置", "列表設置"},
    {ReportText::Available, "可选的列", "可選的欄"},
    {ReportText::Chosen, "打印的列", "列印的欄"},
    {ReportText::ButtonTake, "选入(&T) >", "選入(&T) >"},
    {ReportText::ButtonDrop, "< 移出(&R)", "< 移出(&R)"},
    {ReportText::ButtonUp, "上移(&U)", "上移(&U)"},
    {ReportText::ButtonDown, "下移(&D)", "下移(&D)"},
    {ReportText::ButtonUsual, "恢复默认(&F)", "還原預設(&F)"},
    {ReportText::NoColumns, "请至少选择一列!", "請至少選擇一欄!"},
});

static_assert(IsInOrder(kTexts, ReportText::NoColumns));

}  // namespace

std::string GetReportText(ReportText id, std::int16_t language) {
    return FindText(kTexts, id, language);
}

}  // namespace zv::resources
