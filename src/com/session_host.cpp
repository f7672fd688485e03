#include "com/session_host.h"

#include <utility>

#include "com/module.h"

namespace zv::com {

namespace {

// Both are freed by nobody: the loader runs destructors under its lock, where nothing may be freed
// that a window, a hook or a database still knows. Close() ends the session before that; the values
// of the properties (some hundred bytes) stay for the next session of the loaded library.
SessionHost* g_host = nullptr;
ControlState* g_values = nullptr;
bool g_hasValues = false;

}  // namespace

SessionHost::SessionHost() : backend_(module::Handle()) {
    if (g_values) session_.state = std::move(*g_values);
}

SessionHost::~SessionHost() {
    if (!g_values) g_values = new ControlState();
    *g_values = std::move(session_.state);
}

SessionHost& SessionHost::Acquire() {
    if (g_host && g_host->thread_ != GetCurrentThreadId() && !module::IsLocked() && IsIdle()) {
        Close();
    }
    if (!g_host) g_host = new SessionHost();
    if (g_host->thread_ != GetCurrentThreadId()) {
        throw RuntimeError(static_cast<ErrorNumber>(RPC_E_WRONG_THREAD),
                           "zvTask serves one thread of a process");
    }
    return *g_host;
}

std::int16_t SessionHost::Language() noexcept {
    return g_host ? g_host->session_.state.Language : std::int16_t{0};
}

std::string SessionHost::Describe(const RuntimeError& error) {
    return g_host ? g_host->session_.Describe(error)
                  : resources::DescribeError(error, Language());
}

bool SessionHost::IsIdle() noexcept {
    if (!g_host) return true;
    if (g_host->thread_ != GetCurrentThreadId()) return false;
    return g_host->windows_.Windows().empty() && forms::win32::Win32Backend::OpenWindows() == 0;
}

void SessionHost::Close() noexcept {
    delete std::exchange(g_host, nullptr);
}

void SessionHost::ReleaseConnection() noexcept {
    if (!g_host || module::IsLocked() || !IsIdle()) return;
    g_host->printer_.Release();
    try {
        g_host->session_.database.Leave();
    } catch (const std::exception&) {
        // A connection that cannot be closed is dropped all the same.
    }
}

bool& SessionHost::HasValues() noexcept {
    return g_hasValues;
}

}  // namespace zv::com
