// The fields of an item, in one table: whatever stores, shows, edits, lists, compares or prints
// items follows it. A column that is added to tTaskList is added here.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "resources/design_texts.h"
#include "resources/text_ids.h"

namespace zv::items {

/// What a field holds, and so how it is compared and shown.
enum class FieldKind { Text, Number, Date, ItemKind, State };

/// What the windows call a field: an entry of the catalogue or a text of the design, with a number
/// behind it where several fields share it.
struct FieldCaption {
    std::int16_t catalogue = 0;  ///< 0: the design's
    resources::DesignText design{};
    int number = 0;  ///< 0: none

    /// Throws like resources::LoadText.
    std::string Text(std::int16_t language) const;
};

/// Fields that mean something only together: a save takes all of them from one version.
enum class FieldGroup : std::uint8_t { Alone, Customer, Dates, Completion, Writer };

struct Field {
    std::string_view column;  ///< of tTaskList
    FieldKind kind = FieldKind::Text;
    FieldCaption caption{};  ///< of a field that the windows show
    FieldGroup group = FieldGroup::Alone;
    /// The control of the main window that edits it. Fields of the box kFreeBox share an array of
    /// boxes, one each, in the order of the table.
    std::string_view box{};
    int length = 0;              ///< of its box in characters; 0: no limit
    bool fitsBytes = false;      ///< cut to as many bytes of the ANSI code page when it is saved
    std::string_view heading{};  ///< key of its heading on the print of one item; empty: not there
    int printed = 0;             ///< its place there
    int listed = 0;              ///< its place in lists, from 1; 0: in none
    bool usual = false;          ///< a list shows it unless the user chose otherwise
    bool queried = false;        ///< the query window shows it

    bool IsListed() const { return listed > 0; }
};

inline constexpr std::string_view kFreeBox = "txtOther";
inline constexpr int kLongText = 255;
inline constexpr int kShortText = 100;

namespace detail {

constexpr FieldCaption Catalogue(std::int16_t id) {
    return {.catalogue = id};
}
constexpr FieldCaption Design(resources::DesignText id) {
    return {.design = id};
}
constexpr Field Free(std::string_view column, int number, std::string_view heading) {
    return {.column = column,
            .caption = {.design = resources::DesignText::Remark, .number = number},
            .box = kFreeBox,
            .length = kLongText,
            .fitsBytes = true,
            .heading = heading,
            .printed = 6 + number,
            .listed = 9 + number,
            .queried = true};
}

}  // namespace detail

/// In the order of writing.
inline constexpr auto kFields = std::to_array<Field>({
    {.column = "fType",
     .kind = FieldKind::ItemKind,
     .caption = detail::Design(resources::DesignText::Kind),
     .group = FieldGroup::Customer,
     .box = "cboType2",
     .heading = "TaskType",
     .printed = 4,
     .listed = 6,
     .usual = true,
     .queried = true},
    {.column = "fWay",
     .caption = detail::Design(resources::DesignText::ContactWay),
     .box = "cboWay",
     .length = kShortText,
     .listed = 8},
    {.column = "TaskID", .kind = FieldKind::Number, .group = FieldGroup::Customer},
    {.column = "fGuest",
     .caption = detail::Design(resources::DesignText::Contact),
     .group = FieldGroup::Customer,
     .box = "txtName2",
     .length = kShortText,
     .listed = 9},
    {.column = "taskTitle",
     .caption = detail::Catalogue(text_id::kTitle),
     .box = "txtTitle2",
     .length = kLongText,
     .fitsBytes = true,
     .heading = "TaskTitle",
     .printed = 1,
     .listed = 2,
     .usual = true,
     .queried = true},
    {.column = "tDoneMan",
     .caption = detail::Catalogue(text_id::kExecutor),
     .group = FieldGroup::Completion,
     .box = "cboJbr2",
     .length = kShortText,
     .heading = "TaskJbr",
     .printed = 2,
     .listed = 4,
     .usual = true,
     .queried = true},
    {.column = "taskTime",
     .kind = FieldKind::Date,
     .caption = detail::Catalogue(text_id::kDate),
     .group = FieldGroup::Dates,
     .box = "DTPicker2",
     .heading = "TaskDate",
     .printed = 3,
     .listed = 1,
     .usual = true,
     .queried = true},
    {.column = "tDuring1", .kind = FieldKind::Date, .group = FieldGroup::Dates},
    {.column = "tDuring2", .kind = FieldKind::Date, .group = FieldGroup::Dates},
    {.column = "fContent",
     .caption = detail::Design(resources::DesignText::Content),
     .box = "txtTaskCon",
     .heading = "TaskContent",
     .printed = 5,
     .listed = 3,
     .usual = true,
     .queried = true},
    detail::Free("fOther0", 1, "TaskOther0"),
    detail::Free("fOther1", 2, "TaskOther1"),
    detail::Free("fOther2", 3, "TaskOther2"),
    detail::Free("fOther3", 4, "TaskOther3"),
    detail::Free("fOther4", 5, "TaskOther4"),
    detail::Free("fOther5", 6, "TaskOther5"),
    {.column = "fUser",
     .caption = detail::Catalogue(text_id::kSetter),
     .group = FieldGroup::Writer,
     .box = "txtUser2",
     .listed = 5,
     .usual = true,
     .queried = true},
    {.column = "tDone",
     .kind = FieldKind::State,
     .caption = detail::Catalogue(text_id::kState),
     .group = FieldGroup::Completion,
     .box = "cboDone2",
     .heading = "TaskState",
     .printed = 6,
     .listed = 7,
     .usual = true,
     .queried = true},
});

/// Columns of kFields, in its order.
inline constexpr auto kColumns = [] {
    std::array<std::string_view, kFields.size()> columns;
    for (std::size_t i = 0; i < kFields.size(); i++) columns[i] = kFields[i].column;
    return columns;
}();

/// Positions of the fields that the code names.
namespace field {

consteval std::size_t At(std::string_view column) {
    for (std::size_t i = 0; i < kFields.size(); i++) {
        if (kFields[i].column == column) return i;
    }
    throw "no such column";
}
inline constexpr std::size_t kKind = At("fType");
inline constexpr std::size_t kWay = At("fWay");
inline constexpr std::size_t kNumber = At("TaskID");  ///< of the plan or the card
inline constexpr std::size_t kGuest = At("fGuest");
inline constexpr std::size_t kTitle = At("taskTitle");
inline constexpr std::size_t kDoer = At("tDoneMan");
inline constexpr std::size_t kTime = At("taskTime");
inline constexpr std::size_t kAlertFrom = At("tDuring1");
inline constexpr std::size_t kAlertUntil = At("tDuring2");
inline constexpr std::size_t kContent = At("fContent");
inline constexpr std::size_t kUser = At("fUser");
inline constexpr std::size_t kState = At("tDone");

}  // namespace field

/// The field of a column, compared without regard to case; null for any other.
const Field* FindField(std::string_view column);
/// The fields that lists offer, in their order there.
std::vector<const Field*> ListedFields();
/// The fields on the print of one item, in their order there.
std::vector<const Field*> PrintedFields();
/// How many boxes kFreeBox has.
int FreeFields();

}  // namespace zv::items
