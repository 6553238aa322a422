#pragma once

/// How many pieces of memory the program has asked for so far. It does so on one thread.
long long allocations() noexcept;
