#pragma once

#include "foundation/String.h"

#include <map>

class Document;
class Fragment;

namespace Xml {
class Element;
}

/// Static contents that go into a new sequence as they stand in others.
struct AwaitedTexts {
    Xml::Element* sequence = nullptr;           ///< that was added last; null if none awaits them
    std::map<Core::String, Core::String> texts; ///< by their flow names

    /// In the order of their names.
    Core::String joined() const;
};

/// The page sequences of a document as a tree of all of it, and their way back into its text.
class PageSequenceCommit {
public:
    /// Reads the document. Throws Core::Exception where it has no layout master set.
    PageSequenceCommit(Document& document, Fragment& fragment);

    /// Writes back what stands behind the page masters, with the awaited texts in their sequence;
    /// the tree then holds them, too. Throws Core::Exception, and changes nothing, where the text
    /// is no longer the one that was read.
    void carryOut(Fragment& fragment, AwaitedTexts& awaited);

private:
    void noteRead(Fragment& fragment);
    bool writeBack(const Fragment& fragment, const AwaitedTexts& awaited);
    bool replace(const Core::String& with);

    Document* document_;
    Core::String source_; // what stands there in the text
    Core::String asRead_; // and in the tree when it is written, both without the space around
};
