// The entries of the message catalogue by what they say.
#pragma once

#include <cstdint>

namespace zv::text_id {

inline constexpr std::int16_t kProductTitle = 1;
inline constexpr std::int16_t kCompanyName = 3;
inline constexpr std::int16_t kTask = 5;
inline constexpr std::int16_t kEvent = 6;
inline constexpr std::int16_t kTitle = 7;
inline constexpr std::int16_t kTaskNumber = 8;
inline constexpr std::int16_t kExecutor = 10;
inline constexpr std::int16_t kSetter = 11;
inline constexpr std::int16_t kState = 13;
inline constexpr std::int16_t kDate = 14;
inline constexpr std::int16_t kMonths = 15;
inline constexpr std::int16_t kCompleted = 16;
inline constexpr std::int16_t kFinished = 17;
inline constexpr std::int16_t kList = 19;
inline constexpr std::int16_t kOptions = 20;
inline constexpr std::int16_t kTake = 21;
inline constexpr std::int16_t kLeave = 22;
inline constexpr std::int16_t kQuery = 23;
inline constexpr std::int16_t kAdd = 24;
inline constexpr std::int16_t kChange = 25;
inline constexpr std::int16_t kDelete = 26;
inline constexpr std::int16_t kPrint = 27;
inline constexpr std::int16_t kOk = 28;
inline constexpr std::int16_t kCancel = 29;
inline constexpr std::int16_t kGenerate = 31;
inline constexpr std::int16_t kContent = 32;
inline constexpr std::int16_t kAlertRange = 33;
inline constexpr std::int16_t kSchedule = 34;
inline constexpr std::int16_t kBegin = 35;
inline constexpr std::int16_t kEnd = 36;
inline constexpr std::int16_t kDayOfMonth = 37;
inline constexpr std::int16_t kDays = 38;
inline constexpr std::int16_t kMonth = 39;
inline constexpr std::int16_t kEvery = 40;
inline constexpr std::int16_t kAhead = 41;
inline constexpr std::int16_t kAfter = 42;
inline constexpr std::int16_t kBoth = 43;
inline constexpr std::int16_t kManage = 44;
inline constexpr std::int16_t kCardBox = 45;
inline constexpr std::int16_t kStaff = 46;
inline constexpr std::int16_t kScheduledDate = 101;
inline constexpr std::int16_t kOpenFile = 103;
inline constexpr std::int16_t kDatabaseFile = 104;
inline constexpr std::int16_t kManagerCaption = 105;
inline constexpr std::int16_t kAlertCaption = 106;
inline constexpr std::int16_t kPlanEditor = 107;
inline constexpr std::int16_t kMustNotBeEmpty = 108;
inline constexpr std::int16_t kWrongEntry = 109;
inline constexpr std::int16_t kExistsAlready = 110;
inline constexpr std::int16_t kExistsNoMore = 111;
inline constexpr std::int16_t kConfirmDelete = 113;
inline constexpr std::int16_t kDeletesItemsToo = 114;
inline constexpr std::int16_t kNoSuchPlan = 116;
inline constexpr std::int16_t kWindowsOverlap = 117;
inline constexpr std::int16_t kMoreThanFiveYears = 118;
inline constexpr std::int16_t kBeginAfterEnd = 119;
inline constexpr std::int16_t kEndBeforeBegin = 120;
inline constexpr std::int16_t kDeleteDoneToo = 121;
inline constexpr std::int16_t kStartGenerating = 122;
inline constexpr std::int16_t kStepIsZero = 123;
inline constexpr std::int16_t kNumberIsNone = 124;
inline constexpr std::int16_t kWidthIsEmpty = 125;
inline constexpr std::int16_t kNoSetter = 126;
inline constexpr std::int16_t kConfirmInstance = 128;
inline constexpr std::int16_t kConfirmDone = 129;
inline constexpr std::int16_t kOnlyNumbers = 130;
inline constexpr std::int16_t kNoQuote = 131;
inline constexpr std::int16_t kItemNotFound = 132;
inline constexpr std::int16_t kStartWithSystem = 134;
inline constexpr std::int16_t kReadInterval = 135;
inline constexpr std::int16_t kDesktopPath = 138;
inline constexpr std::int16_t kBeyondRange = 140;
inline constexpr std::int16_t kQuoteInText = 183;

}  // namespace zv::text_id
