#include "open_errors.h"

#include <windows.h>

#include "base/win32/com_error.h"
#include "store/connection_text.h"

namespace zv::host {

RuntimeError CannotOpen(ErrorNumber number, std::string_view path, std::string_view reason) {
    std::string text = "Cannot open the database \"";
    text.append(store::ConnectionText(std::string(path)).ForMessage()).append("\": ").append(reason);
    return RuntimeError(number, std::move(text));
}

RuntimeError CannotOpenFile(std::string_view path, unsigned long systemError) {
    const bool missing = systemError == ERROR_FILE_NOT_FOUND || systemError == ERROR_PATH_NOT_FOUND;
    if (missing) return CannotOpen(ErrorNumber::FileNotFound, path, "The file does not exist.");
    return CannotOpen(ErrorNumber::PathFileAccess, path,
                      win32::SystemMessage(HRESULT_FROM_WIN32(systemError)));
}

}  // namespace zv::host
