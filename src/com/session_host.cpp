#include "com/session_host.h"

#include <new>
#include <utility>

#include "automation/module.h"
#include "control/zv_task.h"
#include "resources/error_texts.h"

namespace zv::com {

namespace {

// Both are freed by nobody: the loader runs destructors under its lock, where nothing may be freed
// that a window, a hook or a database still knows. Close() ends the session before that; the values
// of the properties (some hundred bytes) stay for the next session of the loaded library.
SessionHost* g_host = nullptr;
ControlState* g_values = nullptr;
bool g_hasValues = false;

}  // namespace

SessionHost::SessionHost() : backend_(automation::module::Handle()) {
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &threadHandle_,
                    SYNCHRONIZE, FALSE, 0);
    if (g_values) session_.state = std::move(*g_values);
    session_.listener = &events_;
}

SessionHost::~SessionHost() {
    KeepValues();
    CloseHandle(threadHandle_);
}

void SessionHost::KeepValues() noexcept {
    try {
        ControlState kept = session_.state;
        if (!g_values) g_values = new ControlState();
        *g_values = std::move(kept);
    } catch (const std::bad_alloc&) {
    }
}

bool SessionHost::ThreadHasEnded() const {
    return WaitForSingleObject(threadHandle_, 0) == WAIT_OBJECT_0;
}

SessionHost& SessionHost::Acquire() {
    if (g_host && (g_host->ThreadHasEnded() || !g_host->IsOfThisThread()) && IsIdle()) Close();
    if (!g_host) g_host = new SessionHost();
    if (!g_host->IsOfThisThread()) {
        throw RuntimeError(static_cast<ErrorNumber>(RPC_E_WRONG_THREAD),
                           "zvTask serves one thread of a process");
    }
    return *g_host;
}

std::int16_t SessionHost::Language() noexcept {
    return g_host ? g_host->session_.state.Language : std::int16_t{0};
}

std::string SessionHost::Describe(const RuntimeError& error) {
    return g_host ? g_host->session_.Describe(error) : resources::DescribeError(error, Language());
}

bool SessionHost::IsIdle() noexcept {
    if (!g_host) return true;
    if (g_host->ThreadHasEnded()) return true;
    // Without a control and a window nothing is under way there, and the connection is closed.
    if (!g_host->IsOfThisThread() && automation::module::IsLocked()) return false;
    if (forms::win32::Win32Backend::OpenWindows() != 0) return false;
    return g_host->windows_.IsEmpty();
}

void SessionHost::Close() noexcept {
    SessionHost* const host = std::exchange(g_host, nullptr);
    if (!host) return;
    const bool used = !host->windows_.IsEmpty() || host->session_.database.HasConnection();
    if (used && host->ThreadHasEnded()) {
        host->KeepValues();
        host->backend_.Abandon();
        return;
    }
    delete host;
}

void SessionHost::EndReminders() noexcept {
    if (!g_host || automation::module::IsLocked() || !g_host->IsOfThisThread()) return;
    ZvTask task(g_host->session_);
    try {
        if (task.Reminding()) task.StopReminders();
    } catch (const std::exception&) {
        // The window stays and keeps the library loaded, as any other window would.
    }
}

void SessionHost::ReleaseConnection() noexcept {
    EndReminders();
    if (!g_host || automation::module::IsLocked() || !IsIdle()) return;
    g_host->printer_.Release();
    try {
        g_host->session_.database.Leave();
    } catch (const std::exception&) {
        // A connection that cannot be closed is dropped all the same.
    }
}

void SessionHost::ForgetListener(ConnectionPoints& control) noexcept {
    if (g_host) g_host->events_.Remove(control);
}

bool& SessionHost::HasValues() noexcept {
    return g_hasValues;
}

}  // namespace zv::com
