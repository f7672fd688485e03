// What the demonstration host says. It speaks one language, whichever its control speaks.
#pragma once

namespace zv::demo::texts {

inline constexpr wchar_t kUsage[] =
    L"zvDemo.exe [--data 文件] [--user 姓名] [--language 0|1] [--alert]";

/// Of the buttons, by the mode that they call refresh with.
inline constexpr const wchar_t* kModes[] = {
    L"&0  登录提醒", L"&1  任务管理",         L"&2  新建计划", L"&3  选择人员",
    L"&4  直接标记", L"&5  标记，失败时询问", L"&6  更新计划", L"&7  更新，失败时询问",
    L"&8  只连接",   L"&9  客户卡片"};

inline constexpr wchar_t kStandInUser[] = L"王小明";
inline constexpr wchar_t kTitle[] = L"任务提醒 演示主程序";
inline constexpr wchar_t kUser[] = L"当前用户";
inline constexpr wchar_t kUserName[] = L"用户名(&U)";
inline constexpr wchar_t kInCharge[] = L"负责人(&Z)";
inline constexpr wchar_t kCompany[] = L"公司(&C)";
inline constexpr wchar_t kLanguage[] = L"语言(&L)";
inline constexpr wchar_t kRights[] = L"权限(&R)";
inline constexpr wchar_t kAllRights[] = L"全部权限(&A)";
inline constexpr wchar_t kDatabase[] = L"数据库";
inline constexpr wchar_t kKind[] = L"种类(&K)";
inline constexpr wchar_t kFileKind[] = L"0  文件（内嵌或 Access）";
inline constexpr wchar_t kServerKind[] = L"1  SQL Server";
inline constexpr wchar_t kDataPath[] = L"数据路径(&D)";
inline constexpr wchar_t kPassword[] = L"密码(&P)";
inline constexpr wchar_t kLogin[] = L"登录名(&I)";
inline constexpr wchar_t kDefaultDatabase[] = L"默认数据库(&B)";
inline constexpr wchar_t kParameters[] = L"调用参数";
inline constexpr wchar_t kName[] = L"名称(&N)";
inline constexpr wchar_t kTaskNumber[] = L"任务编号(&T)";
inline constexpr wchar_t kDateOrFlag[] = L"日期或标志(&F)";
inline constexpr wchar_t kModal[] = L"模态窗口(&M)";
inline constexpr wchar_t kOpen[] = L"打开（refresh 的方式）";
inline constexpr wchar_t kQueryWindow[] = L"1 → 查询任务(&Q)";
inline constexpr wchar_t kWhatTheControlDid[] = L"控件做了什么";
inline constexpr wchar_t kSaveBag[] = L"保存属性包(&S)";
inline constexpr wchar_t kLoadBag[] = L"重新载入(&O)";
inline constexpr wchar_t kRead[] = L"读取属性(&E)";
inline constexpr wchar_t kClear[] = L"清空(&X)";
inline constexpr wchar_t kStandInCompany[] = L"示例贸易有限公司";
inline constexpr wchar_t kDatabaseFilter[] =
    L"数据库 (*.db;*.mdb;*.accdb)\0*.db;*.mdb;*.accdb\0所有文件 (*.*)\0*.*\0";

// Lines of the log.
inline constexpr char kActivated[] = "控件已就地激活";
inline constexpr char kUserInterfaceActive[] = "控件获得界面焦点";
inline constexpr char kDeactivated[] = "控件已停用";
inline constexpr char kNotRegistered[] = "没有控件可用：请先注册 zv_Task.ocx，再按“重新载入”";
inline constexpr char kNoQueryWindow[] = "任务管理器的菜单里没有查询窗口";
inline constexpr char kSetProperties[] = "设置属性";
inline constexpr char kNoDate[] = "  myDate：不是日期，也不是数字";
inline constexpr char kNoControl[] = "没有控件可用";
inline constexpr char kMadeOfBag[] = "用保存的属性包重新创建控件";
inline constexpr char kMadeAnew[] = "重新创建控件";
inline constexpr char kEmpty[] = "(空)";
inline constexpr char kControlNotRegistered[] = "控件没有注册";
inline constexpr char kInvisible[] = "控件运行时不可见，不就地激活";
inline constexpr char kSavePropertyBag[] = "保存属性包";

// With what is inserted in the places in braces.
inline constexpr char kEvent[] = "事件 {0}";
inline constexpr char kOtherType[] = "(类型 {0})";
inline constexpr char kCut[] = "…（{0} 字）";
inline constexpr char kFailed[] = "{0}  失败，错误 {1}：";
inline constexpr char kSource[] = "（{0}）";
inline constexpr char kDone[] = "{0}  成功，{1} 毫秒";
inline constexpr char kCreating[] = "创建 {0}";
inline constexpr char kReading[] = "读取 {0}";

}  // namespace zv::demo::texts
