// Times, medians, and the one form in which every benchmark tells its results.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace zv::bench {

/// With the environment variable ZV_BENCH_CPU set, natively: the processor time that this process
/// used, which says more on a machine that has other work to do. Otherwise the time that passed.
class Stopwatch {
 public:
    double Milliseconds() const {
        if (UsesProcessorTime()) {
            return 1000.0 * static_cast<double>(std::clock() - used_) / CLOCKS_PER_SEC;
        }
        return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
    }

 private:
    using Clock = std::chrono::steady_clock;
    static bool UsesProcessorTime() {
        static const bool uses = std::getenv("ZV_BENCH_CPU") != nullptr;
        return uses;
    }
    Clock::time_point start_ = Clock::now();
    std::clock_t used_ = std::clock();
};

/// Values of one measure, one a run.
class Series {
 public:
    void Add(double value) { values_.push_back(value); }
    int Runs() const { return static_cast<int>(values_.size()); }
    double Median() const {
        std::vector<double> sorted = values_;
        std::sort(sorted.begin(), sorted.end());
        return sorted.empty() ? 0 : sorted[sorted.size() / 2];
    }
    double Least() const {
        return values_.empty() ? 0 : *std::min_element(values_.begin(), values_.end());
    }

 private:
    std::vector<double> values_;
};

/// A line for the table: what was measured, ours, its floor, the unit, the greatest ratio and the
/// greatest value that are the goal (0: no goal), and the runs.
struct Row {
    std::string measure;
    double ours = 0;
    double floor = 0;
    std::string unit = "ms";
    double goalRatio = 0;
    double goalValue = 0;
    int runs = 0;
};

inline void Print(const Row& row) {
    std::printf("%s\t%.4f\t%.4f\t%s\t%.3f\t%.3f\t%d\n", row.measure.c_str(), row.ours, row.floor,
                row.unit.c_str(), row.goalRatio, row.goalValue, row.runs);
    std::fflush(stdout);
}

/// Runs the two in turn, so that whatever disturbs the machine disturbs both; the first round only
/// warms up.
inline void InTurn(int runs, const std::function<double()>& ours, Series& oursSeries,
                   const std::function<double()>& floor, Series& floorSeries) {
    for (int run = 0; run <= runs; ++run) {
        const double a = ours();
        const double b = floor();
        if (run == 0) continue;
        oursSeries.Add(a);
        floorSeries.Add(b);
    }
}

}  // namespace zv::bench
