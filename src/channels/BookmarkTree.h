#pragma once

#include "trees/CutPart.h"

#include <optional>

class Document;
class Fragment;

/// The bookmark tree of a document in the tags of its root: cut out, and on its way back.
///
/// A white space behind the tree is cut out with it and given back. So what stands there stays,
/// round after round, also where it is markup.
class BookmarkTree {
public:
    /// Reads it into the fragment; where the document has none, that is the bare root. Throws
    /// Xml::ParseException.
    BookmarkTree(Document& document, Fragment& fragment);

    /// Writes it back; a new one becomes the first in the root. Throws Core::Exception where the
    /// text has changed, and NullPointerException without a tree, and changes nothing then.
    void commit(Fragment& fragment);

private:
    void note(Fragment& fragment);
    void requireNone() const;
    void findPlaceForNew();
    Core::String written(const Fragment& fragment) const;

    Document* document_;
    bool isNew_ = true;        // the document has none
    Core::String spaceBehind_; // that is cut out with it
    std::optional<CutPart> part_;
};
