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
    {ItemText::OverwriteQuestion, "用您的内容覆盖现存的内容吗 ?", "用您的內容覆蓋現存的內容嗎 ?"},
});

static_assert(IsInOrder(kTexts, ItemText::OverwriteQuestion));

}  // namespace

std::string GetItemText(ItemText id, std::int16_t language) {
    return FindText(kTexts, id, language);
}

}  // namespace zv::resources
