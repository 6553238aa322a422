#include "channels/BookmarkBuffer.h"
#include "channels/Head.h"
#include "foundation/Exception.h"
#include "foundation/Messages.h"
#include "foundation/xml/Element.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Core::String;
using B = BookmarkBuffer;
using Tree = SmartPtr<Xml::XmlDocument>;

const std::wstring tagEnd = fo + L" a=\"&gt;\">";

std::wstring textOf(const Tree& tree) {
    return wide(tree->writeToString().trim());
}

Tree emptyControl() {
    Tree control(new Xml::XmlDocument);
    control->createRootNode("bookmark-tree");
    return control;
}

Tree controlOf(Head& document) {
    return B(&document.face()).getProcessedDocumentForControl();
}

void commit(Head& document, const Tree& control) {
    B buffer(&document.face());
    buffer.getProcessedTreeForDocument(control);
    buffer.commitChangesToEditableBuffer();
}

const std::vector<const char*> attributeNames{"title", "id",        "objectId",
                                              "xpath", "condition", "sort"};

void addRandom(std::mt19937& random, Xml::Element& parent, int depth) {
    for (auto count = random() % 4; depth > 0 && count > 0; --count) {
        const bool isDynamic = random() % 2;
        Xml::Element& made = *parent.add_child(isDynamic ? "dynamic-bookmark" : "bookmark");
        for (std::size_t i = 0; i < (isDynamic ? 6 : 3); ++i)
            if (random() % 2)
                made.set_attribute(attributeNames[i],
                                   i > 0 && random() % 5 == 0
                                       ? String()
                                       : String(L"a<&\"' \xA0" + std::to_wstring(random() % 9)));
        addRandom(random, made, depth - 1);
    }
}

/// What a control's tree says, whatever the order of attributes.
std::wstring factsOf(const Xml::Element& bookmark) {
    std::wstring facts = wide(bookmark.get_name());
    for (const char* name : attributeNames)
        if (const Xml::Attribute* attribute = bookmark.get_attribute(name))
            facts += L" " + wide(String(name)) + L"=" + wide(attribute->get_value());
    facts += L"{";
    for (const Xml::Node* child : bookmark.get_children())
        facts += factsOf(static_cast<const Xml::Element&>(*child));
    return facts + L"}";
}

} // namespace

TEST(Bookmarks, HaveAFormForTheControl) {
    Head document(
        tagEnd +
        L"<fo:bookmark-tree><!-- c --><fo:bookmark starting-state='hide' xpath='p' id='y' "
        L"internal-destination='x'><fo:bookmark-title><!-- t --><![CDATA[]]><![CDATA[A & B]]>C"
        L"</fo:bookmark-title><qfd:dynamic-bookmark bookmark-title='D' xpath='p' fo:id='z' "
        L"condition='c' sort='s'/><fo:other><fo:bookmark/></fo:other></fo:bookmark>"
        L"<fo:Bookmark><fo:bookmark-title/></fo:Bookmark></fo:bookmark-tree>");
    EXPECT_EQ(
        textOf(controlOf(document)),
        L"<bookmark-tree>\n<bookmark title=\"A &amp; B\" objectId=\"y\" id=\"x\">"
        L"<dynamic-bookmark title=\"D\" xpath=\"p\" objectId=\"z\" condition=\"c\" sort=\"s\"/>"
        L"</bookmark><bookmark/></bookmark-tree>");
    commit(document, controlOf(document));
    EXPECT_EQ(document.part(),
              tagEnd +
                  L"<fo:bookmark-tree><fo:bookmark id='y' internal-destination='x'>"
                  L"<fo:bookmark-title>A &amp; B</fo:bookmark-title><qfd:dynamic-bookmark "
                  L"bookmark-title='D' xpath='p' fo:id='z' condition='c' sort='s'/></fo:bookmark>"
                  L"<fo:bookmark/></fo:bookmark-tree>");
}

TEST(Bookmarks, ComeBackFromTheControlAsTheyWereRoundAfterRound) {
    std::mt19937 random(3);
    for (const std::wstring behind : {L"\n", L" \n", L"", L"\t<!-- > -->\n\n"}) {
        Head document(tagEnd + L"\n<fo:bookmark-tree\n/>" + behind);
        for (int version = 0; version < 8; ++version) {
            const Tree control = emptyControl();
            addRandom(random, *control->getRootNode(), 4);
            control->getRootNode()->add_child("dynamic-bookmark")->set_attribute("title", "last");
            commit(document, control);
            const EditorState first = stateOf(document.face());
            EXPECT_EQ(document.caret(), document.find(L"text"));
            const std::wstring text = document.part();
            EXPECT_TRUE(text.starts_with(tagEnd + L"\n<fo:bookmark-tree\n>"));
            EXPECT_TRUE(text.ends_with(L"title=\"last\"/></fo:bookmark-tree>" + behind)) << version;
            EXPECT_EQ(factsOf(*controlOf(document)->getRootNode()),
                      factsOf(*control->getRootNode()));
            for (int round = 0; round < 10; ++round)
                commit(document, controlOf(document));
            EXPECT_EQ(stateOf(document.face()), first);
        }
        for (int version = 0; version < 8; ++version)
            document->undo();
        EXPECT_EQ(document.part(), tagEnd + L"\n<fo:bookmark-tree\n/>" + behind);
        EXPECT_FALSE(document->canUndo());
    }
}

