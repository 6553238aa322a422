#include "foundation/Wide.h"
#include "text/XmlProbe.h"

#include <gtest/gtest.h>

using Core::String;

namespace {

using Pieces = std::vector<std::wstring>;

Pieces stepsForward(const XmlProbe& xml) {
    Pieces pieces;
    for (int from = 0, to; (to = xml.getNextEditablePositionInXml(from)) >= 0; from = to)
        pieces.emplace_back(xml.text().view().substr(from, to - from));
    return pieces;
}

} // namespace

// ScanProperties walks backward, too.
TEST(TagScan, OneStepIsOneUnit) {
    const XmlProbe xml(L"<r>a&amp;;b;<e k=\"a>b\" l='\"'/><?p ?>&#x00A0;c<!-- > --></r>\n");
    const Pieces units = {
        L"<r>",    L"a",        L"&amp;", L";",          L"b",    L";", L"<e k=\"a>b\" l='\"'/>",
        L"<?p ?>", L"&#x00A0;", L"c",     L"<!-- > -->", L"</r>", L"\n"};
    EXPECT_EQ(stepsForward(xml), units);
    const XmlProbe section(L"<r>a<![CDATA[<x>]]>b</r>\n");
    EXPECT_EQ(stepsForward(section),
              (Pieces{L"<r>", L"a", L"<![CDATA[<x>]]>", L"b", L"</r>", L"\n"}));
}

TEST(TagScan, ADocumentTypeIsOneUnitAndNoElement) {
    const std::wstring type = L"<!DOCTYPE r [<!ENTITY e \"]\"><!-- don't ]> --><?p ]> ?>]>";
    const XmlProbe xml(Core::String(type + L"<r>isn't</r>\n"), L"");
    const int root = xml.at(L"<r>");
    EXPECT_EQ(stepsForward(xml),
              (Pieces{type, L"<r>", L"i", L"s", L"n", L"'", L"t", L"</r>", L"\n"}));
    EXPECT_EQ(xml.getPreviousEditablePositionInXml(root), 0);
    EXPECT_EQ(xml.getPreviousTagPosition(root), 0);
    EXPECT_EQ(xml.getCurrentElementPosition(root), -1);
    EXPECT_EQ(xml.getCurrentElementPosition(root + 3), root);
}

TEST(TagScan, WhereStepsEnd) {
    const XmlProbe fo(L"<fo:root>a</fo:root>\n", L"fo:root");
    EXPECT_EQ(fo.getNextEditablePositionInXml(fo.at(L"</")), -1);
    EXPECT_EQ(XmlProbe(L"a&amp;").getNextEditablePositionInXml(1), -1);
    EXPECT_EQ(XmlProbe(L"a&amp; ").getNextEditablePositionInXml(1), 6);
    EXPECT_EQ(XmlProbe(L"a<b c='>").getNextEditablePositionInXml(1), -1);
    EXPECT_EQ(XmlProbe(L"ab;").getPreviousEditablePositionInXml(3), -1);
}

TEST(TagScan, StepsInAFragmentDifferOnlyInSections) {
    const String comment = L"a<!--b-->", tight = L"<!-->a", open = L"ab<!-- ";
    EXPECT_EQ(XmlProbe::getNextEditablePositionInXml(1, comment), comment.length());
    EXPECT_EQ(XmlProbe::getNextEditablePositionInXml(0, tight), 5);
    EXPECT_EQ(XmlProbe(tight).getNextEditablePositionInXml(0), -1);
    EXPECT_EQ(XmlProbe::getNextEditablePositionInXml(2, open), -1);
    const String cdata = L" <a>b<![CDATA[c</a>";
    EXPECT_EQ(XmlProbe::getNextEditablePositionInXml(5, cdata), 2);
    // A walk over it ends all the same.
    EXPECT_EQ(XmlProbe::getClosingTagForTagAtPosition(1, cdata), -1);
}

