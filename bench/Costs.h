#pragma once

#include "Allocations.h"

#include <chrono>
#include <vector>

/// What each of many operations took, and the allocations of them all.
struct Costs {
    using Clock = std::chrono::steady_clock;

    std::vector<Clock::duration> times;
    long long allocated = 0;

    template <typename Operation>
    void time(Operation operation) {
        const long long allocatedBefore = allocations();
        const Clock::time_point begun = Clock::now();
        operation();
        const Clock::duration taken = Clock::now() - begun;
        allocated += allocations() - allocatedBefore;
        times.push_back(taken);
    }

    // Of an operation, in microseconds; 0 without any

    double median() const;
    /// Without the slowest 2 %, in which something else had the machine.
    double mean() const;
};
