// The machine port answered by Windows.
#pragma once

#include <memory>
#include <string>

#include "platform/machine.h"

namespace zv::platform::win32 {

class SystemClock final : public Clock {
 public:
    DateTime Now() const override;
};

class SystemAnsiCodePage final : public AnsiCodePage {
 public:
    int ByteWidth(char32_t codePoint) const override;
};

class SystemShell final : public Shell {
 public:
    /// Throws error 53 when the shell finds nothing to open, 75 when it may not, 5 otherwise.
    void Open(const std::string& target) override;
    std::string DialerPath() const override;
    /// Starts a program by its full path and waits a moment until it takes keys. Throws error 53.
    void Start(const std::string& program) override;
    /// A carriage return presses Enter, a tab Tab; everything else is typed as it is.
    void SendKeys(const std::string& keys) override;
};

class SystemFiles final : public FileSystem {
 public:
    bool FileExists(const std::string& path) const override;
    std::unique_ptr<OutputFile> Create(const std::string& path) override;
    std::string ApplicationFolder() const override;
};

/// The system's data protection, which holds for the account that is logged in.
class SystemVault final : public UserVault {
 public:
    std::optional<std::string> Seal(std::string_view bytes) override;
    std::optional<std::string> Reveal(std::string_view sealed) override;
};

/// Everything that Machine refers to. Keep it as long as the machine is used.
class SystemMachine {
 public:
    SystemMachine(const SystemMachine&) = delete;
    SystemMachine& operator=(const SystemMachine&) = delete;
    SystemMachine(ModuleRunner& runner, ReportPrinter& printer)
        : machine{clock_, codePage_, shell_, files_, runner, printer, vault_} {}

 private:
    SystemClock clock_;
    SystemAnsiCodePage codePage_;
    SystemShell shell_;
    SystemFiles files_;
    SystemVault vault_;

 public:
    Machine machine;
};

}  // namespace zv::platform::win32
