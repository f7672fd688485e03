#include "resources/error_texts.h"

#include <algorithm>
#include <array>

#include "resources/catalogue.h"

namespace zv::resources {
namespace {

struct Entry {
    ErrorNumber number;
    std::string_view simplified;
    std::string_view traditional;
};

constexpr auto kTexts = std::to_array<Entry>({
    {ErrorNumber::InvalidProcedureCall, "无效的过程调用或参数", "無效的程序呼叫或引數"},
    {ErrorNumber::Overflow, "数值溢出", "數值溢位"},
    {ErrorNumber::OutOfMemory, "内存不足", "記憶體不足"},
    {ErrorNumber::SubscriptOutOfRange, "下标越界", "陣列索引超出範圍"},
    {ErrorNumber::TypeMismatch, "类型不匹配", "型態不符合"},
    {ErrorNumber::InternalError, "内部错误", "內部錯誤"},
    {ErrorNumber::FileNotFound, "文件未找到", "找不到檔案"},
    {ErrorNumber::DiskFull, "磁盘已满", "磁碟已滿"},
    {ErrorNumber::PermissionDenied, "没有权限或文件正在使用", "沒有權限或檔案正在使用"},
    {ErrorNumber::PathNotFound, "路径未找到", "找不到路徑"},
    {ErrorNumber::PathFileAccess, "路径或文件访问错误", "路徑或檔案存取錯誤"},
    {ErrorNumber::ObjectNotSet, "对象变量未设置", "物件變數未設定"},
    {ErrorNumber::ResourceNotFound, "未找到该编号的资源", "找不到該編號的資源"},
    {ErrorNumber::PropertyNotReadable, "属性不可读取", "屬性無法讀取"},
    {ErrorNumber::FormAlreadyShown, "窗口已经显示，不能再以模式方式显示",
     "視窗已經顯示，不能再以強制回應方式顯示"},
    {ErrorNumber::ModalFormShown, "模式窗口显示时不能显示非模式窗口",
     "強制回應視窗顯示時不能顯示非強制回應視窗"},
    {ErrorNumber::CannotCreateObject, "不能创建对象", "無法產生物件"},
    {ErrorNumber::MemberNotFound, "对象不支持该属性或方法", "物件不支援此屬性或方法"},
    {ErrorNumber::PrinterError, "打印机错误", "印表機錯誤"},
    {ErrorNumber::ClipboardInUse, "其它程序正在使用剪贴板", "其他程式正在使用剪貼簿"},
    {ErrorNumber::KeyNotFound, "未找到该键的元素", "找不到該索引鍵的元素"},
    {ErrorNumber::KeyNotUnique, "集合中的键不唯一", "集合中的索引鍵不唯一"},
    {ErrorNumber::NoCurrentRecord, "没有当前记录", "沒有目前的記錄"},
    {ErrorNumber::ObjectClosed, "对象已关闭，不允许操作", "物件已關閉，不允許此操作"},
    {ErrorNumber::DatabaseStatement, "数据库语句有错误", "資料庫陳述式有錯誤"},
    {ErrorNumber::DatabaseTable, "数据库中没有该表", "資料庫中沒有該資料表"},
    {ErrorNumber::DatabaseColumn, "数据库中没有该字段", "資料庫中沒有該欄位"},
    {ErrorNumber::DatabaseFailure, "数据库错误", "資料庫錯誤"},
});

constexpr std::int16_t kTraditional = 1;

}  // namespace

std::string ErrorText(ErrorNumber number, std::int16_t language) {
    const auto entry = std::find_if(kTexts.begin(), kTexts.end(),
                                    [&](const Entry& e) { return e.number == number; });
    const bool traditional = language == kTraditional;
    if (entry != kTexts.end()) {
        return std::string(traditional ? entry->traditional : entry->simplified);
    }
    return (traditional ? "錯誤 " : "错误 ") + std::to_string(static_cast<std::int32_t>(number));
}

std::string DescribeError(const RuntimeError& error, std::int16_t language) {
    return error.Text().empty() ? ErrorText(error.Number(), language) : error.Text();
}

}  // namespace zv::resources
