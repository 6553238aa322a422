#include "trees/CutPart.h"

#include "document/Document.h"
#include "foundation/Exception.h"
#include "foundation/xml/CDataNode.h"
#include "foundation/xml/XmlDocument.h"
#include "text/Prolog.h"
#include "trees/Fragment.h"
#include "trees/KeptSpelling.h"

#include <utility>

using Core::String;
using Xml::Node;

namespace {

/// Whether the line break behind the root's start tag is the tree's own. If not, it was put there
/// when the tree was written.
bool beginsWithLineBreak(const Xml::Element& root) {
    const Node* first = root.get_children().front();
    return first->is_text() && !dynamic_cast<const Xml::CDataNode*>(first) &&
           static_cast<const Xml::TextNode*>(first)->get_content().startsWith(L"\n");
}

} // namespace

CutPart::CutPart(Document& document, Tags tags, int start, int end, const String& written)
    : document_(&document), tags_(std::move(tags)), start_(start), end_(end),
      source_(DocumentSeam(&document).text(start, end)), asRead_(written) {}

void CutPart::requireUnchanged() const {
    if (DocumentSeam(document_).text(start_, end_) != source_)
        throw Core::Exception(L"the text from offset " + String::formatS(start_) + L" through " +
                              String::formatS(end_) +
                              L" has changed since it was read, so it is not overwritten");
}

bool CutPart::replace(const String& written, const CaretRule& rule) {
    requireUnchanged();
    const String text = written == asRead_ ? source_ : spelt(written);
    // What makes the document longer than this is declared on the root, which stands before the
    // part or in it.
    const int length = document_->text().length() - source_.length() + text.length();
    const bool holdsRoot = start_ == document_->text().root();
    const auto declared = [&] { return document_->text().length() - length; };
    const auto start = [&] { return holdsRoot ? start_ : start_ + declared(); };

    DocumentSeam seam(document_);
    CommitCaret caret{{document_->caret(), document_->pivot()}, {}};
    if (rule)
        caret.after = [&] { return rule(start()); };
    if (text == source_) {
        placeOnly(seam, caret);
        return false;
    }
    if (!seam.replace(start_, end_, text, caret, Prefixes::Declared))
        return false;
    asRead_ = written;
    moveTo(start(), start_ + declared() + text.length() - 1);
    return true;
}

void CutPart::placeOnly(DocumentSeam& seam, const CommitCaret& caret) {
    if (caret.after)
        seam.place(caret);
    else
        document_->endTyping();
}

void CutPart::moveTo(int start, int end) {
    start_ = start;
    end_ = end;
    source_ = DocumentSeam(document_).text(start, end);
}

String CutPart::spelt(const String& written) const {
    const auto element = [this](const String& part) {
        return tags_.opening + part + tags_.closing;
    };
    const String text = keepSpelling(element(source_), element(asRead_), element(written));
    return text.subString(static_cast<unsigned>(tags_.opening.length()),
                          static_cast<unsigned>(text.length() - tags_.closing.length() - 1));
}

String CutPart::upToClosing(const Xml::XmlDocument& tree) {
    String text = Fragment::textOf(tree);
    const int tagEnd = XmlScan::tagEnd(text.view(), 1);
    if (!XmlScan::selfClosingAt(text.view(), 0))
        return text.subString(0, static_cast<unsigned>(XmlScan::closingTag(text.view(), 0) - 1));
    text.erase(static_cast<unsigned>(tagEnd - 1), 1);
    return text.subString(0, static_cast<unsigned>(tagEnd - 1));
}

String CutPart::content(const Xml::XmlDocument& tree) {
    const String text = upToClosing(tree);
    const Xml::Element& root = *tree.getRootNode();
    const int added = root.has_children() && !beginsWithLineBreak(root) ? 1 : 0;
    const int start = XmlScan::tagEnd(text.view(), 1) + 1 + added;
    return String(text.view().substr(static_cast<std::size_t>(start)));
}
