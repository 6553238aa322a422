#pragma once

#include "foundation/String.h"
#include "trees/Fragment.h"

class Document;

/// What a template says ahead of its page masters, from the root's start tag on: cut out, parsed,
/// and written back. Its tree is the root element without what follows.
class TemplateData {
public:
    /// Reads the document, which must outlive this. There is no tree where its root is another
    /// element or has no page masters. Throws ParseException where it is not well formed.
    explicit TemplateData(Document& document);

    bool hasTree() const { return static_cast<bool>(fragment_.tree()); }
    /// Throws Core::NullPointerException without a tree.
    Xml::Element& root() const { return *fragment_.root(); }
    /// The document's, with the entities that texts may refer to.
    Core::String documentType() const;

    /// Writes the tree back, without white space at its end and without carriage returns. What
    /// would be written as it was read is left alone; a tree with carriage returns is read anew.
    /// Throws Core::Exception, and changes nothing, where the text is no longer the one that was
    /// read. False, and no trace, where no parser would take the document with it.
    bool commit();

private:
    void read();
    bool write(int start, const Core::String& written);

    Document* document_;
    Fragment fragment_;
    Core::String source_; // what stands in the text
    Core::String asRead_; // what the tree was written as
};
