#include "pages/PageSequenceCommit.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/NamespaceBinding.h"
#include "document/RecordedCommand.h"
#include "document/caret/Moves.h"
#include "foundation/Exception.h"
#include "foundation/ObjectId.h"
#include "foundation/xml/Element.h"
#include "pages/SequenceRange.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"
#include "trees/KeptSpelling.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace {

/// What is edited spelt as it was in the source, each as one element.
String spelt(const String& source, const String& asRead, const String& edited) {
    static const String start = L"<all>";
    static const String end = L"</all>";
    const String text =
        keepSpelling(start + source + end, start + asRead + end, start + edited + end);
    return text.subString(start.length(), text.length() - end.length() - 1);
}

SequenceRange rangeOf(const XmlText& text) {
    if (const auto range = SequenceRange::in(text))
        return *range;
    throw Core::Exception(L"the document has no layout master set");
}

String textIn(const XmlText& text) {
    const SequenceRange range = rangeOf(text);
    return text.slice(range.start, range.end);
}

/// What stands behind the page masters when the tree is written.
String written(const Fragment& fragment) {
    XmlText text;
    text.assign(fragment.tree()->writeToString(L"UTF-8"));
    return textIn(text).trim();
}

/// Where the first static content of a sequence belongs: behind its start tag, or the printing
/// options that open it. Null for its end.
Node* placeOfContents(const Element& sequence) {
    const std::vector<Element*> elements = Elements::childrenOf(sequence);
    if (!elements.empty() && elements.front()->get_name() == L"printing-options")
        return elements.front()->get_next_sibling();
    const auto children = sequence.get_children();
    return children.empty() ? nullptr : children.front();
}

/// The awaited texts in the tree: while it is written an element stands for them, whose name
/// nothing else has, so that their spelling is kept.
class Awaited {
public:
    explicit Awaited(const AwaitedTexts& awaited) : text_(awaited.joined()) {
        if (!awaited.sequence || text_.empty())
            return;
        sequence_ = awaited.sequence;
        Node* const place = placeOfContents(*sequence_);
        mark_ =
            place ? sequence_->add_node_as_prev_sibling(place, name_) : sequence_->add_child(name_);
    }
    ~Awaited() {
        if (mark_)
            sequence_->remove_child(mark_);
    }
    Awaited(const Awaited&) = delete;
    Awaited& operator=(const Awaited&) = delete;

    String putInto(String text) const {
        if (mark_)
            text.replaceAll(L"<" + name_ + L"/>", text_);
        return text;
    }

    void putIntoTree(const Document& document) {
        if (!mark_)
            return;
        Fragment contents(nullptr);
        contents.readText(String(document.text().prolog().documentType) + L"<texts>" + text_ +
                          L"</texts>");
        for (const Node* content : contents.root()->get_children())
            sequence_->import_node_as_prev_sibling(content, mark_, true);
    }

private:
    String name_ = L"awaited-" + ObjectId::generate();
    String text_;
    Element* sequence_ = nullptr;
    Element* mark_ = nullptr; // null if nothing is awaited
};

/// To the first place of the flows, wherever the caret was.
void goHome(Document& document) {
    const CommandScope scope(document);
    document.endTyping();
    document.dropCaret();
    Moves::home(document, false);
}

/// Declares on the root what the new text uses that the old one did not.
void declareNamespaces(Document& document, int start, const String& before, const String& now) {
    const std::wstring_view old = before.view();
    const std::wstring_view text = now.view();
    const auto first = std::mismatch(old.begin(), old.end(), text.begin(), text.end());
    // Backwards through what differs: the two may overlap in what they have in common.
    const auto last = std::mismatch(old.rbegin(), std::make_reverse_iterator(first.first),
                                    text.rbegin(), std::make_reverse_iterator(first.second));
    const auto offsetOf = [&](auto place) {
        return start + static_cast<int>(place - text.begin());
    };
    if (first.second != last.second.base())
        NamespaceBinding::bind(document, offsetOf(first.second), offsetOf(last.second.base()));
}

} // namespace

String AwaitedTexts::joined() const {
    String all;
    for (const auto& [flow, text] : texts)
        all += text;
    return all;
}

PageSequenceCommit::PageSequenceCommit(Document& document, Fragment& fragment)
    : document_(&document) {
    rangeOf(document.text());
    fragment.readText(document.text().content());
    noteRead(fragment);
}

void PageSequenceCommit::noteRead(Fragment& fragment) {
    const SequenceRange range = rangeOf(document_->text());
    fragment.setPlace(range.start, range.end - 1);
    source_ = textIn(document_->text());
    asRead_ = written(fragment);
}

void PageSequenceCommit::carryOut(Fragment& fragment, AwaitedTexts& awaited) {
    if (textIn(document_->text()) != source_)
        throw Core::Exception(L"what stands behind the page masters has changed since it was read, "
                              L"so it is not overwritten");
    if (!writeBack(fragment, awaited))
        return;
    awaited = {};
    noteRead(fragment);
}

/// Answers whether the text has changed.
bool PageSequenceCommit::writeBack(const Fragment& fragment, const AwaitedTexts& awaited) {
    Awaited inTree(awaited);
    const String now = written(fragment);
    if (now == asRead_) {
        goHome(*document_);
        return false;
    }
    const String text = inTree.putInto(spelt(String(source_).trim(), asRead_, now));
    const bool stands = replace(text);
    if (stands)
        inTree.putIntoTree(*document_);
    return stands;
}

bool PageSequenceCommit::replace(const String& with) {
    Document& document = *document_;
    const SequenceRange range = rangeOf(document.text());
    return ::carryOut(document, [&] {
        document.recordCaret();
        document.recordDeletion(range.start, source_);
        document.recordInsertion(range.start, with);
        document.dropCaret();
        document.rewriteUnrecorded(range.start, range.end, with, -1, -1);
        declareNamespaces(document, range.start, String(source_).trim(), with);
        Moves::home(document, false);
        document.history.addAction(
            EditAction(EditAction::EditCaret, -1, document.caret(), document.pivot(), with));
    });
}
