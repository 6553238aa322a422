#pragma once

#include "document/Placeholders.h"
#include "document/caret/Stops.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

/// A document that people wrote, on which a command is tried from its stops. With FORME_ALL_STOPS
/// set these are all, and otherwise some of all parts of the text.
struct StopsDocument : MarkedDocument {
    explicit StopsDocument(const std::filesystem::path& path) {
        loadDocument(face(), Core::String(path.wstring().c_str()));
    }

    EditorState state() const { return stateOf(face()); }

    /// Calls `attempt` with each of the stops until it has failed.
    template <typename Attempt>
    void fromEachStop(Attempt attempt, int stopsWanted = 4) const {
        const int distance = std::getenv("FORME_ALL_STOPS") ? 0 : text().length() / stopsWanted;
        for (int stop = Stops::next(*this, 0); stop >= 0 && !testing::Test::HasFailure();
             stop = Stops::next(*this, std::max(stop, text().unitStart(stop + distance)))) {
            SCOPED_TRACE(stop);
            attempt(stop);
        }
    }
};

class EveryDocument : public testing::TestWithParam<std::filesystem::path> {};
