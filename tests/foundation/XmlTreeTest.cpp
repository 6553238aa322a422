#include "XmlTesting.h"

#include <gtest/gtest.h>

namespace {

using Xml::Attribute;
using Xml::Element;
using Xml::Node;

std::string valueOf(const Element* element, const char* name, const char* prefix) {
    const Attribute* attribute = element->get_attribute(name, prefix);
    return attribute ? narrow(attribute->get_value()) : "absent";
}

TEST(XmlTree, ChildrenAreFoundByLocalNameAndSeenInOrder) {
    auto document = parse("<r><fo:a/>t<b/><x:a/><!--c--></r>");
    Element* root = document->getRootNode();
    EXPECT_EQ(root->get_children("").size(), 5u);
    EXPECT_EQ(root->get_children("a").size(), 2u);
    ASSERT_EQ(root->get_children("x:a").size(), 1u);
    Node* last = root->get_children("x:a").front();
    EXPECT_EQ(narrow(last->get_namespace_prefix()), "x");
    EXPECT_EQ(last->get_parent(), root);
    EXPECT_EQ(root->get_parent(), nullptr);
    EXPECT_EQ(narrow(last->get_previous_sibling()->get_name()), "b");
    EXPECT_FALSE(last->get_next_sibling()->is_text() || last->has_children());
}

TEST(XmlTree, NewElementsStandWhereTheyWereAskedFor) {
    auto document = parse("<r><b/></r>");
    Element* root = document->getRootNode();
    Node* b = root->get_children("b").front();
    root->add_node_as_prev_sibling(b, "a", "fo")->add_child_text("x");
    root->add_child("qf:c");
    root->add_node_as_prev_sibling(b, "m");
    EXPECT_EQ(written(document), "<r>\n<fo:a>x</fo:a><m/><b/><qf:c/></r>\n");
    Node* inner = root->get_children("a").front()->get_children("").front();
    EXPECT_NE(messageOf([&] { root->add_node_as_prev_sibling(inner, "z"); }), "");
    EXPECT_NE(messageOf([&] { inner->add_child("z"); }), "");
    for (const char* name : {"", "a b", "1a", "a>", "fo:"})
        EXPECT_NE(messageOf([&] { root->add_child(name); }), "") << name;
    EXPECT_EQ(root->get_children("").size(), 4u);
}

TEST(XmlTree, RemovingTakesTheSubtreeAndLinksTheNeighbours) {
    auto document = parse("<r><a><x/></a><b/><c/></r>");
    Element* root = document->getRootNode();
    Node* a = root->get_children("a").front();
    Node* c = root->get_children("c").front();
    root->remove_child(a->get_children("x").front()); // a grandchild stays
    root->remove_child(a->get_next_sibling());
    EXPECT_TRUE(a->has_children());
    EXPECT_EQ(a->get_next_sibling(), c);
    EXPECT_EQ(c->get_previous_sibling(), a);
    root->remove_child(c);
    root->remove_child(a);
    root->add_child("again");
    EXPECT_EQ(written(document), "<r>\n<again/></r>\n");
}

TEST(XmlTree, ShallowCopiesHaveTheTagAndDeepOnesEverything) {
    std::string inner = "<a q:i=\"1\" xmlns:q=\"u\">t<![CDATA[d]]><?p x?><b><!--c--></b>e</a>";
    auto source = parse("<s>" + inner + "</s>");
    auto target = parse("<r><m/></r>");
    Node* a = source->getRootNode()->get_children("a").front();
    Element* root = target->getRootNode();
    Node* m = root->get_children("m").front();
    root->import_node_as_prev_sibling(a, m, false);
    root->import_node_as_sibling(a, m, true);
    source = nullptr;
    EXPECT_EQ(written(target), "<r>\n<a q:i=\"1\" xmlns:q=\"u\"/><m/>" + inner + "</r>\n");
}

TEST(XmlTree, AnElementCanTakeACopyOfWhatHoldsItButNoAttribute) {
    auto document = parse("<r><a>t</a></r>");
    Element* root = document->getRootNode();
    Node* a = root->get_children("a").front();
    a->import_node(root, true);
    EXPECT_EQ(written(document), "<r>\n<a>t<r><a>t</a></r></a></r>\n");
    EXPECT_NE(messageOf([&] { a->import_node(root->set_attribute("x", "1"), true); }), "");
    EXPECT_NE(messageOf([&] { root->import_node_as_sibling(a, root, true); }), "");
}

TEST(XmlTree, ARootIsMadeOrImportedInThePlaceOfTheOldOne) {
    SmartPtr<Xml::XmlDocument> document(new Xml::XmlDocument("1.0"));
    EXPECT_EQ(written(document), "");
    document->createRootNode("root", "urn:x", "fo")->add_child("a");
    EXPECT_EQ(written(document), "<fo:root xmlns:fo=\"urn:x\">\n<a/></fo:root>\n");
    auto source = parse("<!--p--><s><t i=\"1\">x</t></s>");
    Node* t = source->getRootNode()->get_children("t").front();
    document->createRootNodeByImport(t, true);
    EXPECT_EQ(written(document), "<t i=\"1\">\nx</t>\n");
    source->createRootNodeByImport(t, false); // a copy of what dies with the old root
    EXPECT_EQ(written(source), "<!--p--><t i=\"1\"/>\n");
    EXPECT_EQ(source->getRootNode()->get_previous_sibling()->get_next_sibling(),
              source->getRootNode());
}

TEST(XmlTree, RenamingKeepsThePrefixAndRetaggingTheName) {
    auto document = parse("<fo:row a=\"1\"/>");
    Element* row = document->getRootNode();
    row->set_name("table-row-repeat");
    EXPECT_EQ(narrow(row->getNSPrefix()), "fo");
    row->set_namespace("qfd");
    row->get_attribute("a")->set_namespace("fo");
    EXPECT_EQ(written(document), "<qfd:table-row-repeat fo:a=\"1\"/>\n");
    row->set_name("fo:table-row");
    row->get_attribute("a")->set_namespace("");
    EXPECT_EQ(written(document), "<fo:table-row a=\"1\"/>\n");
}

TEST(XmlTree, AttributesAreFoundInOneWayByEveryCall) {
    auto document = parse("<fo:b a=\"own\" qf:a=\"qf\" fo:c=\"fo\" qf:d=\"d\"/>");
    Element* element = document->getRootNode();
    EXPECT_EQ(valueOf(element, "a", ""), "own");
    EXPECT_EQ(valueOf(element, "a", "fo"), "own");
    EXPECT_EQ(valueOf(element, "a", "qf"), "qf");
    EXPECT_EQ(valueOf(element, "a", "xf"), "absent");
    EXPECT_EQ(valueOf(element, "c", ""), "fo");
    EXPECT_EQ(valueOf(element, "c", "qf"), "absent");
    EXPECT_EQ(valueOf(element, "qf:d", ""), "d");
    element->set_attribute("d", "D", "");
    element->set_attribute("a", "A", "fo");
    element->set_attribute("e", "E", "qfd");
    EXPECT_EQ(written(document),
              "<fo:b a=\"A\" qf:a=\"qf\" fo:c=\"fo\" qf:d=\"D\" qfd:e=\"E\"/>\n");
    for (const char* prefix : {"fo", ""})
        EXPECT_TRUE(element->remove_attribute("a", prefix));
    EXPECT_FALSE(element->remove_attribute("a", ""));
    EXPECT_EQ(element->get_attributes().size(), 3u);
    EXPECT_NE(messageOf([&] { element->set_attribute("a b", "v"); }), "");
}

TEST(XmlTree, NamespaceDeclarationsAreNoAttributes) {
    auto document = parse("<r a=\"1\" xmlns:q=\"u\" b=\"2\" xmlns=\"d\"/>");
    Element* root = document->getRootNode();
    EXPECT_EQ(root->get_attributes().size(), 2u);
    EXPECT_EQ(root->get_attribute("q", ""), nullptr);
    EXPECT_EQ(root->get_attribute("q", "xmlns"), nullptr);
    EXPECT_EQ(root->get_attribute("xmlns", ""), nullptr);
    EXPECT_FALSE(root->remove_attribute("xmlns:q", ""));
    root->set_attribute("xmlns:q", "v");
    root->set_attribute("z", "w", "xmlns");
    root->set_attribute("q", "3"); // no declaration, so it does not change the one of that name
    EXPECT_EQ(written(document),
              "<r a=\"1\" xmlns:q=\"v\" b=\"2\" xmlns=\"d\" xmlns:z=\"w\" q=\"3\"/>\n");
    std::map<Core::String, Core::String> expected = {{"", "d"}, {"q", "v"}, {"z", "w"}};
    EXPECT_EQ(root->get_namespace_defs(), expected);
}

TEST(XmlTree, ChildTextIsReadReplacedAndExtended) {
    auto document = parse("<r><i/>one<!--c-->two</r>");
    Element* root = document->getRootNode();
    EXPECT_EQ(narrow(root->get_child_text()->get_content()), "one");
    root->set_child_text("a < b");
    const Xml::TextNode* const extended = root->add_child_text("x");
    EXPECT_EQ(root->add_child_text("y"), extended);
    EXPECT_EQ(written(document), "<r>\n<i/>a &lt; b<!--c-->xy</r>\n");
    root->set_child_text("");
    EXPECT_EQ(written(document), "<r>\n<i/><!--c--></r>\n");
    EXPECT_EQ(messageOf([&] { root->set_child_text(L"ab\x1"); }),
              "character 2: U+0001 is not allowed in XML");

    auto section = parse("<r><![CDATA[a<b]]></r>");
    Xml::TextNode* text = section->getRootNode()->get_child_text();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(narrow(text->get_content()), "a<b");
    text->set_content("x]]>y");
    EXPECT_EQ(written(section), "<r>\n<![CDATA[x]]]]><![CDATA[>y]]></r>\n");
}

TEST(XmlTree, DepthCostsNeitherStackToCopyNorToWriteNorToDestroy) {
    SmartPtr<Xml::XmlDocument> document(new Xml::XmlDocument);
    Element* element = document->createRootNode("a");
    constexpr int depth = 300000;
    for (int i = 1; i < depth; ++i)
        element = element->add_child("a");
    SmartPtr<Xml::XmlDocument> copy(new Xml::XmlDocument);
    copy->createRootNodeByImport(document->getRootNode(), true);
    document = nullptr;
    EXPECT_EQ(written(copy).size(), (depth - 1) * std::string_view("<a></a>").size() + 6);
}

} // namespace
