// The one session of the loaded library, over the ports of Windows.
#pragma once

#include "com/event_source.h"
#include "com/host_components.h"
#include "forms/win32/win32_backend.h"
#include "forms/window_system.h"
#include "platform/win32/host_module_runner.h"
#include "platform/win32/host_report_printer.h"
#include "platform/win32/machine.h"
#include "resources/win32/registry_settings.h"
#include "session/session.h"
#include "store/ado/ado_opener.h"

namespace zv::com {

/// Everything runs on one thread, that of the first control; a library that nothing uses any more
/// serves the next thread that asks.
class SessionHost {
 public:
    /// The session, made when there is none. Throws RPC_E_WRONG_THREAD, as an error number, on a
    /// thread other than the session's.
    static SessionHost& Acquire();
    /// The language that errors are described in; works without a session too.
    static std::int16_t Language() noexcept;
    /// What the host reads of an error; works without a session too.
    static std::string Describe(const RuntimeError& error);
    /// False while a window exists, and on another thread than the session's while that thread
    /// lives and a control exists. A thread that ended has taken its windows with it.
    static bool IsIdle() noexcept;
    /// Ends the session: closes the connection and gives back what belongs to the thread. The
    /// property values stay until the library is unloaded. Only while IsIdle(). What belonged to a
    /// thread that ended without giving it back is given up, because only that thread could.
    static void Close() noexcept;
    /// Without a control nobody could end reminding any more: it ends with the last one.
    static void EndReminders() noexcept;
    /// Closes the shared connection and lets the report component go when no control and no window
    /// needs them.
    static void ReleaseConnection() noexcept;

    SessionHost(const SessionHost&) = delete;
    SessionHost& operator=(const SessionHost&) = delete;

    Session& Get() { return session_; }
    EventSource& Events() { return events_; }
    /// The control of these listeners goes; works without a session too.
    static void ForgetListener(ConnectionPoints& control) noexcept;
    /// True once the properties were initialised or read since the library was loaded.
    static bool& HasValues() noexcept;

 private:
    SessionHost();
    ~SessionHost();
    bool IsOfThisThread() const { return thread_ == GetCurrentThreadId(); }
    bool ThreadHasEnded() const;
    /// Where memory is short the values as they were kept last stay.
    void KeepValues() noexcept;

    DWORD thread_ = GetCurrentThreadId();
    /// Numbers of threads are used again, so that a thread of the same number may be another one.
    HANDLE threadHandle_ = nullptr;
    forms::win32::Win32Backend backend_;
    platform::win32::HostModuleRunner ownRunner_;
    HostModules runner_{backend_.Dpi(), ownRunner_};
    platform::win32::HostReportPrinter ownPrinter_;
    HostReports printer_{backend_.Dpi(), ownPrinter_};
    platform::win32::SystemMachine machine_{runner_, printer_};
    resources::win32::RegistrySettings settings_;
    store::ado::AdoOpener ownOpener_;
    HostOpener opener_{backend_.Dpi(), ownOpener_};
    forms::WindowSystem windows_{backend_};
    EventSource events_{backend_.Dpi()};
    Session session_{machine_.machine, settings_, opener_, windows_};
};

}  // namespace zv::com
