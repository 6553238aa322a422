#pragma once

#include "channels/ConditionalSectionBuffer.h"
#include "trees/CutPart.h"

#include <optional>
#include <vector>

class Document;
class Fragment;

/// The sections of the sequence of conditions around the caret: cut out from behind the start tag
/// of the sequence, and on their way back.
class ConditionalSections {
public:
    using Type = ConditionalSectionBuffer::Type;

    /// Reads them into the fragment; with the caret in no sequence of that type there is no tree.
    /// Throws Xml::ParseException.
    ConditionalSections(Document& document, Type type, Fragment& fragment);

    // On the root of the tree

    std::vector<Xml::Element*> in(const Xml::Element& sequence) const;
    /// Null where there are not so many.
    Xml::Element* at(const Xml::Element& sequence, int index) const;
    /// The one that the caret was in.
    Xml::Element* current(const Xml::Element& sequence) const { return at(sequence, index_); }
    /// The first without a condition; null without one.
    Xml::Element* fallback(const Xml::Element& sequence) const;

    /// In front of all others. Throws Core::Exception, and changes nothing, where the condition
    /// cannot be written in XML.
    void insert(Xml::Element& sequence, const Core::String& condition) const;
    void appendFallback(Xml::Element& sequence) const;

    /// The caret goes to the first place behind the start tag of the sequence. A sequence without
    /// sections is not written. Throws Core::Exception, and changes nothing, where the text has
    /// changed, and NullPointerException without a tree.
    void commit(Fragment& fragment);

private:
    void addContent(Xml::Element& section, const Core::String& text) const;

    Document* document_;
    Type type_;
    int index_ = 0;
    std::optional<CutPart> part_; // empty without a tree
};
