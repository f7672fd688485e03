#include <cerrno>
#include <fstream>
#include <system_error>

#include "base/errors.h"
#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {
namespace {

ErrorNumber NumberOf(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
            return ErrorNumber::PermissionDenied;
        case ENOSPC:
            return ErrorNumber::DiskFull;
        default:
            return ErrorNumber::PathFileAccess;
    }
}

[[noreturn]] void Refuse(int error, const std::string& path) {
    throw RuntimeError(NumberOf(error), std::generic_category().message(error) + "\r\n" + path);
}

class ScriptedOutputFile final : public OutputFile {
 public:
    ScriptedOutputFile(std::filesystem::path target, std::string path,
                       std::optional<std::size_t>& room)
        : target_(std::move(target)), part_(target_), path_(std::move(path)), room_(room) {
        if (std::filesystem::is_directory(target_)) Refuse(EISDIR, path_);
        part_ += ".zv-part";
        errno = EIO;
        stream_.open(part_, std::ios::binary | std::ios::trunc);
        if (!stream_) Refuse(errno, path_);
    }

    ~ScriptedOutputFile() override {
        stream_.close();
        std::error_code ignored;
        std::filesystem::remove(part_, ignored);
    }

    void Write(std::string_view bytes) override {
        if (room_ && bytes.size() > *room_) Refuse(ENOSPC, path_);
        errno = EIO;
        if (!stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
            Refuse(errno, path_);
        }
        if (room_) *room_ -= bytes.size();
    }

    void Commit() override {
        errno = EIO;
        stream_.close();
        if (!stream_) Refuse(errno, path_);
        std::error_code failure;
        std::filesystem::rename(part_, target_, failure);
        if (failure) Refuse(failure.default_error_condition().value(), path_);
    }

 private:
    std::filesystem::path target_;
    std::filesystem::path part_;
    std::string path_;
    std::optional<std::size_t>& room_;
    std::ofstream stream_;
};

}  // namespace

std::unique_ptr<OutputFile> ScriptedFiles::Create(const std::string& path) {
    return std::make_unique<ScriptedOutputFile>(Resolve(path), path, room);
}

}  // namespace zv::platform::scripted
