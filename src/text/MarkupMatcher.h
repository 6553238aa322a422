#pragma once

#include "text/XmlScan.h"

#include <set>
#include <vector>

/// Reads a part of a text as an XML parser does, with no tree: names of tags matched, attributes
/// unique and well formed, references and sections complete, every character one that XML can hold.
/// Prefixes need no declaration. What only the rest of the document or a table of letters can tell
/// is noted for whoever asks.
class MarkupMatcher {
public:
    using Text = XmlScan::Text;

    /// The part is to begin between two units. It must outlive the matcher.
    explicit MarkupMatcher(Text part) : text_(part) {}

    /// Reads the whole part as the content of an element, in which elements may stay open. Answers
    /// whether it is well formed; reading ends where it is not.
    bool readContent();
    /// The same for the element whose start tag the part begins with, up to its end.
    bool readElement();

    /// How far the part was read.
    int position() const { return at_; }
    /// The names of the elements that are open there, the outermost first.
    const std::vector<Text>& open() const { return open_; }
    /// The names of the elements that begin before the part and end in it, the innermost first. A
    /// part with such closing tags may be well formed; what they are to be is not known here.
    const std::vector<Text>& closed() const { return closed_; }

    /// Entities that are not predefined, as they are used in text and in values of attributes.
    const std::set<Text>& entitiesInText() const { return entitiesInText_; }
    const std::set<Text>& entitiesInValues() const { return entitiesInValues_; }
    /// Names with letters beyond ASCII.
    const std::set<Text>& foreignNames() const { return foreignNames_; }

private:
    bool readUnit();
    bool readTag();
    bool readStartTag();
    bool readClosingTag();
    bool readAttribute(std::vector<Text>& names);
    bool readValue();
    bool readReference(std::set<Text>& entities);
    bool readNumber();
    bool readComment();
    bool readSection();
    bool readInstruction();
    bool readCharacter();
    bool readCharactersUpTo(Text delimiter);
    bool readSpaces();
    Text readName();
    bool read(Text expected);

    bool isAtEnd() const { return at_ >= static_cast<int>(text_.size()); }
    /// The unit at the position; NUL, which XML cannot hold, behind the end.
    wchar_t unit() const { return isAtEnd() ? L'\0' : XmlScan::unitAt(text_, at_); }

    Text text_;
    int at_ = 0;
    std::vector<Text> open_;
    std::vector<Text> closed_;
    std::set<Text> entitiesInText_;
    std::set<Text> entitiesInValues_;
    std::set<Text> foreignNames_;
};
