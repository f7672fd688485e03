// The file that a component lives in, and what keeps it loaded.
#pragma once

#include <windows.h>

#include <string>

namespace zv::automation::module {

/// The file that this code was linked into, whichever program loaded it.
HINSTANCE Handle();
/// Full path of that file.
std::wstring Path();
/// Full path of a loaded file; null: of the program.
std::wstring PathOf(HMODULE file);

/// Objects handed out, and the locks of class factories.
void Lock();
void Unlock();
long Locks();
bool IsLocked();

/// Keeps the file loaded as long as it lives.
class Reference {
 public:
    Reference() { Lock(); }
    ~Reference() { Unlock(); }
    Reference(const Reference&) : Reference() {}
    Reference& operator=(const Reference&) = delete;
};

}  // namespace zv::automation::module