TEST(TagScan, NextAndPreviousTag) {
    const XmlProbe xml(L"<r><!-- <a> -->x<![CDATA[<a>]]><?p q?><b c=''>y</b></r>");
    const int b = xml.at(L"<b");
    EXPECT_EQ(xml.getNextTagPosition(xml.at(L"<!--")), b);
    EXPECT_EQ(xml.getNextTagPosition(b + 1), xml.at(L"</b>"));
    EXPECT_EQ(XmlProbe(L"<r></").getNextTagPosition(3), -1);
    EXPECT_EQ(XmlProbe(L"<r></fo:root> <a>").getNextTagPosition(13), 14);

    EXPECT_EQ(xml.getPreviousTagPosition(xml.at(L">y")), b);
    EXPECT_EQ(xml.getPreviousTagPosition(xml.at(L">y") - 1), xml.at(L"<?p"));
    EXPECT_EQ(XmlProbe::getPreviousTagPosition(xml.at(L"<?p") - 1, xml.text()), xml.at(L"<a>"));
    EXPECT_EQ(XmlProbe::getPreviousTagPosition(xml.at(L"<?p"), xml.text()), xml.at(L"<a>]]>"));
}

TEST(TagScan, Names) {
    const XmlProbe xml(L"<r>a<fo:b\nc=''/><!-- --><?xml ?></fo:d></r");
    const auto name = [&](const wchar_t* tag, bool withPrefix) {
        return wide(xml.getNameForTagAtPosition(xml.at(tag), withPrefix));
    };
    EXPECT_EQ(name(L"<fo:b", true), L"fo:b");
    EXPECT_EQ(name(L"<fo:b", false), L"b");
    EXPECT_EQ(name(L"</fo:d", true), L"/fo:d");
    EXPECT_EQ(name(L"</fo:d", false), L"d");
    EXPECT_EQ(name(L"</r", true), L"");

    EXPECT_EQ(wide(xml.getNextTagName(3)), L"fo:b");
    EXPECT_TRUE(xml.closingElementTagAtPosition(xml.at(L"?></fo")));
    EXPECT_FALSE(xml.closingElementTagAtPosition(3));
    String found = L"old";
    EXPECT_EQ(XmlProbe::getPreviousTagNameAndPosition(xml.at(L"<?xml"), xml.text(), found),
              xml.at(L"<!--"));
}

TEST(TagScan, Pairing) {
    const XmlProbe xml(L"<r><b i='/>'><!-- <b> --><b><b/></b>x</b><!-- <e/> --><?p a/?></r>\n");
    for (const wchar_t* unpaired : {L"</b>", L"<!-- <e/>", L"<?p", L"x</b>"})
        EXPECT_EQ(xml.getClosingTagForTagAtPosition(xml.at(unpaired)), -1) << unpaired;

    // A self-closing child of the same name takes the place of the start tag.
    EXPECT_EQ(xml.getStartTagForTagAtPosition(xml.at(L"</b>x")), xml.at(L"<b/>"));
    EXPECT_EQ(xml.getStartTagForTagAtPosition(xml.at(L"</r>")), -1) << "a start tag at offset 0";
    const XmlProbe last(L" <r></r>");
    EXPECT_EQ(last.getStartTagForTagAtPosition(last.at(L"</r>")), -1) << "the last tag of a text";

    EXPECT_EQ(xml.getClosingTagForTagAtPosition(0), xml.at(L"</r>"));
    EXPECT_EQ(XmlProbe::getClosingTagForTagAtPosition(0, xml.text()), -1);
    const String fragment = L" <b><b/><b></b></b>";
    EXPECT_EQ(XmlProbe::getClosingTagForTagAtPosition(1, fragment), 15);
}

TEST(TagScan, TypesAndExtents) {
    const XmlProbe xml(L"<r><?p?><!--c--><![CDATA[d]]><b>x</b></r>\n");
    const auto check = [&](const wchar_t* whole, XmlElementType type) {
        const int start = xml.at(whole), end = xml.behind(whole);
        EXPECT_EQ(xml.getElementTypeOnStartTagPosition(start), type) << whole;
        EXPECT_EQ(xml.getElementTypeOnEndTagPosition(end - 1), type) << whole;
        EXPECT_EQ(xml.getElementEndPosition(type, start), end) << whole;
        EXPECT_EQ(xml.getElementStartPosition(type, end), start) << whole;
    };
    check(L"<?p?>", xmlProcessingInstruction);
    check(L"<!--c-->", xmlComment);
    check(L"<![CDATA[d]]>", xmlCData);
    EXPECT_EQ(xml.getElementEndPosition(xmlElement, xml.at(L"<b>")), xml.behind(L"</b>"));
    EXPECT_EQ(xml.getElementStartPosition(xmlElement, xml.behind(L"</b>") + 1), xml.at(L"<b>"));
    const XmlProbe stray(L"<r><!--c-->--><?p?>?></r>");
    EXPECT_EQ(stray.getElementTypeOnEndTagPosition(stray.at(L"><?p")), xmlNone);
}

