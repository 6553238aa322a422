// A step of the history is carried out at once as it would be record by record.

#include "document/history/StepReplay.h"
#include "document/FreezeNotifications.h"
#include "document/history/Replay.h"
#include "properties/RandomCommands.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

int below(Random& random, int limit) {
    return static_cast<int>(random.below(static_cast<std::size_t>(limit)));
}

/// Changes and carets within a text of so many units from `start` on.
std::vector<EditAction> randomStep(Random& random, int start, int length) {
    const auto anywhere = [&] { return start + below(random, length); };
    std::vector<EditAction> step;
    for (int i = below(random, 12); i > 0; --i) {
        const int count = 1 + below(random, length / 2);
        if (random.oneIn(3)) {
            step.emplace_back(EditAction::EditCaret, -1, anywhere(), anywhere(), L"");
        } else if (random.oneIn(2)) {
            step.emplace_back(EditAction::EditInsert, anywhere(), -1, -1, L"inserted");
            length += 8;
        } else {
            step.emplace_back(EditAction::EditDelete, start + below(random, length - count), -1, -1,
                              Core::String(std::wstring(static_cast<std::size_t>(count), L'x')));
            length -= count;
        }
    }
    step.emplace_back(EditAction::EditCaret, -1, anywhere(), anywhere(), L"");
    return step;
}

} // namespace

TEST(StepReplay, DoesWhatItsRecordsDoOneByOne) {
    Random random(1);
    for (int i = 0; i < 400; ++i) {
        const wchar_t* start = random.oneIn(2) ? L"<B>one two th^ree four fi|ve six seven</B>"
                                               : L"<B>one two three fo|ur five six seven</B>";
        MarkedDocument atOnce(start);
        MarkedDocument oneByOne(start);
        for (MarkedDocument* document : {&atOnce, &oneByOne})
            document->document().modes.pageMasters = i % 8 == 0;
        const std::vector<EditAction> step = randomStep(random, atOnce.find(L"one"), 33);
        {
            const FreezeNotifications first(atOnce);
            const FreezeNotifications second(oneByOne);
            StepReplay::replay(atOnce, step);
            for (const EditAction& action : step)
                History::replay(oneByOne, action);
        }
        ASSERT_EQ(withMarks(stateOf(atOnce.face())), withMarks(stateOf(oneByOne.face()))) << i;
        ASSERT_EQ(atOnce.heard(), oneByOne.heard()) << i;
    }
}
