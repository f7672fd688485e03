// A block of memory inside another process, for messages whose structures a control reads there.
#pragma once

#include <windows.h>

#include <stdexcept>

namespace zv::outside {

class RemoteMemory {
 public:
    RemoteMemory(HWND window, std::size_t bytes) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        process_ =
            OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
        if (process_) {
            block_ =
                VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
        }
        if (!block_) throw std::runtime_error("no memory in the other process");
    }
    ~RemoteMemory() {
        if (block_) VirtualFreeEx(process_, block_, 0, MEM_RELEASE);
        if (process_) CloseHandle(process_);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    char* Address(std::size_t offset = 0) const { return static_cast<char*>(block_) + offset; }

    template <typename T>
    void Write(const T& value, std::size_t offset = 0) {
        if (!WriteProcessMemory(process_, Address(offset), &value, sizeof value, nullptr)) Fail();
    }
    template <typename T>
    T Read(std::size_t offset = 0) const {
        T value{};
        ReadBytes(&value, sizeof value, offset);
        return value;
    }
    void ReadBytes(void* target, std::size_t bytes, std::size_t offset) const {
        if (!ReadProcessMemory(process_, Address(offset), target, bytes, nullptr)) Fail();
    }

 private:
    [[noreturn]] static void Fail() {
        throw std::runtime_error("the other process's memory cannot be reached");
    }

    HANDLE process_ = nullptr;
    void* block_ = nullptr;
};

}  // namespace zv::outside
