#include "resources/item_texts.h"

#include "resources/text_table.h"

namespace zv::resources {
namespace {

// In the order of the enumeration.
constexpr auto kTexts = std::to_array<TextEntry<ItemText>>({
    {ItemText::ChangedByOthers, "该记录在您打开之后已被他人修改：",
     "該記錄在您打開之後已被他人修改："},
    {ItemText::StoredNow, "现存", "現存"},
    {ItemText::YourInput, "您的", "您的"},
    {ItemText::OverwriteQuestion,
     "用您的内容覆盖现存的内容吗 ? 是[Y] - 用您的内容;否[N] - 保留现存的内容;取消 - 暂不保存",
     "用您的內容覆蓋現存的內容嗎 ? 是[Y] - 用您的內容;否[N] - 保留現存的內容;取消 - 暫不保存"},
    {ItemText::BelongsToPlan,
     "所选客户的编号也是该事件的任务号，保存后该任务将属于该事件，并随事件一同删除或重新生成",
     "所選客戶的編號也是該事件的任務號，保存後該任務將屬於該事件，並隨事件一同刪除或重新生成"},
    {ItemText::SaveAnyway, "仍要保存吗 ?", "仍要保存嗎 ?"},
});

static_assert(IsInOrder(kTexts, ItemText::SaveAnyway));

}  // namespace

std::string GetItemText(ItemText id, std::int16_t language) {
    return FindText(kTexts, id, language);
}

}  // namespace zv::resources
