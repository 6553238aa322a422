#pragma once

#include "Session.h"
#include "document/DocumentTesting.h"
#include "support/Documents.h"
#include "support/EditorState.h"
#include "support/WellFormed.h"
#include "text/XmlScan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

/// A document that people wrote, on which a command is tried from its stops. With FORME_ALL_STOPS
/// set these are all, and otherwise some of all parts of the text.
class StopsDocument : public TestBuffer {
public:
    using TestBuffer::canHoldCaret;

    explicit StopsDocument(const std::filesystem::path& path) {
        loadDocument(*this, Core::String(path.wstring().c_str()));
    }

    /// Calls `attempt` with each of the stops until it has failed.
    template <typename Attempt>
    void fromEachStop(int stopsWanted, Attempt attempt) const {
        const int distance =
            std::getenv("FORME_ALL_STOPS") ? 0 : getContent().length() / stopsWanted;
        for (int stop = stopBehind(0, 0); stop >= 0 && !testing::Test::HasFailure();
             stop = stopBehind(stop, distance))
            attempt(stop);
    }

    /// How many editable elements hold nothing that a caret could stand on.
    int countEmptied() const {
        int count = 0;
        for (int tag = getNextTagPosition(0); tag >= 0;
             tag = getNextTagPosition(getNextEditablePositionInXml(tag)))
            if (isEditableElementAtPosition(tag) && !selfClosingTagAtPosition(tag) &&
                elementContainsJustWhitespacesOrVoid(tag))
                ++count;
        return count;
    }

private:
    /// The next stop behind a position or at least `distance` units further; -1 if there is none.
    int stopBehind(int position, int distance) const {
        const int from = XmlScan::unitStart(getContent().view(), position + distance);
        return getNextValidCaretPos(std::max(position, from));
    }
};
