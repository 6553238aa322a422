#pragma once

/// While one of these is there, the n-th allocation by operator new from its making on fails, and
/// only that one. Allocations are counted from 0.
class FailingAllocation {
public:
    explicit FailingAllocation(long n);
    ~FailingAllocation();

    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether it came to that allocation.
    static bool hasFailed();
};
