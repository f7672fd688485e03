// zvdb as a process of its own, which something outside may end.
#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "scratch.h"

namespace zv::zvdb {

class ZvdbProcess : public Scratch {
 protected:
    /// Starts the program itself; what it says to stderr goes to the file "said".
    pid_t Start(
        const std::vector<std::string>& arguments, const std::function<void()>& before = [] {}) {
        const std::string said = Path("said");
        const pid_t child = fork();
        if (child != 0) return child;
        // The user that it runs as may lack the way to the program.
        const int program = open(ZV_ZVDB, O_RDONLY);
        before();
        const int file = open(said.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, STDERR_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        std::vector<char*> values{const_cast<char*>("zvdb")};
        for (const std::string& argument : arguments) {
            values.push_back(const_cast<char*>(argument.c_str()));
        }
        values.push_back(nullptr);
        fexecve(program, values.data(), environ);
        _exit(99);
    }
    static int StatusOf(pid_t child) {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    }
    /// A process has a transaction open that writes: the lock that the engine has for it is taken.
    bool IsBeingWritten(const std::string& name) const {
        const int file = open(Path(name + "-shm").c_str(), O_RDWR);
        if (file < 0) return false;
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = 120;
        lock.l_len = 1;
        const bool taken = fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
        close(file);
        return taken;
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(File(name)); }
};

}  // namespace zv::zvdb
