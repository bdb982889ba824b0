#pragma once
// The CPU time of the whole process, all its threads, for benchmarks on a shared machine: time spent
// waiting for a core while other programs run is not counted against what is measured, and work that a
// library hands to threads of its own is.

#include <time.h>

inline double CpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}
