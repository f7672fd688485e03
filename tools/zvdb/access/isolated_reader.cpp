#include "zvdb/access/isolated_reader.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include "zvdb/import/table_source.h"

namespace zv::zvdb::access {
namespace {

constexpr std::uint64_t kFailed = 2;
constexpr std::uint64_t kEnded = 3;
// Longer than the slowest disk needs for the next few rows.
constexpr int kSilenceSeconds = 30;
constexpr rlim_t kMemory = rlim_t{2} << 30;

void Limit() {
    const int nowhere = open("/dev/null", O_WRONLY);
    // The library writes to both of them.
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    // The keyboard's break is for the parent, which then ends this process.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
    const rlimit noDump{0, 0};
    setrlimit(RLIMIT_CORE, &noDump);
#ifndef __SANITIZE_ADDRESS__  // the sanitizer reserves more than any limit
    const rlimit memory{kMemory, kMemory};
    setrlimit(RLIMIT_AS, &memory);
#endif
}

[[noreturn]] void RunChild(int pipe, const std::function<void(StreamWriter&)>& work) {
    Limit();
    try {
        StreamWriter out(pipe);
        try {
            work(out);
            out.Put(kEnded);
        } catch (const std::exception& error) {
            out.Put(kFailed);
            out.Put(std::string_view(error.what()));
        }
        out.Flush();
    } catch (...) {
        _exit(1);
    }
    _exit(0);
}

}  // namespace

IsolatedReader::IsolatedReader(const std::function<void(StreamWriter&)>& work) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw SourceError("no pipe can be made");
    child_ = fork();
    if (child_ == 0) {
        close(ends[0]);
        RunChild(ends[1], work);
    }
    close(ends[1]);
    pipe_ = ends[0];
    if (child_ < 0) {
        close(pipe_);
        throw SourceError(std::string("no process can be made: ") + std::strerror(errno));
    }
    stream_.emplace(pipe_, kSilenceSeconds);
}

void IsolatedReader::End() {
    if (child_ < 0) return;
    kill(child_, SIGKILL);
    while (waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
    }
    child_ = -1;
    close(pipe_);
}

IsolatedReader::~IsolatedReader() {
    End();
}

bool IsolatedReader::Next() {
    switch (Number()) {
        case kMessage:
            return true;
        case kFailed:
            throw SourceError(Text());
        default:
            return false;
    }
}

void IsolatedReader::Fail(bool silent) {
    if (silent) {
        End();
        throw SourceError("the file is damaged: reading it does not come to an end");
    }
    // The pipe is closed, so the child is at its end.
    int status = 0;
    pid_t waited = 0;
    do {
        waited = waitpid(child_, &status, 0);
    } while (waited < 0 && errno == EINTR);
    child_ = -1;
    close(pipe_);
    throw SourceError("the file is damaged: reading it failed" +
                      (WIFSIGNALED(status) ? std::string(" (") + strsignal(WTERMSIG(status)) + ")"
                                           : std::string()));
}

}  // namespace zv::zvdb::access
