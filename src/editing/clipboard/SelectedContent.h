#pragma once

#include "foundation/String.h"
#include "text/TextView.h"

class Document;

/// Hears what a range of a document holds, in its order. Each element that is opened is closed.
class ContentVisitor {
public:
    /// Text as a reader sees it, entities replaced.
    struct Run {
        Core::String plain;
        bool keepsBlanks = false;    ///< white space in a row all shows
        bool keepsLineFeeds = false; ///< a line feed ends a line
    };

    ContentVisitor() = default;
    ContentVisitor(const ContentVisitor&) = delete;
    ContentVisitor& operator=(const ContentVisitor&) = delete;
    virtual ~ContentVisitor() = default;

    /// The element whose start tag stands at the position.
    virtual void open(int element) = 0;
    virtual void close(TextView name) = 0;
    virtual void text(const Run& run) = 0;
};

namespace SelectedContent {

/// Tells of the range from `start` up to but excluding `end`. What of an element the range cuts off
/// is opened or closed all the same, as are the inlines around all of it; and so are a list or a
/// table around parts of it. Comments, instructions, scripts and the texts of footnotes are left
/// out.
void visit(const Document& document, int start, int end, ContentVisitor& visitor);
/// The same for what is selected; nothing without a selection.
void visit(const Document& document, ContentVisitor& visitor);

} // namespace SelectedContent
