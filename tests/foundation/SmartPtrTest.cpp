#include "foundation/SmartPtr.h"

#include "foundation/Object.h"

#include <gtest/gtest.h>

namespace {

/// Counts how many of its kind are alive.
struct Counted : Core::Object {
    Counted() { ++alive; }
    Counted(const Counted& other) : Core::Object(other) { ++alive; }
    ~Counted() override { --alive; }
    Counted& operator=(const Counted&) = default;

    SmartPtr<Counted> next;
    inline static int alive = 0;
};

struct Kept : Core::Object {
    void OnFinalRelease() override { ++finalReleases; }
    int finalReleases = 0;
};

} // namespace

TEST(SmartPtr, LastOneTakesTheObjectAlong) {
    SmartPtr<Counted> first = new Counted;
    {
        const SmartPtr<Core::Object> asBase = first;
        SmartPtr<Counted> again = first.get();
        first = again;
        first = *&first;
        const SmartPtr<Counted> moved = std::move(again);
        EXPECT_TRUE(again == nullptr && moved == first);    // NOLINT(bugprone-use-after-move)
        const SmartPtr<Counted> copy = new Counted(*first); // with owners of its own
        *copy = *first;
        first = nullptr;
        EXPECT_EQ(Counted::alive, 2);
    }
    EXPECT_EQ(Counted::alive, 0);
    first = new Counted;
    first->next = new Counted;
    first = first->next; // which only the old object holds
    EXPECT_EQ(Counted::alive, 1);
}

TEST(SmartPtr, ClassDecidesWhatTheFinalReleaseDoes) {
    Kept kept;
    for (int i = 0; i < 2; ++i)
        const SmartPtr<Kept> pointer = &kept;
    EXPECT_EQ(kept.finalReleases, 2);
}

TEST(SmartPtr, DereferencingNullThrowsAndLogsTheCodeLocation) {
    const SmartPtr<Counted> null;
    testing::internal::CaptureStderr();
    EXPECT_THROW(null->AddRef(), Core::NullPointerException);
    EXPECT_THROW(static_cast<void>(*null), Core::Exception);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("SmartPtr.h:"), std::string::npos);
}