TEST(Bookmarks, OfADocumentWithoutAnyBecomeTheFirstInItsRoot) {
    Head document(tagEnd + L"\n<qf:info/>");
    B buffer(&document.face());
    EXPECT_EQ(buffer.getDocumentBufferStart(), -1);
    EXPECT_EQ(buffer.getDocumentBufferEnd(), -1);
    const Tree control = buffer.getProcessedDocumentForControl();
    EXPECT_EQ(textOf(control), L"<bookmark-tree/>");
    buffer.commitChangesToEditableBuffer();
    buffer.getProcessedTreeForDocument(control);
    buffer.commitChangesToEditableBuffer();
    EXPECT_FALSE(document->canUndo()) << "none is nothing to insert";
    Xml::Element* const bookmark = control->getRootNode()->add_child("bookmark");
    bookmark->set_attribute("title", "");
    buffer.getProcessedTreeForDocument(control);
    EXPECT_NE(buffer.getXmlDocument()->writeToString().find(
                  L"<fo:bookmark><fo:bookmark-title/></fo:bookmark>", 0),
              -1);

    const EditorState before = stateOf(document.face());
    bookmark->set_attribute("title", "A");
    buffer.getProcessedTreeForDocument(control);
    buffer.commitChangesToEditableBuffer();
    const std::wstring one = L"<fo:bookmark-tree><fo:bookmark><fo:bookmark-title>A"
                             L"</fo:bookmark-title></fo:bookmark></fo:bookmark-tree>";
    EXPECT_EQ(document.part(), tagEnd + one + L"\n<qf:info/>");
    EXPECT_EQ(document.heard(), "bc");
    EXPECT_EQ(buffer.getDocumentBufferEnd() - buffer.getDocumentBufferStart(),
              static_cast<int>(one.size()));
    expectReplays(document.face(), before);

    buffer.getProcessedTreeForDocument(emptyControl());
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(document.part(), tagEnd + L"<fo:bookmark-tree></fo:bookmark-tree>\n<qf:info/>");
    const B copy = buffer;
    document->setCaretPos(false, -1);
    document.heard();
    copy.getXmlDocument()->getRootNode()->remove_child(
        B::getElementByName(copy.getXmlDocument()->getRootNode(), "bookmark-tree"));
    buffer.commitChangesToEditableBuffer();
    EXPECT_EQ(document.part(), tagEnd + L"\n<qf:info/>");
    EXPECT_EQ(buffer.getDocumentBufferStart(), -1);
    EXPECT_EQ(document.heard(), "b");
}

TEST(Bookmarks, LoseNothingWhereTheyCannotBeWritten) {
    Head document(tagEnd + L"<fo:bookmark-tree><fo:bookmark/></fo:bookmark-tree>");
    B buffer(&document.face());
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

    document.insertUnheard(L"\n");
    const EditorState changed = stateOf(document.face());
    EXPECT_THROW(buffer.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document.face()), changed);
    EXPECT_FALSE(document->canUndo());

    Head none(tagEnd);
    B fresh(&none.face());
    fresh.getProcessedTreeForDocument(buffer.getProcessedDocumentForControl());
    none.insertUnheard(L"<fo:bookmark-tree/>");
    EXPECT_THROW(fresh.commitChangesToEditableBuffer(), Core::Exception);

    MarkedDocument odd;
    odd->setContent("<fo:root xmlns:fo='x'/>", true);
    B closed(&odd.face());
    EXPECT_NO_THROW(closed.commitChangesToEditableBuffer());
    closed.getProcessedTreeForDocument(buffer.getProcessedDocumentForControl());
    EXPECT_THROW(closed.commitChangesToEditableBuffer(), Core::Exception);
    odd->setContent("<fo:root xmlns:fo='x'><fo:bookmark-tree/>", true);
    B torn(&odd.face());
    torn.getProcessedTreeForDocument(buffer.getProcessedDocumentForControl());
    torn.commitChangesToEditableBuffer();
    EXPECT_EQ(odd.content().find(L"<fo:bookmark-tree"), odd.content().rfind(L"<fo:bookmark-tree"));
    EXPECT_TRUE(odd.content().ends_with(L"</qfd:dynamic-bookmark></fo:bookmark-tree>"));

    const Head broken(tagEnd + L"\n\n<fo:bookmark-tree>\n<fo:bookmark>\n</fo:bookmark-tree>");
    EXPECT_EQ(messageOf([&] { B reads(&broken.face()); }), "5:3: mismatched tag");
}
