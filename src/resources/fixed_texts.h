// Texts that are the same in every language.
#pragma once

namespace zv::resources::fixed {

inline constexpr char kNoRight[] = "您无权进行操作 ！";
inline constexpr char kNothingToPrint[] = "未有可供打印的数据记录！";

// Behind "[title]: " and one of the words.
inline constexpr char kAdded[] = "新增";
inline constexpr char kChanged[] = "修改";
inline constexpr char kDeleted[] = "删除";
inline constexpr char kFinished[] = "完毕 ！";

inline constexpr char kItemIsGone[] = "原记录未有存在，操作取消！";
inline constexpr char kVisitNeedsACard[] = "请输入客户资料！";
inline constexpr char kNoCard[] = "该客户资料不存在！";
inline constexpr char kCardIsGone[] = "该客户资料已不存在！";
inline constexpr char kNoCardFound[] = "未有符合条件的客户资料！";
inline constexpr char kNoCompany[] = "（空）";
inline constexpr char kVisitTitleEnd[] = "--拜访记录";

inline constexpr char kBirthdays[] = "客户生日报警";
// Around the day.
inline constexpr char kTodayBegin[] = "（今天 ";
inline constexpr char kTodayEnd[] = "）";
// Around the number of days.
inline constexpr char kNoBirthdayBegin[] = "今天未有[客户生日报警] （提前";
inline constexpr char kNoBirthdayEnd[] = "天）！";

}  // namespace zv::resources::fixed
