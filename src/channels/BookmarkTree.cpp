#include "channels/BookmarkTree.h"

#include "document/Document.h"
#include "foundation/Exception.h"
#include "text/RootChildren.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"
#include "trees/PiecedText.h"

#include <algorithm>

using Core::String;

namespace {

struct TreePlace {
    int start = -1;
    int behind = -1; ///< the offset behind the closing tag
    int last = -1;   ///< the last offset of what is cut out
};

TreePlace placeIn(const XmlText& text) {
    const int start = RootChildren::named(text, L"fo:bookmark-tree");
    if (start < 0)
        return {};
    // Of a tree without an end the rest is read, for the parser to tell what is wrong.
    const int closing = text.closingTag(start);
    const int behind = closing < 0 ? text.length() : text.tagEnd(closing + 1) + 1;
    const bool isBeforeSpace = text.isValid(behind) && String::isSpace(text.unitAt(behind));
    return {start, behind, isBeforeSpace ? behind : behind - 1};
}

CutPart::Tags rootTags(const XmlText& text) {
    const String name = text.nameAt(text.root());
    return {L"<" + name + L">", L"</" + name + L">"};
}

SmartPtr<Xml::XmlDocument> read(Document& document) {
    const XmlText& text = document.text();
    const int root = text.root();
    PiecedText pieces{DocumentSeam(&document)};
    pieces.made(String(text.prolog().documentType)).stretch(root, text.tagEnd(root + 1));
    if (const TreePlace tree = placeIn(text); tree.start >= 0)
        pieces.stretch(tree.start, tree.last);
    if (!text.selfClosingAt(root))
        pieces.made(rootTags(text).closing);
    return pieces.parse();
}

String withoutSpaceAtEnd(const String& text) {
    int length = text.length();
    while (length > 0 && String::isSpace(text[length - 1]))
        --length;
    return String(text.view().substr(0, static_cast<std::size_t>(length)));
}

bool hasBookmarks(const Xml::Element& root) {
    const auto trees = Elements::childrenOf(root);
    return std::any_of(trees.begin(), trees.end(),
                       [](const Xml::Element* tree) { return tree->has_children(); });
}

} // namespace

BookmarkTree::BookmarkTree(Document& document, Fragment& fragment) : document_(&document) {
    fragment.setTree(read(document));
    note(fragment);
}

/// Takes what stands in the text for what the tree says.
void BookmarkTree::note(Fragment& fragment) {
    const XmlText& text = document_->text();
    const TreePlace tree = placeIn(text);
    isNew_ = tree.start < 0;
    fragment.setPlace(tree.start, tree.behind);
    spaceBehind_ =
        tree.last == tree.behind && !isNew_ ? text.slice(tree.last, tree.last + 1) : String();
    part_.emplace(*document_, rootTags(text), tree.start, tree.last, written(fragment));
}

void BookmarkTree::commit(Fragment& fragment) {
    const String now = written(fragment);
    if (isNew_) {
        requireNone();
        if (!hasBookmarks(*fragment.root()))
            return;
        findPlaceForNew();
    }
    if (part_->replace(now))
        note(fragment);
}

void BookmarkTree::requireNone() const {
    if (placeIn(document_->text()).start >= 0)
        throw Core::Exception(L"the document has got bookmarks since it was read, so they are not "
                              L"overwritten");
}

void BookmarkTree::findPlaceForNew() {
    const XmlText& text = document_->text();
    if (!text.openingAt(text.root()))
        throw Core::Exception(L"the document's root element has no content that bookmarks could "
                              L"stand in");
    const int place = text.next(text.root());
    part_->moveTo(place, place - 1);
}

String BookmarkTree::written(const Fragment& fragment) const {
    if (!fragment.tree() || !fragment.root())
        throw Core::NullPointerException();
    return withoutSpaceAtEnd(CutPart::content(*fragment.tree())) + spaceBehind_;
}
