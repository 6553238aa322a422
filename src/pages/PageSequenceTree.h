#pragma once

#include "foundation/String.h"
#include "foundation/values/PageMasterData.h"
#include "pages/PageSequenceCommit.h"
#include "pages/PageSequenceType.h"
#include "pages/RepeatData.h"

#include <optional>

class Document;
class Fragment;

/// The page sequences of a document, or of a text that is none, as a tree: adding, removing and
/// moving them, with the static contents that a new one awaits.
///
/// The fragment holds the tree and must outlive this; copies are of the same tree.
class PageSequenceTree {
public:
    PageSequenceTree(Document& document, Fragment& fragment);
    PageSequenceTree(const Core::String& text, Fragment& fragment);
    PageSequenceTree(const PageSequenceTree& other, Fragment& fragment);

    Xml::Element& root() const;
    /// Null where there is none.
    Xml::Element* at(int index) const;
    /// The one that holds the document's caret; null without one.
    Xml::Element* current() const;

    /// Nothing without a document or without a name of the master. Throws Core::Exception, and
    /// changes nothing, where a value cannot be written in XML.
    void add(PageSequenceType type, const PageMasterData& master, const RepeatData& data);
    void remove(int index);
    /// Behind the next one. The element itself goes, and a copy of it stands there.
    void moveDown(int index);

    void commit();

private:
    Fragment* fragment_;
    Document* document_ = nullptr; // null where the text belongs to none
    std::optional<PageSequenceCommit> commit_;
    AwaitedTexts awaited_;
};
