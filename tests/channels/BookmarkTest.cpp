#include "channels/AnnotationBuffer.h"
#include "channels/BookmarkBuffer.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/ParseException.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using Core::String;
using B = BookmarkBuffer;
using Tree = SmartPtr<Xml::XmlDocument>;

const std::wstring rootTag = L"<qfd:document xmlns:qfd='urn:forme:qfd/1.0' "
                             L"xmlns:fo='http://www.w3.org/1999/XSL/Format' a=\"&gt;\">";
const std::wstring rest = L"<fo:layout-master-set/><fo:page-sequence><fo:flow><fo:block>text"
                          L"</fo:block></fo:flow></fo:page-sequence></qfd:document>";

std::wstring documentWith(const std::wstring& bookmarks) {
    return rootTag + bookmarks + rest;
}

/// A document with that behind the start tag of its root, and the caret in its block.
class Bookmarks {
public:
    explicit Bookmarks(const std::wstring& bookmarks) {
        document_->setContent(String(documentWith(bookmarks)), true);
        document_->setCaretPos(false, document_.find(L"text"));
        document_.heard();
    }
    MarkedDocument* operator->() { return &document_; }
    std::wstring behindRootTag() const {
        const std::wstring text = document_.content();
        return text.substr(rootTag.size(), text.size() - rootTag.size() - rest.size());
    }

private:
    MarkedDocument document_;
};

std::wstring textOf(const Tree& tree) {
    return wide(tree->writeToString().trim());
}

Tree emptyControl() {
    Tree control(new Xml::XmlDocument);
    control->createRootNode("bookmark-tree");
    return control;
}

Tree controlOf(Bookmarks& document) {
    return B(&document->face()).getProcessedDocumentForControl();
}

void commit(Bookmarks& document, const Tree& control) {
    B buffer(&document->face());
    buffer.getProcessedTreeForDocument(control);
    buffer.commitChangesToEditableBuffer();
}

void addRandom(std::mt19937& random, Xml::Element& parent, int depth) {
    for (auto count = random() % 4; depth > 0 && count > 0; --count) {
        const bool isFixed = random() % 2;
        Xml::Element& made = *parent.add_child(isFixed ? "bookmark" : "dynamic-bookmark");
        for (const char* name : {"title", "id", "objectId", "xpath", "condition", "sort"})
            if (random() % 2 && (!isFixed || std::string(name) <= "title") &&
                std::string(name) != (isFixed ? "condition" : "") &&
                std::string(name) != (isFixed ? "sort" : ""))
                made.set_attribute(name, String(L"a<&\"' \xA0" + std::to_wstring(random() % 100)));
        addRandom(random, made, depth - 1);
    }
}

class Untouched : public testing::TestWithParam<std::filesystem::path> {};

} // namespace

TEST_P(Untouched, ChannelsKeepEveryByteAndTheRunOfTyping) {
    MarkedDocument document;
    document->setContent(textOf(GetParam()), true);
    const std::wstring before = document.content();
    B(&document.face()).commitChangesToEditableBuffer();
    AnnotationBuffer annotations(&document.face());
    annotations.commitChangesToEditableBuffer();
    EXPECT_EQ(document.content(), before);
    EXPECT_FALSE(document->canUndo());

    annotations.setDocumentSignature({"Ada", "", "", "", "7"}, "new");
    annotations.commitChangesToEditableBuffer();
    EXPECT_EQ(xmlError(document.text().content()), "");
    EXPECT_EQ(AnnotationBuffer(&document.face()).getDocumentSignature().name, "Ada");
    const auto fromMasters = [](const std::wstring& text) {
        return text.substr(text.find(L"<fo:layout-master-set"));
    };
    EXPECT_EQ(fromMasters(document.content()), fromMasters(before));
    document->undo();
    EXPECT_EQ(document.content(), before);
}

