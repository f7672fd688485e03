// How far a long run has come: a bar on a terminal, an occasional line elsewhere, nothing at all
// for a run that is over at once.
#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace zv::zvdb {

class Progress {
 public:
    /// `out` null: silent. `pause` is the least time between two reports.
    Progress(std::ostream* out, bool terminal)
        : Progress(out, terminal, terminal ? kTerminalPause : kPlainPause) {}
    Progress(std::ostream* out, bool terminal, std::chrono::milliseconds pause)
        : out_(out), terminal_(terminal), pause_(pause) {}
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { Finish(); }

    void Begin(std::string what, int total);
    /// Cheap enough to be called for every row.
    void Advance() {
        if ((++done_ & 0x3FF) == 0 && out_ != nullptr) Look();
    }
    /// For steps that take long each.
    void AdvanceSlowly() {
        ++done_;
        if (out_ != nullptr) Look();
    }
    /// Ends the present stretch: completes a bar that was begun.
    void Finish();

 private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kTerminalPause{200};
    static constexpr std::chrono::milliseconds kPlainPause{5000};
    void Look();
    void Draw(int done);

    std::ostream* out_;
    bool terminal_;
    std::chrono::milliseconds pause_;
    std::string what_;
    int total_ = 0;
    int done_ = 0;
    bool drawn_ = false;
    Clock::time_point last_;
};

}  // namespace zv::zvdb