TEST(TagScan, FirstPositionIsBehindTheRootTag) {
    const XmlProbe xml(L"<?xml version='1.0'?>\n<!-- a > b -->\n<r a='>' b=\"'>\">x</r>");
    EXPECT_EQ(xml.getFirstEditablePositionInXml(), xml.at(L"x</r>"));
    EXPECT_EQ(xml.getRootElementPos(), xml.at(L"<r"));
    // A quote in a comment before the root opens a quoted stretch.
    const XmlProbe quoted(L"<!-- it's --><r a='1'>x</r>");
    EXPECT_EQ(quoted.getFirstEditablePositionInXml(), -1);
    for (const wchar_t* none : {L"", L"ab", L"<r>", L"<r a='", L"<?p?> ", L"<"})
        EXPECT_EQ(XmlProbe(none).getFirstEditablePositionInXml(), -1) << none;
}

TEST(TagScan, Attributes) {
    const XmlProbe xml(L"<r a=\"1\"b='' c = '\"=> x'\n\td=\"/\"/>");
    Pieces found;
    for (int at = xml.getNextAttributePosition(0); at >= 0; at = xml.getNextAttributePosition(at))
        found.push_back(
            wide(xml.getNameForAttributeAt(at) + L":" + xml.getValueForAttributeAt(at)));
    EXPECT_EQ(found, (Pieces{L"a:1", L"b:", L"c:\"=> x", L"d:/"}));
    const XmlProbe declaration(L"<?xml version=\"1.0\"?>");
    EXPECT_EQ(declaration.getNextAttributePosition(0), declaration.at(L"version"));
    EXPECT_EQ(declaration.getNextAttributePosition(declaration.at(L"version")), -1);
    EXPECT_EQ(XmlProbe(L"<fo:block>a b").getNextAttributePosition(0), -1);

    int position = 99;
    EXPECT_TRUE(xml.containsAttribute(0, L"d", position) && position == xml.at(L"d="));
    EXPECT_EQ(xml.getNextAttributeValuePosition(xml.at(L"c =")), xml.at(L"\"=>"));
    EXPECT_EQ(wide(XmlProbe(L"<r a='1").getValueForAttributeAt(3)), L"");

    const XmlProbe back(L"<r a=\"1\" bc = '2'\nd='x y=z' e='3'>");
    EXPECT_EQ(back.getPreviousAttributePosition(back.at(L">")), back.at(L"e="));
    // An "=" in a value counts as one between name and value.
    EXPECT_EQ(back.getPreviousAttributePosition(back.at(L"e=")), back.at(L"y=z"));
    EXPECT_EQ(back.getPreviousAttributePosition(back.at(L"d=")), back.at(L"bc"));
    EXPECT_EQ(back.getPreviousAttributePosition(back.at(L"a=")), -1);
}

TEST(TagScan, PlainText) {
    String plain = L"<a>\t&\"'\r\n\x1\xA0;";
    XmlProbe(L"").convertToValidXMLText(plain);
    EXPECT_EQ(wide(plain), L"&lt;a&gt;\t&amp;&quot;&apos;   \xA0;");

    const XmlProbe xml(L"a&lt;b&x");
    EXPECT_EQ(wide(xml.getEscapeCharacterString(6)), L"&x");
    EXPECT_TRUE(xml.nextContentEquals(L"&x", 6));
    EXPECT_FALSE(xml.nextContentEquals(L"", 8));
    EXPECT_TRUE(XmlProbe::nextContentEquals(L"", xml.text(), 8));
}

TEST(TagScan, InsideATag) {
    const String text = L"<r><!-- < --><b c='1'>x</b><![CDATA[<d]]><?p <e?></r>";
    std::wstring inside;
    for (int at = -2; at < text.length() + 2; ++at)
        if (EditableXmlBuffer::isInsideStartTag(text, at))
            inside += text[at];
    EXPECT_EQ(inside, L"r-b c='1'/b]") << "a section is over within its closing delimiter";
    EXPECT_FALSE(EditableXmlBuffer::isInsideStartTag(L"<a>b", 3));
}
