#pragma once

#include "foundation/Vector.h"
#include "text/NameList.h"
#include "text/XmlScan.h"

#include <array>
#include <cstddef>

/// The element names, with prefix, that belong together for what a reader sees or what a command
/// may do with them. Each list stands here once. A document may hold any other element; it is then
/// one that has no part in the matter.
namespace Vocabulary {

template <std::size_t Count>
using Names = std::array<XmlScan::Text, Count>;

/// The list for the walks of XmlText, which take strings.
template <const auto& List>
const Core::StringArray& strings() {
    static const Core::StringArray names(List.begin(), List.end());
    return names;
}

// Blocks and lines

/// Whose tags begin a line and end one.
inline constexpr Names<6> blockLevel{L"fo:block", L"fo:block-container",   L"fo:list-block",
                                     L"fo:table", L"fo:table-and-caption", L"qf:form"};

/// What holds blocks and shows nothing itself. Unlike those at block level their tags end no line
/// for the white space around them; only what Delete would join to an item stops at them.
inline constexpr Names<3> blockHolders{L"qfd:block-repeat", L"qfd:conditional-block",
                                       L"qfd:conditional-block-sequence"};

/// What gets a block with a placeholder when nothing is left in it. It differs from what is at
/// block level: it holds blocks only, and a table or a list that is empty is no place for one.
inline constexpr Names<6> blockContainers{
    L"fo:flow",           L"fo:static-content",  L"fo:table-cell",
    L"fo:list-item-body", L"fo:block-container", L"fo:footnote-body"};

/// What gets an inline with a placeholder when nothing is left in it.
inline constexpr Names<2> inlineHolders{L"qfd:conditional-inline", L"qfd:inline-repeat"};

// Structures and their parts

/// What is written once for each node of the data.
inline constexpr Names<4> repeating{L"qfd:block-repeat", L"qfd:table-row-repeat",
                                    L"qfd:inline-repeat", L"qfd:page-sequence-repeat"};

/// Sequences of conditional sections.
inline constexpr Names<2> conditionalSequences{L"qfd:conditional-block-sequence",
                                               L"qfd:conditional-inline-sequence"};

/// What is nothing without the parts that it is made of, and goes with the last: those and a list.
inline constexpr Names<3> madeOfParts{conditionalSequences[0], conditionalSequences[1],
                                      L"fo:list-block"};

/// What a table or a list has a place for, whether it holds something or not.
inline constexpr Names<3> partsOfStructures{L"fo:table-cell", L"fo:list-item-label",
                                            L"fo:list-item-body"};

/// Levels of a table or a list that mean nothing alone to a reader, so that a growing selection
/// passes them. Deliberate: "fo:table-footer" is not among them.
inline constexpr Names<3> passedBySelection{L"fo:table-body", L"fo:table-header", L"fo:list-item"};

// The caret

/// What a caret that is put aside stays in: a step out of a cell would land in another.
inline constexpr Names<3> caretRegions{L"fo:table-cell", L"fo:flow", L"fo:static-content"};

/// In which, at any depth, no caret can stand.
inline constexpr Names<2> closedToCaret{L"fo:list-item-label", L"qfd:xslt-global"};

/// What the caret steps over with all that it holds. Only the first is closed as well: a host can
/// put the caret into the others.
inline constexpr Names<3> scripts{L"qfd:xslt-global", L"qfd:xslt", L"qfd:inline-xslt"};

/// What the caret passes as one unit.
inline constexpr Names<8> atomicObjects{
    L"fo:external-graphic", L"qfd:chart",    L"qfd:field",       L"qf:barcode",
    L"qf:geomap",           L"qf:object-3d", L"qf:media-object", L"qfd:subdocument-content"};

/// Where the initial position of a document can be kept: what holds text to read.
inline constexpr Names<2> initialPositions{L"fo:block", L"fo:inline"};

// Pages

/// What makes pages, and is counted together as page sequences.
inline constexpr Names<3> pageGenerators{L"fo:page-sequence", L"qf:insert-document",
                                         L"qfd:page-sequence-repeat"};

/// What a page sequence names as its master.
inline constexpr Names<2> pageMasters{L"fo:simple-page-master", L"fo:page-sequence-master"};

/// What in a sequence of masters names one.
inline constexpr Names<3> pageMasterReferences{L"fo:single-page-master-reference",
                                               L"fo:repeatable-page-master-reference",
                                               L"fo:conditional-page-master-reference"};

/// The regions of a page around its body, which static content fills.
inline constexpr Names<4> sideRegions{L"fo:region-before", L"fo:region-after", L"fo:region-start",
                                      L"fo:region-end"};

} // namespace Vocabulary
