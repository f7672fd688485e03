#include "resources/error_texts.h"

#include <algorithm>
#include <array>

#include "base/text.h"
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
    {ErrorNumber::UserInterrupt, "操作被中断", "操作被中斷"},
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
    {ErrorNumber::DatabaseConflict, "记录已被其他用户更改", "記錄已被其他使用者更改"},
    {ErrorNumber::FileAlreadyExists, "文件已存在", "檔案已存在"},
    {ErrorNumber::DatabaseFailure, "数据库错误", "資料庫錯誤"},
});

struct KindEntry {
    ErrorKind kind;
    std::string_view simplified;
    std::string_view traditional;
};

constexpr auto kKinds = std::to_array<KindEntry>({
    {ErrorKind::Busy, "数据库正被其他程序锁定，请稍后再试。",
     "資料庫正被其他程式鎖定，請稍後再試。"},
    {ErrorKind::DiskFull, "磁盘已满，数据没有保存。", "磁碟已滿，資料沒有儲存。"},
    {ErrorKind::OutOfMemory, "内存不足，操作没有完成。", "記憶體不足，操作沒有完成。"},
    {ErrorKind::ReadOnly, "数据库是只读的，不能写入。", "資料庫是唯讀的，不能寫入。"},
    {ErrorKind::CannotOpen, "数据库文件不能打开。", "資料庫檔案不能開啟。"},
    {ErrorKind::FileMissing, "数据库文件不存在。", "資料庫檔案不存在。"},
    {ErrorKind::NotADatabase, "该文件不是数据库文件。", "該檔案不是資料庫檔案。"},
    {ErrorKind::Damaged, "数据库文件已损坏。", "資料庫檔案已損壞。"},
    {ErrorKind::InputOutput, "读写数据库文件时出错，请检查磁盘或网络。",
     "讀寫資料庫檔案時出錯，請檢查磁碟或網路。"},
    {ErrorKind::Duplicate, "数据库中已有相同的值，没有保存。", "資料庫中已有相同的值，沒有儲存。"},
    {ErrorKind::RuleBroken, "数据不符合数据库的规则，没有保存。",
     "資料不符合資料庫的規則，沒有儲存。"},
    {ErrorKind::TooLarge, "数据太长，没有保存。", "資料太長，沒有儲存。"},
    {ErrorKind::WrongValue, "值的类型不正确。", "值的型態不正確。"},
    {ErrorKind::Changed, "记录已被其他用户更改或删除，没有保存。",
     "記錄已被其他使用者更改或刪除，沒有儲存。"},
    {ErrorKind::NoTable, "数据库中没有该表。", "資料庫中沒有該資料表。"},
    {ErrorKind::NoColumn, "数据库中没有该字段。", "資料庫中沒有該欄位。"},
    {ErrorKind::BadStatement, "数据库语句有错误。", "資料庫陳述式有錯誤。"},
    {ErrorKind::Refused, "数据库语句不被接受。", "資料庫陳述式不被接受。"},
    {ErrorKind::NoPermission, "没有该数据库操作的权限。", "沒有該資料庫操作的權限。"},
    {ErrorKind::LoginRefused, "数据库服务器拒绝登录，请检查登录名和密码。",
     "資料庫伺服器拒絕登入，請檢查登入名稱和密碼。"},
    {ErrorKind::ServerUnknown, "连接不上数据库服务器，请检查服务器和网络。",
     "連接不上資料庫伺服器，請檢查伺服器和網路。"},
    {ErrorKind::ConnectionLost, "与数据库服务器的连接已断开，请再试一次。",
     "與資料庫伺服器的連線已中斷，請再試一次。"},
    {ErrorKind::TimeLimit, "数据库服务器没有在规定时间内应答，请再试一次。",
     "資料庫伺服器沒有在規定時間內回應，請再試一次。"},
    {ErrorKind::DatabaseUnknown, "服务器上没有该数据库。", "伺服器上沒有該資料庫。"},
    {ErrorKind::TooManyConnections, "数据库服务器的连接已满，请稍后再试。",
     "資料庫伺服器的連線已滿，請稍後再試。"},
    {ErrorKind::DriverMissing, "没有安装连接数据库所需的驱动程序。",
     "沒有安裝連接資料庫所需的驅動程式。"},
    {ErrorKind::WriteAheadOnShare,
     "数据库文件处于预写日志模式，在网络共享上使用会损坏文件。请关闭所有程序，再运行命令 zvdb mode "
     "文件名 rollback 转换该文件。",
     "資料庫檔案處於預寫記錄模式，在網路共用上使用會損壞檔案。請關閉所有程式，再執行命令 zvdb mode "
     "檔名 rollback 轉換該檔案。"},
    {ErrorKind::RowsReadOnly, "这些记录只能读取，不能写入。", "這些記錄只能讀取，不能寫入。"},
});

constexpr std::int16_t kTraditional = 1;

/// A component that speaks the user's language needs no sentence in front of its own.
bool HoldsChinese(std::string_view words) {
    for (std::size_t at = 0; at < words.size();) {
        const char32_t c = text::NextCodePoint(words, at);
        if (c >= 0x4E00 && c <= 0x9FFF) return true;
    }
    return false;
}

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

std::string_view ErrorKindText(ErrorKind kind, std::int16_t language) {
    const auto entry = std::find_if(kKinds.begin(), kKinds.end(),
                                    [&](const KindEntry& e) { return e.kind == kind; });
    if (entry == kKinds.end()) return {};
    return language == kTraditional ? entry->traditional : entry->simplified;
}

std::string DescribeError(const RuntimeError& error, std::int16_t language) {
    const std::string& words = error.Text();
    const bool ready =
        error.Kind() == ErrorKind::Own || (error.Kind() == ErrorKind::Other && HoldsChinese(words));
    if (ready && !words.empty()) return words;
    std::string text(ErrorKindText(error.Kind(), language));
    if (text.empty()) text = ErrorText(error.Number(), language);
    return words.empty() ? text : text + " (" + words + ")";
}

}  // namespace zv::resources