INSTANTIATE_TEST_SUITE_P(Documents, Untouched, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

TEST(Bookmarks, HaveAFormForTheControl) {
    Bookmarks document(
        L"<fo:bookmark-tree><!-- c --><fo:bookmark starting-state='hide' xpath='p' id='y' "
        L"internal-destination='x'><fo:bookmark-title><!-- t --><![CDATA[A & B]]>C"
        L"</fo:bookmark-title><qfd:dynamic-bookmark bookmark-title='D' xpath='p' fo:id='z' "
        L"condition='c' sort='s'/><fo:other><fo:bookmark/></fo:other></fo:bookmark>"
        L"<fo:Bookmark><fo:bookmark-title/></fo:Bookmark></fo:bookmark-tree>");
    EXPECT_EQ(
        textOf(controlOf(document)),
        L"<bookmark-tree>\n<bookmark title=\"A &amp; B\" objectId=\"y\" id=\"x\">"
        L"<dynamic-bookmark title=\"D\" xpath=\"p\" objectId=\"z\" condition=\"c\" sort=\"s\"/>"
        L"</bookmark><bookmark/></bookmark-tree>");
    commit(document, controlOf(document));
    EXPECT_EQ(document.behindRootTag(),
              L"<fo:bookmark-tree><fo:bookmark id='y' internal-destination='x'>"
              L"<fo:bookmark-title>A &amp; B</fo:bookmark-title><qfd:dynamic-bookmark "
              L"bookmark-title='D' xpath='p' fo:id='z' condition='c' sort='s'/></fo:bookmark>"
              L"<fo:bookmark/></fo:bookmark-tree>");
}

TEST(Bookmarks, ComeBackFromTheControlAsTheyWereRoundAfterRound) {
    std::mt19937 random(3);
    for (const std::wstring behind : {L"\n", L" \n", L"", L"\t<!-- > -->\n\n"}) {
        Bookmarks document(L"\n<fo:bookmark-tree\n/>" + behind);
        Tree control = emptyControl();
        addRandom(random, *control->getRootNode(), 4);
        control->getRootNode()->add_child("Section")->set_attribute("title", "last");
        commit(document, control);
        const EditorState first = stateOf(document->face());
        EXPECT_EQ(xmlError(first.text), "");
        EXPECT_EQ(document->caret(), document->find(L"text"));
        const std::wstring text = document.behindRootTag();
        EXPECT_EQ(text.substr(0, 20), L"\n<fo:bookmark-tree\n>");
        EXPECT_TRUE(text.ends_with(L"bookmark-title=\"last\"/></fo:bookmark-tree>" + behind))
            << text;
        control->getRootNode()->get_children().back()->set_name("dynamic-bookmark");
        EXPECT_EQ(textOf(controlOf(document)), textOf(control));
        for (int round = 0; round < 10; ++round)
            commit(document, controlOf(document));
        EXPECT_EQ(stateOf(document->face()), first);
        document->face().undo();
        EXPECT_EQ(document.behindRootTag(), L"\n<fo:bookmark-tree\n/>" + behind);
        EXPECT_FALSE(document->face().canUndo());
    }
}

TEST(Bookmarks, OfADocumentWithoutAnyBecomeTheFirstInItsRoot) {
    Bookmarks document(L"\n<qf:info/>");
    B buffer(&document->face());
    EXPECT_EQ(buffer.getDocumentBufferStart(), -1);
    EXPECT_EQ(buffer.getDocumentBufferEnd(), -1);
    const Tree control = buffer.getProcessedDocumentForControl();
    EXPECT_EQ(textOf(control), L"<bookmark-tree/>");
    buffer.commitChangesToEditableBuffer();
    buffer.getProcessedTreeForDocument(control);
    buffer.commitChangesToEditableBuffer();
    EXPECT_FALSE(document->face().canUndo()) << "none is nothing to insert";

    const EditorState before = stateOf(document->face());
    control->getRootNode()->add_child("bookmark")->set_attribute("title", "A");
    buffer.getProcessedTreeForDocument(control);
    buffer.commitChangesToEditableBuffer();
    const std::wstring one = L"<fo:bookmark-tree><fo:bookmark><fo:bookmark-title>A"
                             L"</fo:bookmark-title></fo:bookmark></fo:bookmark-tree>";
    EXPECT_EQ(document.behindRootTag(), one + L"\n<qf:info/>");
    EXPECT_EQ(document->heard(), "bc");
    EXPECT_EQ(buffer.getDocumentBufferEnd() - buffer.getDocumentBufferStart(),
              static_cast<int>(one.size()));
    expectReplays(document->face(), before);

    buffer.getProcessedTreeForDocument(emptyControl());
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(document.behindRootTag(), L"<fo:bookmark-tree></fo:bookmark-tree>\n<qf:info/>");
    const B copy = buffer;
    copy.getXmlDocument()->getRootNode()->remove_child(
        B::getElementByName(copy.getXmlDocument()->getRootNode(), "bookmark-tree"));
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(document.behindRootTag(), L"\n<qf:info/>");
    EXPECT_EQ(buffer.getDocumentBufferStart(), -1);
}

TEST(Bookmarks, LoseNothingWhereTheyCannotBeWritten) {
    Bookmarks document(L"<fo:bookmark-tree><fo:bookmark/></fo:bookmark-tree>");
    B buffer(&document->face());
    EXPECT_THROW(buffer.getProcessedTreeForDocument({}), Core::NullPointerException);
    EXPECT_THROW(buffer.getProcessedTreeForDocument(Tree(new Xml::XmlDocument)),
                 Core::NullPointerException);
    EXPECT_EQ(textOf(buffer.getProcessedDocumentForControl()),
              L"<bookmark-tree>\n<bookmark/></bookmark-tree>");
    // The document form taken for a control's: what it holds counts as dynamic.
    buffer.getProcessedTreeForDocument(buffer.getXmlDocument());
    B null = buffer;
    null.setXmlDocument({});
    EXPECT_FALSE(null.getProcessedDocumentForControl());
    EXPECT_THROW(null.getProcessedTreeForDocument(emptyControl()), Core::NullPointerException);
    EXPECT_THROW(null.commitChangesToEditableBuffer(), Core::NullPointerException);
    EXPECT_THROW(B(nullptr), Core::NullPointerException);

    document->face().insertXmlTextAtPosition(static_cast<int>(rootTag.size()), "\n");
    const EditorState changed = stateOf(document->face());
    EXPECT_THROW(buffer.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document->face()), changed);
    EXPECT_FALSE(document->face().canUndo());

    Bookmarks none(L"");
    B fresh(&none->face());
    fresh.getProcessedTreeForDocument(buffer.getProcessedDocumentForControl());
    none->face().insertXmlTextAtPosition(static_cast<int>(rootTag.size()), "<fo:bookmark-tree/>");
    EXPECT_THROW(fresh.commitChangesToEditableBuffer(), Core::Exception);

    Bookmarks broken(L"\n\n<fo:bookmark-tree>\n<fo:bookmark>\n</fo:bookmark-tree>");
    try {
        B reads(&broken->face());
        ADD_FAILURE() << "it was read";
    } catch (const Xml::ParseException& error) {
        EXPECT_EQ(error.getLine(), 5);
        EXPECT_EQ(error.getColumn(), 3);
    }
}
