#include <windows.h>

#include "platform/win32/machine.h"

namespace zv::platform::win32 {

DateTime SystemClock::Now() const {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return DateTime(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
}

}  // namespace zv::platform::win32
