#include "resources/design_texts.h"

#include "resources/text_table.h"

namespace zv::resources {
namespace {

// In the order of the enumeration.
// clang-format off
constexpr auto kTexts = std::to_array<TextEntry<DesignText>>({
    {DesignText::KindGuest, "客户拜访", "客戶拜訪"},
    {DesignText::KindDiary, "工作日志", "工作日誌"},
    {DesignText::StateNotDone, "未完成", "未完成"},
    {DesignText::StateDone, "已完成", "已完成"},
    {DesignText::StateInHand, "办理中", "辦理中"},
    {DesignText::StateAll, "全部", "全部"},
    {DesignText::StateNotYetDone, "未办结", "未辦結"},
    {DesignText::Order, "排列", "排列"},
    {DesignText::OrderByDate, "按类型和日期", "按類型和日期"},
    {DesignText::OrderByTitle, "按类型和主题", "按類型和主題"},
    {DesignText::OrderByPlan, "按计划或客户", "按計劃或客戶"},
    {DesignText::WayTelephone, "电话", "電話"},
    {DesignText::WayEmail, "电子邮件", "電子郵件"},
    {DesignText::WayWeb, "网页", "網頁"},
    {DesignText::TabItem, "内容", "內容"},
    {DesignText::TabFilter, "筛选", "篩選"},
    {DesignText::TabCard, "客户卡片", "客戶卡片"},
    {DesignText::TabOptions, "选项", "選項"},
    {DesignText::Kind, "类型", "類型"},
    {DesignText::Content, "内容", "內容"},
    {DesignText::OtherFields, "其他资料", "其他資料"},
    {DesignText::Remark, "备注", "備註"},
    {DesignText::CardView, "客户拜访管理", "客戶拜訪管理"},
    {DesignText::ContactWay, "联络方式", "聯絡方式"},
    {DesignText::Contact, "联系人", "聯絡人"},
    {DesignText::Company, "客户", "客戶"},
    {DesignText::Address, "地址", "地址"},
    {DesignText::FindCard, "查找客户", "查找客戶"},
    {DesignText::Telephone, "电话", "電話"},
    {DesignText::MobilePhone, "手机", "手機"},
    {DesignText::HomePhone, "住宅电话", "住宅電話"},
    {DesignText::Fax, "传真", "傳真"},
    {DesignText::Email, "电子邮件", "電子郵件"},
    {DesignText::PrivateEmail, "个人邮件", "個人郵件"},
    {DesignText::WebPage, "公司网页", "公司網頁"},
    {DesignText::PrivateWebPage, "个人网页", "個人網頁"},
    {DesignText::OnlyMyDoing, "只看本人执行(&B)", "只看本人執行(&B)"},
    {DesignText::OnlyMySetting, "只看本人设置(&V)", "只看本人設置(&V)"},
    {DesignText::Filter, "筛选条件", "篩選條件"},
    {DesignText::FilterNotForPlans, "当前显示事件，筛选条件不起作用。", "目前顯示事件，篩選條件不起作用。"},
    {DesignText::DatabaseGroup, "数据库", "資料庫"},
    {DesignText::Server, "SQL Server 服务器", "SQL Server 伺服器"},
    {DesignText::Browse, "浏览(&W)...", "瀏覽(&W)..."},
    {DesignText::AlertGroup, "启动与提醒", "啟動與提醒"},
    {DesignText::Minutes, "分钟", "分鐘"},
    {DesignText::StartupBirthday, "自启动客户生日报警", "自啟動客戶生日報警"},
    {DesignText::StaffGroup, "执行人来源", "執行人來源"},
    {DesignText::StaffFromPersonnel, "人事资料", "人事資料"},
    {DesignText::StaffFromEmployees, "职员资料", "職員資料"},
    {DesignText::BirthdayList, "客户生日报警，提前", "客戶生日報警，提前"},
    {DesignText::DaysAhead, "天", "天"},
    {DesignText::CardCode, "编号", "編號"},
    {DesignText::CardName, "姓名", "姓名"},
    {DesignText::Birthday, "生日", "生日"},
    {DesignText::ButtonSearch, "查询(&F)", "查詢(&F)"},
    {DesignText::ButtonAdd, "新增(&N)", "新增(&N)"},
    {DesignText::ButtonChange, "修改(&M)", "修改(&M)"},
    {DesignText::ButtonDelete, "删除(&D)", "刪除(&D)"},
    {DesignText::ButtonCancel, "取消(&U)", "取消(&U)"},
    {DesignText::ButtonSave, "保存(&S)", "儲存(&S)"},
    {DesignText::ButtonDone, "完成(&O)", "完成(&O)"},
    {DesignText::ButtonPrint, "打印(&P)", "打印(&P)"},
    {DesignText::ButtonLayout, "列表设置(&L)", "列表設置(&L)"},
    {DesignText::ButtonCall, "拨号(&C)", "撥號(&C)"},
    {DesignText::ButtonMail, "发送(&A)", "傳送(&A)"},
    {DesignText::ButtonBrowse, "打开(&H)", "開啟(&H)"},
    {DesignText::MenuTask, "任务(&T)", "任務(&T)"},
    {DesignText::MenuGuest, "客户(&G)", "客戶(&G)"},
    {DesignText::MenuDiary, "日志(&R)", "日誌(&R)"},
    {DesignText::MenuEvent, "事件(&E)", "事件(&E)"},
    {DesignText::MenuSearch, "查询(&Q)", "查詢(&Q)"},
    {DesignText::MenuPrint, "打印(&I)", "打印(&I)"},
    {DesignText::MenuDone, "完成", "完成"},
    {DesignText::MenuPicture, "窗口", "視窗"},
    {DesignText::MenuAdd, "新增(&N)", "新增(&N)"},
    {DesignText::MenuChange, "修改(&M)", "修改(&M)"},
    {DesignText::MenuDelete, "删除(&D)", "刪除(&D)"},
    {DesignText::MenuDoneEntry, "任务已完成 &O", "任務已完成 &O"},
    {DesignText::MenuInHandEntry, "任务办理中 &I", "任務辦理中 &I"},
    {DesignText::MenuContact, "联系客户(&C)", "聯絡客戶(&C)"},
    {DesignText::MenuGenerate, "生成任务(&G)", "生成任務(&G)"},
    {DesignText::MenuSearchFilter, "按筛选条件查询(&F)", "按篩選條件查詢(&F)"},
    {DesignText::MenuSearchMore, "高级查询(&A)...", "進階查詢(&A)..."},
    {DesignText::MenuPrintItem, "打印当前项目(&P)", "打印目前項目(&P)"},
    {DesignText::MenuClose, "退出(&X)", "退出(&X)"},
    {DesignText::MenuRestore, "还原(&R)", "還原(&R)"},
    {DesignText::RowsNotShown, "有记录无法显示", "有記錄無法顯示"},
    {DesignText::NotListed, "已保存，但当前列表不显示该项！", "已儲存，但目前列表不顯示該項！"},
    {DesignText::StoreInUse, "正在编辑，不能更换数据库，请先保存或取消！",
     "正在編輯，不能更換數據庫，請先保存或取消！"},
});
// clang-format on

static_assert(IsInOrder(kTexts, DesignText::StoreInUse));

}  // namespace

std::string GetDesignText(DesignText id, std::int16_t language) {
    return FindText(kTexts, id, language);
}

}  // namespace zv::resources
