#include "pages/MasterSet.h"

#include "document/Document.h"
#include "foundation/Exception.h"
#include "text/XmlScan.h"
#include "trees/Fragment.h"
#include "trees/KeptSpelling.h"

using Core::String;
using XmlScan::Text;

namespace {

/// What stands between the element's tags.
Text contentOf(Text element) {
    const int tagEnd = XmlScan::tagEnd(element, 1);
    const int closing = XmlScan::closingTag(element, 0);
    return closing <= tagEnd ? Text() : XmlScan::slice(element, tagEnd + 1, closing);
}

/// The start tag of one that may stand by itself, as one that has a closing tag.
String startTagOf(Text element) {
    const int end = XmlScan::tagEnd(element, 1);
    const int attributesEnd = XmlScan::selfClosingAt(element, 0) ? end - 1 : end;
    return String(XmlScan::slice(element, 0, attributesEnd)) + L">";
}

String inTags(const String& startTag, Text content) {
    return startTag + String(content) + L"</" + String(XmlScan::tagName(startTag.view(), 0)) + L">";
}

/// What is to take the place of the element that stands there; the same where nothing was changed.
String edition(const Fragment& read, const String& edited, const String& stands) {
    if (edited == read.asRead() && stands == read.source())
        return stands;
    const String kept = keepSpelling(read.source(), read.asRead(), edited);
    return inTags(startTagOf(stands.view()), contentOf(kept.view()));
}

} // namespace

int MasterSet::elementIn(const Document& document) {
    const int element = document.text().layoutMasterSet();
    if (element < 0)
        throw Core::Exception(L"the document has no fo:layout-master-set");
    return element;
}

bool MasterSet::commit(Document& document, const Fragment& read, const String& edited) {
    DocumentSeam seam(&document);
    const int start = elementIn(document);
    const int end = seam.elementEnd(start);
    const String stands = seam.text(start, end);
    const String text = edition(read, edited, stands);
    const CommitCaret caret{{document.caret(), document.pivot()}, {}};
    if (text != stands)
        return seam.replace(start, end, text, caret, Prefixes::Declared);
    seam.place(caret);
    return false;
}

String MasterSet::withoutAttributes(const String& element) {
    const String startTag = L"<" + String(XmlScan::tagName(element.view(), 0)) + L">";
    return inTags(startTag, contentOf(element.view()));
}
