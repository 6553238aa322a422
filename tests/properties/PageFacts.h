#pragma once

#include "foundation/String.h"

#include <map>
#include <set>
#include <string>
#include <vector>

/// What a document says of its pages, as a tree of it has it.
struct PageFacts {
    explicit PageFacts(const Core::String& text);

    using Counts = std::map<std::string, int>;

    std::vector<std::string> masters;      ///< names of simple and complex ones
    std::map<std::string, Counts> regions; ///< of each simple one, by type
    std::set<std::string> dangling;        ///< references to masters that do not exist
    std::vector<std::string> sequences;    ///< elements that make pages, by their names
    std::vector<Counts> flowNames;         ///< of each, those of its static contents
    std::vector<std::string> statics;      ///< the static contents themselves
    std::vector<std::string> flows;        ///< what the flows hold
    int options = 0;                       ///< printing options
    bool optionsAreFirst = true;           ///< in what they belong to
    bool hasStrayText = false;             ///< where only elements belong
    std::string tree;                      ///< all of it, without layout
};
