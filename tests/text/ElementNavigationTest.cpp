#include "foundation/Wide.h"
#include "text/XmlProbe.h"

#include <gtest/gtest.h>

using Core::String;

TEST(ElementNavigation, CurrentElement) {
    const XmlProbe xml(L"<r a=\"1\"><b>ab<b/><!-- c --><b>x</b>&amp;</b></r>\n");
    const int x = xml.at(L"x</b>");
    EXPECT_EQ(wide(xml.getCurrentElementStartTagString(xml.at(L"<b>"))), L"r a=\"1\"");
    EXPECT_EQ(xml.getLastPositionInElementContaining(x), x + 1);
    EXPECT_EQ(wide(xml.getParentElementName(x)), L"b");
}

TEST(ElementNavigation, CurrentElementInAFragment) {
    const String atStart = L"<a>x<!-- <i> -->y<b>z</b></a>", section = L" <a><![CDATA[x]]> y</a>";
    EXPECT_EQ(XmlProbe::getCurrentElementPosition(3, atStart), 0);
    EXPECT_EQ(wide(XmlProbe::getCurrentElementName(3, atStart)), L"");
    // Only a CDATA section directly before the position is passed over.
    EXPECT_EQ(XmlProbe::getCurrentElementPosition(16, section), 1);
    EXPECT_EQ(XmlProbe::getCurrentElementPosition(17, section), 4);
    EXPECT_EQ(wide(XmlProbe::getCurrentElementName(17, section)), L"a");
    // The markup in a comment counts.
    EXPECT_EQ(XmlProbe::getCurrentElementPosition(16, atStart), atStart.find(L"<i>", 0));
}

TEST(ElementNavigation, Ancestors) {
    const XmlProbe xml(L"<o><r><t:a i='1'><b><t:a i='2'><b><b>x</b></b></t:a></b></t:a></r></o>");
    const int x = xml.at(L"x"), outer = xml.at(L"<t:a i='1'"), inner = xml.at(L"<t:a i='2'");
    EXPECT_EQ(xml.searchParent(L"t:a", x, false, true, L""), inner);
    EXPECT_EQ(xml.searchParent(L"t:a", x, true, true, L""), outer);
    EXPECT_EQ(xml.searchParent(L"a", x, true, false, L""), outer);
    EXPECT_EQ(xml.searchParent(L"t:a", x, true, true, L"t:a"), inner) << "the stop itself counts";
    EXPECT_EQ(xml.searchParent(L"t:a", x, false, true, L"b"), -1);
    EXPECT_EQ(xml.searchParent(L"o", x, false, true, L""), -1) << "the root ends the climb";
    EXPECT_EQ(xml.searchFirstParent({L"t:a", L"r"}, x, true, true, L""), xml.at(L"<r>"));
    EXPECT_FALSE(xml.isInElementContext(L"t:a", outer));

    EXPECT_EQ(xml.getParentElementPosition(x), x - 3) << "a block in a block answers itself";
    EXPECT_EQ(xml.getParentElementPosition(x - 3), inner);
    EXPECT_TRUE(xml.elementContainsPosition(outer, outer + 1));
    EXPECT_FALSE(xml.elementContainsPosition(outer, xml.at(L"</t:a></r>")));
}

