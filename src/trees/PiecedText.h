#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/String.h"
#include "foundation/xml/XmlDocument.h"
#include "trees/DocumentSeam.h"

#include <vector>

/// A text for the parser, put together of stretches of a document and of what makes them one
/// element. What the parser has against it is told with line and column in the document.
class PiecedText {
public:
    explicit PiecedText(const DocumentSeam& document) : document_(document) {}

    /// What stands in the document from `start` on.
    PiecedText& stretch(int start, const Core::String& text);
    PiecedText& stretch(int start, int end) { return stretch(start, document_.text(start, end)); }
    /// What does not stand there.
    PiecedText& made(const Core::String& text);

    /// Throws Xml::ParseException.
    SmartPtr<Xml::XmlDocument> parse() const;

    /// Reads a text that is of no document.
    static SmartPtr<Xml::XmlDocument> parse(const Core::String& text);

private:
    struct Stretch {
        int offset; ///< in this text
        int start;  ///< in the document
        int length;
    };
    int inDocument(int offset) const;

    DocumentSeam document_;
    Core::String text_;
    std::vector<Stretch> stretches_;
};
