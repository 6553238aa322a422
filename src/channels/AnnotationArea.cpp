#include "channels/AnnotationArea.h"

#include "document/Document.h"
#include "foundation/Exception.h"
#include "text/RootChildren.h"
#include "trees/Fragment.h"
#include "trees/PiecedText.h"

using Core::String;

namespace {

CutPart cutOut(Document& document, Fragment& fragment) {
    const XmlText& text = document.text();
    const int root = text.root();
    // One that stands deeper, as in a style sheet, holds no page masters of the document.
    const int end = RootChildren::named(text, L"fo:layout-master-set") - 1;
    if (end < 0)
        throw Core::Exception(L"the document has no fo:layout-master-set");
    const String closing = L"</" + text.nameAt(root) + L">";
    fragment.setTree(PiecedText(DocumentSeam(&document))
                         .made(String(text.prolog().documentType))
                         .stretch(root, end)
                         .made(closing)
                         .parse());
    fragment.setPlace(root, end);
    return {document, {String(), closing}, root, end, CutPart::upToClosing(*fragment.tree())};
}

} // namespace

AnnotationArea::AnnotationArea(Document& document, Fragment& fragment)
    : part_(cutOut(document, fragment)) {}

void AnnotationArea::commit(Fragment& fragment) {
    part_.replace(CutPart::upToClosing(*fragment.tree()));
    fragment.setPlace(part_.start(), part_.end());
}