TEST(ElementNavigation, Flows) {
    const XmlProbe xml(L"<r><fo:static-content>s</fo:static-content><fo:static-content>t"
                       L"</fo:static-content><fo:flow>f<fo:list-item-label>l</fo:list-item-label>"
                       L"<fo:table></fo:table></fo:flow>x<fo:flow>g</fo:flow></r>");
    const int s = xml.at(L"s</"), t = xml.at(L"t</"), f = xml.at(L"f<fo"), l = xml.at(L"l</");
    const int x = xml.at(L"x<"), g = xml.at(L"g</");
    EXPECT_TRUE(xml.isInFoFlow(l) && xml.inListItemLabel(l) && !xml.inListItemLabel(f));
    EXPECT_TRUE(xml.positionsAreInSameFlowTypes(f, g) && xml.positionsAreInSameFlowTypes(s, x));
    EXPECT_FALSE(xml.positionsAreInTheSameElement(L"fo:flow", f, g));
    EXPECT_FALSE(xml.positionsAreInTheSameStaticContent(s, t));
    EXPECT_TRUE(xml.positionsAreInTheSameFlowElement(f, xml.at(L"</fo:flow>")));
    EXPECT_FALSE(xml.positionsAreInTheSameFlowElement(f, xml.at(L"</fo:flow>") + 1));
    EXPECT_TRUE(xml.beforeFOTable(xml.at(L"<fo:table>")) && !xml.beforeFOTable(xml.at(L"</fo:t")));
    EXPECT_TRUE(xml.afterFOTable(xml.at(L"</fo:flow>")) && !xml.afterFOTable(x));
}

TEST(ElementNavigation, ElementsInDocumentOrder) {
    const XmlProbe xml(L"<r><b>1<c/></b><!-- --></b><?p?><!-- <i> --><d>2</d></r><e/>");
    const int b = xml.at(L"<b"), c = xml.at(L"<c"), d = xml.at(L"<d");
    EXPECT_EQ(xml.getNextElementPosition(0), b);
    EXPECT_EQ(xml.getNextElementPosition(c), d) << "a closing tag behind a comment is no answer";
    EXPECT_EQ(xml.getNextElementPosition(d), -1) << "nothing lies behind the root";
    EXPECT_EQ(XmlProbe(xml.text(), L"").getNextElementPosition(d), xml.at(L"<e/>"));
    EXPECT_EQ(wide(xml.getNextElementName(xml.at(L"<?p"))), L"d");
    EXPECT_EQ(wide(xml.getNextElementName(xml.at(L"1"))), L"");

    EXPECT_EQ(xml.getPreviousElementPosition(xml.at(L"2")), c);
    EXPECT_EQ(xml.getNextElementByName(L"d", d), -1);
    EXPECT_EQ(xml.getFirstElementByName({L"d", L"c"}, 0), c);
    EXPECT_EQ(xml.getPreviousElementByName(L"/b", d), xml.at(L"</b><?p"));
}

TEST(ElementNavigation, ChildrenAndSiblings) {
    const XmlProbe xml(L"<r><b>text</b><c><b><d/></b>x<d/></c></r>");
    const int b = xml.at(L"<b"), c = xml.at(L"<c"), d = xml.at(L"x<d/>") + 1;
    EXPECT_EQ(xml.getFirstChildPosition(0), b);
    EXPECT_EQ(xml.getFirstChildPosition(b), xml.at(L"</b>"));
    for (int childless : {d, xml.at(L"</c>"), b + 1, -1})
        EXPECT_EQ(xml.getFirstChildPosition(childless), -1) << childless;
    EXPECT_EQ(xml.getNextChildByName(L"d", c), d) << "not the child of a child";
    const int inner = xml.at(L"<b><d");
    EXPECT_EQ(xml.getSiblingElement(inner), d);
    EXPECT_EQ(xml.getNextSiblingElementPos(xml.at(L"<d/></b>")), d) << "this leaves the parent";
    EXPECT_EQ(xml.getSiblingElement(xml.at(L"<d/></b>")), -1);
}

TEST(ElementNavigation, Neighbours) {
    const XmlProbe xml(L"<r><b><b>1</b></b><!-- <i> --> <e/> <!-- --> <c>2</c>3<d>4</d><f/>5</r>");
    const int b = xml.at(L"<b"), e = xml.at(L"<e"), c = xml.at(L"<c"), d = xml.at(L"<d");
    EXPECT_EQ(xml.getPreviousNeighborPosition(c + 3, true), e);
    EXPECT_EQ(xml.getPreviousNeighborPosition(e, false), b);
    EXPECT_EQ(xml.getPreviousNeighborPosition(e, true), -1) << "from the parent";
    EXPECT_EQ(wide(xml.getPreviousNeighborName(d + 3, false)), L"c");

    EXPECT_EQ(xml.getNextNeighborPosition(e, false), c);
    EXPECT_EQ(xml.getNextNeighborPosition(c + 3, true), -1) << "text follows";
    EXPECT_EQ(xml.getNextNeighborPosition(xml.at(L"1"), false), xml.at(L"</b></b>") + 4);
}

