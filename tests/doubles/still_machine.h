// A machine on which nothing moves: one moment, a double-byte code page, no programs, no files.
// Unlike the scripted machine it keeps nothing and takes no time, so that it can stand beneath a
// measurement.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/machine.h"

namespace zv::doubles {

class StillMachine : public platform::Clock,
                     public platform::AnsiCodePage,
                     public platform::Shell,
                     public platform::FileSystem,
                     public platform::ModuleRunner,
                     public platform::ReportPrinter,
                     public platform::UserVault {
 public:
    explicit StillMachine(DateTime now) : now_(now) {}

    DateTime Now() const override { return now_; }
    int ByteWidth(char32_t codePoint) const override { return codePoint < 0x80 ? 1 : 2; }
    void Open(const std::string&) override {}
    std::string DialerPath() const override { return {}; }
    void Start(const std::string&) override {}
    void SendKeys(const std::string&) override {}
    bool FileExists(const std::string&) const override { return false; }
    std::unique_ptr<platform::OutputFile> Create(const std::string& path) override {
        throw std::runtime_error("a file to write: " + path);
    }
    std::string ApplicationFolder() const override { return "."; }
    void Run(const platform::ModuleStart&) override {}
    void Prepare() override {}
    void Print(const platform::ReportJob&) override {}
    void Release() noexcept override {}
    std::optional<std::string> Seal(std::string_view) override { return std::nullopt; }
    std::optional<std::string> Reveal(std::string_view) override { return std::nullopt; }

    platform::Machine All() { return {*this, *this, *this, *this, *this, *this, *this}; }

 private:
    DateTime now_;
};

}  // namespace zv::doubles
