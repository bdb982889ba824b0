#pragma once
// A console reporter that ends the run with every benchmark's time as a multiple of a baseline measured
// in the same run: the figures that matter, free of how fast the machine happens to be.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>

class RatioReporter : public benchmark::ConsoleReporter {
public:
    // `baseline` is the function name of the baseline benchmark, `against` what it measures.
    RatioReporter(std::string baseline, std::string against)
        : baseline_(std::move(baseline)), against_(std::move(against)) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                times_[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        const auto base = times_.find(baseline_);
        if (base == times_.end() || base->second <= 0) {
            return;
        }
        std::printf("\nTime against %s (%.3f ms):\n", against_.c_str(), base->second);
        for (const auto& [name, time] : times_) {
            std::printf("  %-12s %8.3f ms  %6.1f x\n", name.c_str(), time, time / base->second);
        }
    }

private:
    std::string baseline_;
    std::string against_;
    std::map<std::string, double> times_;
};
