#include "trees/DOMBasedBuffer.h"

#include "foundation/PropertyTesting.h"
#include "foundation/XmlTesting.h"
#include "support/MarkedDocument.h"
#include "trees/Fragment.h"

#include <gtest/gtest.h>

namespace {

/// The first table of a document, with what derived classes use open to tests.
class Part : public DOMBasedBuffer {
public:
    using DOMBasedBuffer::collapseShorthands, DOMBasedBuffer::expandShorthands,
        DOMBasedBuffer::fragment;

    explicit Part(MarkedDocument& buffer) : DOMBasedBuffer(buffer.document()) {
        fragment().read(buffer.find(L"<T"));
    }
    void commitChangesToEditableBuffer() override { fragment().commit({{-1, -1}, nullptr}); }
};

TEST(DOMBasedBuffer, ACopyEditsTheSameTree) {
    MarkedDocument buffer(L"<T/>|");
    Part part(buffer);
    Part copy(part);
    copy.fragment().root()->set_attribute("a", "1");
    part.commitChangesToEditableBuffer();
    EXPECT_EQ(buffer.marked(), L"<T a=\"1\"/>|");
    EXPECT_EQ(part.getDocumentBufferStart(), buffer.find(L"<T"));
    EXPECT_EQ(part.getDocumentBufferEnd(), buffer->getCaretPos() - 1);
}

TEST(DOMBasedBuffer, ReadsElementsByTheirNamesAndAttributes) {
    const auto document = parse("<fo:a><fo:b><c/></fo:b><!--c--><x:b d=\"1\" e=\"\"/></fo:a>");
    const Xml::Element* root = document->getRootNode();
    Xml::Element* b = DOMBasedBuffer::getElementByName(root, "b");
    EXPECT_EQ(b->get_namespace_prefix(), L"fo");
    EXPECT_EQ(DOMBasedBuffer::getElementByName(root, "c"), nullptr) << "a grandchild";
    const auto* second = static_cast<const Xml::Element*>(root->get_children("x:b").front());
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(second, "d", ""), L"1");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(second, "e", ""),
              DOMBasedBuffer::getAttributeValue(second, "f", ""));
}

TEST(DOMBasedBuffer, PropertiesHaveTheElementsPrefixAndAttributesHaveNot) {
    const auto document = parse("<fo:b xmlns:q=\"u\" a=\"1\" fo:a=\"2\" qf:a=\"3\" c=\"&quot;\"/>");
    Xml::Element* b = document->getRootNode();
    const PropertyCollection read = DOMBasedBuffer::getElementProperties(b);
    EXPECT_EQ(shown(read), L"fo:a=2; qf:a=3; fo:c=\"");
    DOMBasedBuffer::setElementProperties(b, properties(L"qf:a=3; fo:a=2; d=4"));
    EXPECT_EQ(written(document), "<fo:b xmlns:q=\"u\" qf:a=\"3\" a=\"2\" d=\"4\"/>\n");
    DOMBasedBuffer::setElementProperties(b, PropertyCollection());
    EXPECT_TRUE(b->get_attributes().empty());
}

TEST(DOMBasedBuffer, RewritesShorthandsInTheWholeTree) {
    MarkedDocument buffer(
        L"<T margin=\"0pt\" border-top-style=\"none\"><D fo:padding=\"1pt 2pt\"/></T>");
    Part part(buffer);
    part.expandShorthands();
    const Xml::Element* body =
        DOMBasedBuffer::getElementByName(part.fragment().root(), "table-body");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(body, "padding-left", "fo"), L"2pt");
    part.collapseShorthands(false);
    part.commitChangesToEditableBuffer();
    EXPECT_EQ(buffer.flow(), writtenOut<wchar_t>(L"<T margin=\"0pt\" border-top-style=\"none\">\n"
                                                 L"<D padding=\"1pt 2pt\"/></T>"));
    part.expandShorthands();
    part.collapseShorthands(true);
    part.commitChangesToEditableBuffer();
    EXPECT_EQ(buffer.flow(), writtenOut<wchar_t>(L"<T>\n<D padding=\"1pt 2pt\"/></T>"));
}

} // namespace
