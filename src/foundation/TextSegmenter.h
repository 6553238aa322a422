#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"

#include <string_view>

/// What knows where the units of text end in all scripts. A host gives one to a document; the
/// component `forme-unicode` has one that follows Unicode's rules.
class FORME_API TextSegmenter : public Core::Object {
public:
    enum class Unit {
        Cluster, ///< what a reader sees as one character
        Word,    ///< a word, or what stands between two
        Sentence ///< a sentence with the blanks behind it
    };

    ~TextSegmenter() override;

    /// The first boundary behind a valid position of plain text in 16-bit code units, its length at
    /// the latest. The text stands alone: it begins and ends with a boundary.
    virtual int next(Unit unit, std::wstring_view text, int position) const = 0;
    /// The last boundary before a position above 0 that may be the length.
    virtual int previous(Unit unit, std::wstring_view text, int position) const = 0;
};