TEST(ElementNavigation, Paths) {
    const XmlProbe xml(L"<?xml?><r><b><c:d>x</c:d></b><b>y</b></r>\n");
    const int x = xml.at(L"x<"), b = xml.at(L"<b");
    for (const XmlProbe& each : {xml, XmlProbe(xml.text(), L"")}) {
        EXPECT_EQ(wide(each.getElementPath(x)), L"/r/b/c:d");
        EXPECT_EQ(each.getElementPositionFromPath(L"/r/b/c:d", x), x - 5);
        EXPECT_EQ(each.getElementPositionFromPath(L"/r/b", x), b);
        EXPECT_EQ(each.getElementPositionFromPath(L"/r", x), xml.at(L"<r>"));
        EXPECT_EQ(each.getElementPositionFromPath(L"/r/c", x), -1);
        EXPECT_EQ(each.getElementPositionFromPath(L"/r/b", xml.at(L"y")), xml.at(L"<b>y"));
    }
    EXPECT_EQ(wide(xml.getPathForPosition(x)), L"/r/b/c:d");
    EXPECT_EQ(wide(xml.getPathForPosition(b)), L"/r");
    EXPECT_EQ(wide(xml.getPathToParent(L"/a/b/c/b/d", L"b")), L"/a/b/c/b");
}

TEST(ElementNavigation, Namespaces) {
    const XmlProbe xml(L"<r xmlns='d' xmlns:fo='1' xmlns:a=\"2\"><b i='j' xmlns:FO=\"3\"/>"
                       L"<b i='j' xmlns:FO=\"3\"><c/>x</b></r>");
    const int x = xml.at(L"x</b");
    const std::set<String> around = xml.getNamespacesFromAllContainers(x);
    EXPECT_EQ(wide(xml.namespaceSetToString(around)), L" xmlns:FO=\"3\" xmlns:a=\"2\"");
    EXPECT_EQ(wide(xml.namespaceSetToString(xml.getNamespacesFromElementAt(0))),
              L" xmlns:a=\"2\" xmlns:fo=\"1\"");
    EXPECT_TRUE(xml.namespaceIsDefined(L"XMLNS:fo=\"9\"", around));
}

TEST(ElementNavigation, Placeholders) {
    const XmlProbe just(L"<r> &#x00A0;\n</r> ", L""), unit(L"<r>\xA0 </r> ", L"");
    const XmlProbe two(L"<r>&#x00A0;\xA0</r>"), more(L"<r>&#x00A0;<b/>a  </r> ");
    EXPECT_TRUE(just.elementContainsJustNonBreakingSpace(0));
    EXPECT_TRUE(unit.elementContainsJustNonBreakingSpace(0));
    for (const XmlProbe& no : {two, more, XmlProbe(L"<r/>"), XmlProbe(L"<r> </r>"), XmlProbe(L"a")})
        EXPECT_FALSE(no.elementContainsJustNonBreakingSpace(0)) << wide(no.text());
    EXPECT_TRUE(just.isNbspFollowedByCloseElement(4) && !just.isNbspFollowedByCloseElement(3));
    EXPECT_TRUE(two.isNbspFollowedByCloseElement(11) && !two.isNbspFollowedByCloseElement(3));
    EXPECT_TRUE(unit.nbspFollowedByWspaceAndElementCloseTagAt(3));
    EXPECT_FALSE(more.nbspFollowedByWspaceAndElementCloseTagAt(3));

    EXPECT_TRUE(more.isLastValidWhiteSpaceBeforeElementClosed(more.at(L"  <")));
    EXPECT_FALSE(more.isLastValidWhiteSpaceBeforeElementClosed(more.at(L" <")));
    EXPECT_EQ(two.getNonBreakingSpacePosition(3), 11);
}
