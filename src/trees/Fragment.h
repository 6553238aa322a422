#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/String.h"
#include "foundation/xml/XmlDocument.h"
#include "trees/DocumentSeam.h"

#include <set>

/// An element that was cut out of the document's text and parsed, to be edited as a tree and
/// written back as text. Copies share the tree.
///
/// For the parser it stands alone: behind the document's type, whose entities it may refer to, and
/// with the declarations of namespaces that were in force around it. Both go again when it is
/// written back.
///
/// A text can also be read whole, be it a document's or of none.
class Fragment {
public:
    /// Without a document, null, only readText() has anything to read.
    explicit Fragment(Document* document) : document_(document) {}

    /// Cuts out the element whose start tag is at the position, in the place of what was read
    /// before. Throws Core::Exception where no element is, and ParseException, with line and column
    /// in the document, where it is not well formed; this fragment then stays as it was.
    void read(int element);
    /// The same of an element without what stands in it from `end` on, where it is closed for the
    /// parser alone: source() lacks the closing tag.
    void readHead(int element, int end);
    /// Takes a whole text for the tree, and no place in the document. Throws ParseException as
    /// read() does.
    void readText(const Core::String& text);

    /// Takes a tree that its owner has read or been given, which may be null.
    void setTree(const SmartPtr<Xml::XmlDocument>& tree) { tree_ = tree; }

    /// Where the element stands, its last unit included; -1 before the first reading.
    int start() const { return start_; }
    int end() const { return end_; }

    /// Takes what the element has become since it was read for its end, and nothing else.
    void findEnd() { end_ = document_.elementEnd(start_); }
    /// The same where the element may have moved, too.
    void moveTo(int element) { setPlace(element, document_.elementEnd(element)); }
    /// Takes a place that the owner of the tree has found.
    void setPlace(int start, int end) {
        start_ = start;
        end_ = end;
    }

    /// The text that was read, without what only the parser needs.
    const Core::String& source() const { return source_; }
    /// What an element's tree was written as when it had been read; its owner may have another form
    /// in which he compares.
    const Core::String& asRead() const { return asRead_; }
    void setAsRead(const Core::String& written) { asRead_ = written; }

    /// A tree as text, from its root on.
    static Core::String textOf(const Xml::XmlDocument& tree);

    /// Null before the first reading.
    const SmartPtr<Xml::XmlDocument>& tree() const { return tree_; }
    /// Throws Core::NullPointerException before the first reading.
    Xml::Element* root() const { return tree_->getRootNode(); }

    /// Writes the tree back. A tree that is written as it was when it was read leaves the text
    /// alone. Where the element is no longer the one that was read, throws Core::Exception and
    /// changes nothing; nor does anything change where no parser would take the result.
    void commit(const CommitCaret& caret);

private:
    SmartPtr<Xml::XmlDocument> readTree(int element, const Core::String& source) const;
    std::set<Core::String> borrowedDeclarations() const;
    Core::String withOwnDeclarations(const Core::String& written) const;

    DocumentSeam document_;
    SmartPtr<Xml::XmlDocument> tree_;
    int start_ = -1;
    int end_ = -1;
    Core::String source_;             // the element as it stands in the text
    Core::String asRead_;             // the tree as it was written when it had been read
    std::set<Core::String> borrowed_; // the declarations that only the parser needs
};
