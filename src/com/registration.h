// What the control writes to the registry, for the whole machine or for one user.
#pragma once

#include <windows.h>

namespace zv::com {

enum class Scope { Machine, User };

/// Writes everything below the scope's Software\Classes; after a failure nothing of it is left.
HRESULT Register(Scope scope);
/// Removes what Register writes, and nothing else; succeeds where there is nothing. A library of
/// the other word size keeps its own entries.
HRESULT Unregister(Scope scope);

/// For the machine, or without the right to do that for the user.
HRESULT RegisterAnywhere();
/// Both scopes; fails when entries of the machine are left because the user may not remove them.
HRESULT UnregisterEverywhere();

}  // namespace zv::com
