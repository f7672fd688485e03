// The file that the control lives in, and what keeps it loaded.
#pragma once

#include <windows.h>

#include <string>

namespace zv::com::module {

/// Told once by DllMain.
void SetHandle(HINSTANCE handle);
HINSTANCE Handle();
/// Full path of the file.
std::wstring Path();

/// Objects handed out, and the locks of a class factory.
void Lock();
void Unlock();
bool IsLocked();

/// Keeps the file loaded as long as it lives.
class Reference {
 public:
    Reference() { Lock(); }
    ~Reference() { Unlock(); }
    Reference(const Reference&) : Reference() {}
    Reference& operator=(const Reference&) = delete;
};

}  // namespace zv::com::module
