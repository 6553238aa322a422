#pragma once

#include "foundation/String.h"

#include <string>
#include <vector>

/// Where a caret can stand.
struct Place {
    int inXml;
    int inText;
};

/// A generated document, as markup and as a reader sees it: a line for each block. Bold words are
/// not bold there, which does not make it slower.
struct PeerDocument {
    explicit PeerDocument(long long bytes);

    Core::String xml;
    std::wstring text;
    std::vector<Place> places; // within a word, in many a paragraph
};
