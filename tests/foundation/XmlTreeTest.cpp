#include "XmlTesting.h"
#include "properties/RandomCommands.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>
#include <vector>

namespace {

using Xml::Attribute;
using Xml::Element;
using Xml::Node;

/// A document with its root and the root's children by their names.
struct Tree {
    explicit Tree(std::string_view text) : document(parse(text)), root(document->getRootNode()) {}
    Node* operator[](const char* name) const { return root->get_children(name).front(); }

    SmartPtr<Xml::XmlDocument> document;
    Element* root;
};

TEST(XmlTree, NewElementsStandWhereTheyWereAskedFor) {
    const Tree tree("<r><b/></r>");
    tree.root->add_node_as_prev_sibling(tree["b"], "a", "fo")->add_child_text("x");
    tree.root->add_child("qf:c");
    tree.root->add_node_as_prev_sibling(tree["b"], "m");
    Node* text = tree["a"]->get_children("").front();
    EXPECT_NE(messageOf([&] { tree.root->add_node_as_prev_sibling(text, "z"); }), "");
    EXPECT_NE(messageOf([&] { text->add_child("z"); }), "");
    for (const char* name : {"", "a b", "1a", "a>", "fo:"})
        EXPECT_NE(messageOf([&] { tree.root->add_child(name); }), "") << name;
    EXPECT_EQ(written(tree.document), "<r>\n<fo:a>x</fo:a><m/><b/><qf:c/></r>\n");
}

TEST(XmlTree, ShallowCopiesHaveTheTagAndDeepOnesEverything) {
    const std::string inner =
        "<a q:i=\"1\" xmlns:q=\"u\">t<![CDATA[d]]><?p x?><b><!--c--></b>e</a>";
    const Tree target("<r><m/></r>");
    Node* m = target["m"];
    {
        const Tree source("<s>" + inner + "</s>");
        target.root->import_node_as_prev_sibling(source["a"], m, false);
        target.root->import_node_as_sibling(source["a"], m, true);
    }
    EXPECT_EQ(written(target.document), "<r>\n<a q:i=\"1\" xmlns:q=\"u\"/><m/>" + inner + "</r>\n");
}

TEST(XmlTree, AnElementCanTakeACopyOfWhatHoldsItButNoAttribute) {
    const Tree tree("<r><a>t</a></r>");
    tree["a"]->import_node(tree.root, true);
    EXPECT_EQ(written(tree.document), "<r>\n<a>t<r><a>t</a></r></a></r>\n");
    Attribute* attribute = tree.root->set_attribute("x", "1");
    EXPECT_NE(messageOf([&] { tree["a"]->import_node(attribute, true); }), "");
    EXPECT_NE(messageOf([&] { tree.root->import_node_as_sibling(tree["a"], tree.root, true); }),
              "");
}

TEST(XmlTree, ARootIsMadeOrImportedInThePlaceOfTheOldOne) {
    SmartPtr<Xml::XmlDocument> document(new Xml::XmlDocument("1.0"));
    EXPECT_EQ(written(document), "");
    document->createRootNode("root", "urn:x", "fo")->add_child("a");
    EXPECT_EQ(written(document), "<fo:root xmlns:fo=\"urn:x\">\n<a/></fo:root>\n");
    const Tree source("<!--p--><s><t i=\"1\">x</t></s>");
    document->createRootNodeByImport(source["t"], true);
    EXPECT_EQ(written(document), "<t i=\"1\">\nx</t>\n");
    // A copy of what dies with the old root
    source.document->createRootNodeByImport(source["t"], false);
    EXPECT_EQ(written(source.document), "<!--p--><t i=\"1\"/>\n");
    const Element* root = source.document->getRootNode();
    EXPECT_EQ(root->get_previous_sibling()->get_next_sibling(), root);
}

TEST(XmlTree, AttributesAreFoundInOneWayByEveryCall) {
    auto document = parse("<fo:b a=\"own\" qf:a=\"qf\" fo:c=\"fo\" qf:d=\"d\"/>");
    Element* element = document->getRootNode();
    for (const auto& [name, prefix, value] :
         {std::tuple("a", "", "own"), std::tuple("a", "fo", "own"), std::tuple("a", "qf", "qf"),
          std::tuple("a", "xf", "absent"), std::tuple("c", "", "fo"),
          std::tuple("c", "qf", "absent"), std::tuple("qf:d", "", "d")}) {
        const Attribute* attribute = element->get_attribute(name, prefix);
        EXPECT_EQ(attribute ? narrow(attribute->get_value()) : "absent", value) << prefix << name;
    }
    element->set_attribute("d", "D", "");
    element->set_attribute("c", "C", "");
    element->set_attribute("a", "A", "fo");
    element->set_attribute("e", "E", "qfd");
    EXPECT_EQ(written(document),
              "<fo:b a=\"A\" qf:a=\"qf\" fo:c=\"C\" qf:d=\"d\" d=\"D\" qfd:e=\"E\"/>\n");
    for (const char* prefix : {"fo", ""})
        EXPECT_TRUE(element->remove_attribute("a", prefix));
    EXPECT_FALSE(element->remove_attribute("a", ""));
    EXPECT_EQ(element->get_attributes().size(), 4u);
    EXPECT_NE(messageOf([&] { element->set_attribute("a b", "v"); }), "");
}

// Among many, which are looked up, each is what it is by itself.
TEST(XmlTree, AttributesAreFoundInTheSameWayWhenThereAreMany) {
    Random random(1);
    const Tree few("<fo:r/>"), many("<fo:r/>");
    const std::vector<const char*> names{"a", "b", "fo:a", "q:a", "xmlns:a", "q:b"};
    for (int step = 0; step < 2000; ++step) {
        const Core::String name = random.oneOf(names), prefix = random.oneIn(2) ? "fo" : "";
        const Core::String value = Core::String::formatS(step), other = random.oneIn(2) ? "a" : "b";
        if (step % 20 == 0)
            many.root->set_attribute(L"filler" + value, "-");
        const auto change = random.below(20);
        std::set<std::string> answers;
        for (Element* element : {few.root, many.root}) {
            Attribute* const found = element->get_attribute(name, prefix);
            std::string answer = found ? narrow(found->get_value()) : "none";
            if (found && change == 0)
                found->set_name(other);
            else if (found && change == 1)
                found->set_namespace(prefix);
            else if (change < 10)
                element->set_attribute(name, value, prefix);
            else
                element->remove_attribute(name, prefix);
            for (const Attribute* attribute : element->get_attributes())
                if (attribute->get_value() != L"-")
                    answer += narrow(L" " + attribute->get_namespace_prefix() + L":" +
                                     attribute->get_name() + L"=" + attribute->get_value());
            answers.insert(answer);
        }
        ASSERT_EQ(answers.size(), 1u) << testing::PrintToString(answers);
    }
}

TEST(XmlTree, NamespaceDeclarationsAreNoAttributes) {
    auto document = parse("<r a=\"1\" xmlns:q=\"u\" b=\"2\" xmlns=\"d\"/>");
    Element* root = document->getRootNode();
    EXPECT_EQ(root->get_attributes().size(), 2u);
    EXPECT_FALSE(root->get_attribute("q", "") || root->get_attribute("q", "xmlns") ||
                 root->get_attribute("xmlns", ""));
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
