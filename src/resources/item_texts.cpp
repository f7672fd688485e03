#include "resources/item_texts.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace zv::resources {
namespace {

struct Entry {
    ItemText id;
    std::string_view simplified;
    std::string_view traditional;
};

// In the order of the enumeration.
constexpr auto kTexts = std::to_array<Entry>({
    {ItemText::ChangedByOthers, "该记录在您打开之后已被他人修改：",
     "該記錄在您打開之後已被他人修改："},
    {ItemText::StoredNow, "现存", "現存"},
    {ItemText::YourInput, "您的", "您的"},
    {ItemText::OverwriteQuestion, "用您的内容覆盖现存的内容吗 ?", "用您的內容覆蓋現存的內容嗎 ?"},
});

constexpr bool InOrder() {
    for (std::size_t i = 0; i < kTexts.size(); i++) {
        if (kTexts[i].id != static_cast<ItemText>(i)) return false;
    }
    return kTexts.size() == static_cast<std::size_t>(ItemText::OverwriteQuestion) + 1;
}
static_assert(InOrder());

constexpr std::int16_t kTraditional = 1;

}  // namespace

std::string GetItemText(ItemText id, std::int16_t language) {
    const Entry& entry = kTexts[static_cast<std::size_t>(id)];
    return std::string(language == kTraditional ? entry.traditional : entry.simplified);
}

}  // namespace zv::resources
