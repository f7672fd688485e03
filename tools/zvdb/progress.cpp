#include "zvdb/progress.h"

#include <algorithm>
#include <iomanip>
#include <utility>

namespace zv::zvdb {
namespace {

constexpr int kBarWidth = 40;

}  // namespace

void Progress::Begin(std::string what, int total) {
    Finish();
    what_ = std::move(what);
    total_ = total;
    done_ = 0;
    drawn_ = false;
    last_ = Clock::now();
}

void Progress::Look() {
    const auto now = Clock::now();
    if (now - last_ < pause_) return;
    last_ = now;
    Draw(done_);
}

void Progress::Draw(int done) {
    const int percent =
        total_ > 0 ? static_cast<int>(100LL * std::min(done, total_) / total_) : 100;
    if (terminal_) {
        const int filled = percent * kBarWidth / 100;
        const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                                std::string(static_cast<std::size_t>(kBarWidth - filled), '.');
        *out_ << '\r' << std::left << std::setw(10) << what_ << " [" << bar << "] " << std::right
              << std::setw(3) << percent << " %";
    } else {
        *out_ << what_ << ": " << done << " of " << total_ << " (" << percent << " %)\n";
    }
    out_->flush();
    drawn_ = true;
}

void Progress::Finish() {
    if (drawn_ && terminal_) {
        Draw(total_);
        *out_ << '\n';
    }
    drawn_ = false;
}

}  // namespace zv::zvdb
