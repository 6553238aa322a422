#pragma once

/// How often markup is not what it is taken for.
struct MarkupFaults {
    int ends = 0; ///< where it is not as XML has it, or would be read otherwise from its end
    int tags = 0; ///< where a check that takes each markup for a tag would see it end elsewhere

    MarkupFaults& operator+=(const MarkupFaults& more) {
        ends += more.ends;
        tags += more.tags;
        return *this;
    }
    bool any() const { return ends > 0 || tags > 0; }

    friend bool operator==(const MarkupFaults&, const MarkupFaults&) = default;
};
