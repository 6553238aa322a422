#include "Instructions.h"

#include <linux/perf_event.h>
#include <sys/syscall.h>
#include <unistd.h>

Instructions::Instructions() {
    perf_event_attr attributes{};
    attributes.type = PERF_TYPE_HARDWARE;
    attributes.size = sizeof attributes;
    attributes.config = PERF_COUNT_HW_INSTRUCTIONS;
    attributes.exclude_kernel = 1;
    attributes.exclude_hv = 1;
    // This thread, on whatever processor, in no group
    file_ = static_cast<int>(syscall(SYS_perf_event_open, &attributes, 0, -1, -1, 0));
}

Instructions::~Instructions() {
    if (file_ >= 0)
        close(file_);
}

std::optional<long long> Instructions::count() const {
    long long count = 0;
    if (file_ < 0 || read(file_, &count, sizeof count) != sizeof count)
        return std::nullopt;
    return count;
}
