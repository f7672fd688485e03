#include "zvdb/import/interruption.h"

#include <csignal>
#include <vector>

namespace zv::zvdb {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Remember(int) {
    interrupted = 1;
}

struct Caught {
    int signal;
    void (*handler)(int);
};

const std::vector<Caught>& AllCaught() {
    static const std::vector<Caught> kCaught = {
        {SIGINT, Remember},
        {SIGTERM, Remember},
#ifdef SIGHUP
        {SIGHUP, Remember},
#endif
#ifdef SIGXFSZ
        {SIGXFSZ, SIG_IGN},
#endif
    };
    return kCaught;
}

}  // namespace

InterruptionGuard::InterruptionGuard() {
    interrupted = 0;
    for (std::size_t i = 0; i < AllCaught().size(); ++i) {
        before_[i] = std::signal(AllCaught()[i].signal, AllCaught()[i].handler);
        // The program that started this one may have made it deaf to a signal.
        if (before_[i] == SIG_IGN) std::signal(AllCaught()[i].signal, SIG_IGN);
    }
}

InterruptionGuard::~InterruptionGuard() {
    for (std::size_t i = 0; i < AllCaught().size(); ++i) {
        std::signal(AllCaught()[i].signal, before_[i]);
    }
}

bool IsInterrupted() {
    return interrupted != 0;
}

void StopIfInterrupted() {
    if (IsInterrupted()) throw Interrupted();
}

}  // namespace zv::zvdb
