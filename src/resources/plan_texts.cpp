#include "resources/plan_texts.h"

#include "resources/text_table.h"

namespace zv::resources {
namespace {

// In the order of the enumeration.
constexpr auto kTexts = std::to_array<TextEntry<PlanText>>({
    {PlanText::ListPrefix, "请选择", "請選擇"},
    {PlanText::KindYear, "年", "年"},
    {PlanText::KindMonth, "月", "月"},
    {PlanText::KindDay, "天", "天"},
    {PlanText::KindWeek, "周", "週"},
    {PlanText::Sunday, "星期日", "星期日"},
    {PlanText::Monday, "星期一", "星期一"},
    {PlanText::Tuesday, "星期二", "星期二"},
    {PlanText::Wednesday, "星期三", "星期三"},
    {PlanText::Thursday, "星期四", "星期四"},
    {PlanText::Friday, "星期五", "星期五"},
    {PlanText::Saturday, "星期六", "星期六"},
    {PlanText::On, "的", "的"},
    {PlanText::PickSetter, "选择设置人", "選擇設置人"},
    {PlanText::PickExecutor, "选择执行人", "選擇執行人"},
    {PlanText::CaptionSeparator, " - ", " - "},
});

static_assert(IsInOrder(kTexts, PlanText::CaptionSeparator));

}  // namespace

std::string GetPlanText(PlanText id, std::int16_t language) {
    return FindText(kTexts, id, language);
}

}  // namespace zv::resources
