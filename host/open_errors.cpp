#include "open_errors.h"

#include <windows.h>

#include "base/win32/com_error.h"
#include "store/connection_text.h"

namespace zv::host {

RuntimeError CannotOpen(ErrorNumber number, std::string_view path, std::string_view reason,
                        ErrorKind kind) {
    std::string text = "Cannot open the database \"";
    text.append(store::ConnectionText(std::string(path)).ForMessage())
        .append("\": ")
        .append(reason);
    return RuntimeError(number, std::move(text)).Of(kind);
}

RuntimeError CannotOpenFile(std::string_view path, unsigned long systemError) {
    const bool missing = systemError == ERROR_FILE_NOT_FOUND || systemError == ERROR_PATH_NOT_FOUND;
    if (missing)
        return CannotOpen(ErrorNumber::FileNotFound, path, "The file does not exist.",
                          ErrorKind::FileMissing);
    const bool inUse =
        systemError == ERROR_SHARING_VIOLATION || systemError == ERROR_LOCK_VIOLATION;
    return CannotOpen(ErrorNumber::PathFileAccess, path,
                      win32::SystemMessage(HRESULT_FROM_WIN32(systemError)),
                      inUse ? ErrorKind::Busy : ErrorKind::CannotOpen);
}

}  // namespace zv::host
