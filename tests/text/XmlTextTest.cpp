#include "text/XmlText.h"

#include "text/Markup.h"
#include "text/XmlTexts.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <set>
#include <utility>

using Core::String;
using XmlScan::Source;

namespace {

using Rows = std::initializer_list<const wchar_t*>;

/// Checks where a question about the position `|` leads: to `^`, or nowhere.
template <typename Question>
void expectPositions(Question question, Rows rows, const wchar_t* root = L"r") {
    for (const wchar_t* row : rows) {
        const MarkedText marked(row, root);
        EXPECT_EQ(std::invoke(question, marked.text, marked.asked), marked.answer) << row;
    }
}

/// Checks what a question about the position `|` is answered.
template <typename Question>
void expectTexts(Question question,
                 std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> rows) {
    for (const auto& [row, answer] : rows) {
        const MarkedText marked(row);
        EXPECT_EQ(wide(String(std::invoke(question, marked.text, marked.asked))), answer) << row;
    }
}

/// Checks that a question leads from the start on from each `|` to the next.
template <typename Question>
void expectWay(Question question, const std::wstring& marked, const wchar_t* root = L"r") {
    std::wstring way = marked;
    std::erase(way, L'|');
    const XmlText text = xmlText(String(way), root);
    int marks = 0;
    for (int at = std::invoke(question, text, 0); at >= 0; at = std::invoke(question, text, at))
        way.insert(static_cast<std::size_t>(at + marks++), L"|");
    EXPECT_EQ(way, marked);
}

/// A question answered by yes, the position itself, or no.
template <typename Question>
auto whether(Question question) {
    return [question](const XmlText& text, int at) {
        return std::invoke(question, text, at) ? at : -1;
    };
}

template <typename Scan>
auto inFragment(Scan scan) {
    return [scan](const XmlText& text, int at) {
        return scan(text.content().view(), at, Source::Fragment);
    };
}

} // namespace

// ScanProperties walks backward, too.
TEST(XmlText, OneStepIsOneUnit) {
    expectWay(&XmlText::next, L"<r>|a|&amp;|;|b|;|<e k=\"a>b\" l='\"'/>|<?p ?>|&#x00A0;|c|"
                              L"<!-- > -->|<![CDATA[<x>]]>|</r>|\n|");
    expectPositions(&XmlText::next, {L"<fo:root>a|</fo:root>\n", L"a|&amp;", L"a|&amp;^ ",
                                     L"a|<b c='>", L"|<!-->a"});
    expectPositions(&XmlText::previous, {L"ab;|"});
    expectPositions(inFragment(XmlScan::stepForward),
                    {L"a|<!--b-->^", L"|<!-->^a", L"ab|<!-- ", L" <^a>b|<![CDATA[c</a>"});
}

TEST(XmlText, ADocumentTypeIsOneUnitAndNoElement) {
    const std::wstring type = L"<!DOCTYPE r [<!ENTITY e \"]\"><!-- don't ]> --><?p ]> ?>]>";
    expectWay(&XmlText::next, type + L"|<r>|i|s|n|'|t|</r>|\n|", L"");
    for (const auto question : {&XmlText::previous, &XmlText::previousTag})
        expectPositions(question, {(L"^" + type + L"|<r>isn't</r>\n").c_str()}, L"");
    expectPositions(&XmlText::elementAround,
                    {(type + L"|<r>isn't</r>\n").c_str(), (type + L"^<r>|isn't</r>\n").c_str()});
}

TEST(XmlText, Tags) {
    expectPositions(&XmlText::nextTag,
                    {L"<r>|<!-- <a> -->x<![CDATA[<a>]]><?p q?>^<b c=''>y</b></r>",
                     L"<r><|b c=''>y^</b></r>", L"<r>|</", L"<r></fo:root>| ^<a>"});
    expectPositions(&XmlText::previousTag,
                    {L"<r><?p q?>^<b c=''|>y</b></r>", L"<r>^<?p q?><b c='|'>y</b></r>"});
    expectPositions(inFragment(XmlScan::previousTag),
                    {L"<r><!-- ^<a> -->x<![CDATA[<a>]]|><?p q?></r>",
                     L"<r><!-- <a> -->x<![CDATA[^<a>]]>|<?p q?></r>"});
    expectTexts(&XmlText::nameAt, {{L"<r>a|<fo:b\nc=''/></r>", L"fo:b"},
                                   {L"<r>a|</fo:d></r>", L"/fo:d"},
                                   {L"<r>a|</r", L""}});
    expectTexts(&XmlText::localNameAt, {{L"<r>|<fo:b\nc=''/>", L"b"}, {L"<r>|</fo:d>", L"d"}});
    expectTexts(&XmlText::nextTagName, {{L"<r>|a<fo:b\nc=''/></r>", L"fo:b"}});
    expectPositions(whether(&XmlText::closingTagFollows),
                    {L"<r><?xml |^?></fo:d></r>", L"<r>|a<fo:b/></r>"});
}

TEST(XmlText, PairsOfTags) {
    expectPositions(&XmlText::closingTag,
                    {L"<r><b>|</b></r>", L"<r>|<!-- <e/> --></r>", L"<r>|<?p a/?></r>",
                     L"<r><b>|x</b></r>", L"|<r><b i='/>'><!-- <b> --><b/></b>^</r>\n"});
    // A self-closing child of the same name takes the place of the start tag; a start tag at the
    // start and a closing tag at the end of a text are not found.
    expectPositions(&XmlText::startTag,
                    {L"<r><b>^<b/>|</b>x</r>", L"<r><b></b>|</r>\n", L" <r>|</r>"});
    expectPositions(inFragment(XmlScan::closingTag),
                    {L" |<b><b/><b></b>^</b>", L"|<r><b></b></r>", L" |<a>b<![CDATA[c</a>"});
}

TEST(XmlText, KindsAndTheirExtents) {
    const XmlText text = xmlText(L"<r><?p?><!--c--><![CDATA[d]]><b>x</b></r>\n");
    for (const auto& [whole, kind] :
         {std::pair(L"<?p?>", xmlProcessingInstruction), std::pair(L"<!--c-->", xmlComment),
          std::pair(L"<![CDATA[d]]>", xmlCData)}) {
        const int start = at(text, whole), end = behind(text, whole);
        EXPECT_EQ(text.kindBeginningAt(start), kind) << whole;
        EXPECT_EQ(text.kindEndingAt(end - 1), kind) << whole;
        EXPECT_EQ(text.kindEnd(kind, start), end) << whole;
        EXPECT_EQ(text.kindStart(kind, end), start) << whole;
    }
    EXPECT_EQ(text.kindEnd(xmlElement, at(text, L"<b>")), behind(text, L"</b>"));
    EXPECT_EQ(text.kindStart(xmlElement, behind(text, L"</b>") + 1), at(text, L"<b>"));
    const MarkedText stray(L"<r><!--c-->--|><?p?>?></r>");
    EXPECT_EQ(stray.text.kindEndingAt(stray.asked), xmlNone);
}

TEST(XmlText, TheFirstPositionIsBehindTheRootTag) {
    const auto first = [](const XmlText& text, int) { return text.firstPositionInRoot(); };
    // A quote in a comment before the root opens a quoted stretch.
    expectPositions(first, {L"<?xml version='1.0'?>\n<!-- a > b -->\n<r a='>' b=\"'>\">^x</r>",
                            L"<!-- it's --><r a='1'>x</r>", L"", L"ab", L"<r>", L"<r a='",
                            L"<?p?> ", L"<"});
    expectPositions([](const XmlText& text, int) { return text.root(); },
                    {L"<?xml version='1.0'?>\n<!-- a > b -->\n^<r a='>' b=\"'>\">x</r>"});
}

TEST(XmlText, Attributes) {
    expectWay(&XmlText::nextAttribute, L"<r |a=\"1\"|b='' |c = '\"=> x'\n\t|d=\"/\"/>");
    expectWay(&XmlText::nextAttribute, L"<?xml |version=\"1.0\"?>");
    expectWay(&XmlText::nextAttribute, L"<fo:block>a b");
    // An "=" in a value counts as one between name and value.
    expectPositions(&XmlText::previousAttribute,
                    {L"<r a=\"1\" d='x y=z' ^e='3'|>", L"<r a=\"1\" d='x ^y=z' |e='3'>",
                     L"<r a=\"1\" ^bc = '2'\n|d='x'>", L"<r |a=\"1\" e='3'>"});
    expectPositions(&XmlText::findQuote, {L"<r |c = ^'\"=> x'>"});
    expectTexts(&XmlText::attributeName, {{L"<r |a=\"1\"b=''>", L"a"}, {L"<r |c = '\"'>", L"c"}});
    expectTexts(&XmlText::attributeValue, {{L"<r |a=\"1\"b=''>", L"1"},
                                           {L"<r |b=''c='1'>", L""},
                                           {L"<r |c = '\"=> x'>", L"\"=> x"},
                                           {L"<r |d=\"/\"/>", L"/"},
                                           {L"<r |a='1", L""}});
}

TEST(XmlText, TheElementAround) {
    expectTexts(&XmlText::startTagAround, {{L"<r a=\"1\">|<b>ab</b></r>\n", L"r a=\"1\""}});
    expectPositions(&XmlText::closingTagAround, {L"<r><b><b/><!-- c --><b>|x^</b>&amp;</b></r>\n"});
    expectTexts(&XmlText::parentName, {{L"<r><b><b>|x</b></b></r>", L"b"}});
    // In a fragment only a CDATA section directly before the position is passed over, and the
    // markup in a comment counts.
    expectPositions(inFragment([](XmlScan::Text text, int at, Source source) {
                        return XmlScan::currentElement(text, at, source);
                    }),
                    {L"^<a>|x<b>z</b></a>", L" ^<a><![CDATA[x]]|> y</a>",
                     L" <a>^<![CDATA[x]]>| y</a>", L"<a>x<!-- ^<i> -->|y<b>z</b></a>"});
    const auto fragmentName = [](const XmlText& text, int at) {
        return String(XmlScan::fragmentElementName(text.content().view(), at));
    };
    expectTexts(fragmentName, {{L"<a>|x</a>", L""}, {L" <a><![CDATA[x]]>| y</a>", L"a"}});
}

TEST(XmlText, Ancestors) {
    const XmlText text =
        xmlText(L"<o><r><t:a i='1'><b><t:a i='2'><b><b>x</b></b></t:a></b></t:a></r></o>");
    const int x = at(text, L"x"), outer = at(text, L"<t:a i='1'"), inner = at(text, L"<t:a i='2'");
    EXPECT_EQ(text.ancestor(x, L"t:a"), inner);
    EXPECT_EQ(text.outermostAncestor(x, L"t:a"), outer);
    EXPECT_EQ(text.searchAncestor(x, {L"a"}, {true, false, L""}), outer);
    EXPECT_EQ(text.searchAncestor(x, {L"t:a"}, {true, true, L"t:a"}), inner) << "the stop counts";
    EXPECT_EQ(text.localAncestor(x, L"a"), inner);
    EXPECT_EQ(text.ancestorWithin(x, L"t:a", L"b"), -1);
    EXPECT_EQ(text.ancestor(x, L"o"), -1) << "the root ends the climb";
    EXPECT_EQ(text.outermostAncestor(x, words(L"t:a r")), at(text, L"<r>"));
    EXPECT_FALSE(text.isWithin(outer, L"t:a"));
    EXPECT_TRUE(text.elementContains(outer, outer + 1));
    EXPECT_FALSE(text.elementContains(outer, at(text, L"</t:a></r>")));
}

TEST(XmlText, FlowsAndTables) {
    const XmlText text =
        xmlText(L"<r><fo:static-content>s</fo:static-content><fo:static-content>t"
                L"</fo:static-content><fo:flow>f<fo:list-item-label>l</fo:list-item-label>"
                L"</fo:flow>x<fo:flow>g</fo:flow></r>");
    const int s = at(text, L"s</"), t = at(text, L"t</"), f = at(text, L"f<fo");
    const int l = at(text, L"l</"), g = at(text, L"g</"), flowEnd = at(text, L"</fo:flow>");
    EXPECT_TRUE(text.isInFlow(l) && text.isInLabel(l) && !text.isInLabel(f));
    EXPECT_FALSE(text.isInFlow(s) || text.isInFlow(at(text, L"x<")));
    EXPECT_FALSE(text.areInSameElement(L"fo:flow", f, g));
    EXPECT_FALSE(text.areInSameStaticContent(s, t));
    EXPECT_TRUE(text.areInSameRegion(f, flowEnd));
    EXPECT_FALSE(text.areInSameRegion(f, flowEnd + 1));
    expectPositions(whether(&XmlText::isBeforeTable),
                    {L"<r>|^<fo:table></fo:table></r>", L"<r><fo:table>|</fo:table></r>"});
    expectPositions(whether(&XmlText::isBehindTable),
                    {L"<r><fo:table></fo:table>|^</r>", L"<r><fo:flow></fo:flow>|x</r>"});
}

TEST(XmlText, ElementsInTheirOrder) {
    // A closing tag behind a comment is no answer, and nothing lies behind the root.
    expectPositions(&XmlText::nextElement,
                    {L"|<r>^<b>1</b></r>",
                     L"<r><b>1|<c/></b><!-- --></b><?p?><!-- <i> -->^<d/></r>",
                     L"<r>|<d>2</d></r><e/>"});
    expectPositions(&XmlText::nextElement, {L"<r>|<d>2</d></r>^<e/>"}, L"");
    expectPositions(&XmlText::previousElement, {L"<r><b>1^<c/></b><?p?><d>|2</d></r>"});
    const auto named = [](const XmlText& text, int at) { return text.nextNamed(at, L"d"); };
    expectPositions(named, {L"<r>|<d>2</d></r>"});
    const auto either = [](const XmlText& text, int at) {
        return text.nextNamed(at, Core::StringArray{L"d", L"c"});
    };
    expectPositions(either, {L"|<r><b>1^<c/></b><d>2</d></r>"});
    const auto closing = [](const XmlText& text, int at) { return text.previousNamed(at, L"/b"); };
    expectPositions(closing, {L"<r><b>1<c/>^</b><?p?>|<d>2</d></r>"});
}

TEST(XmlText, ChildrenAndSiblings) {
    expectPositions(&XmlText::firstChild,
                    {L"|<r>^<b>t</b></r>", L"<r>|<b>t^</b></r>", L"<r>|<d/></r>", L"<r>|</r>",
                     L"<r><|b>t</b></r>", L"<r><b>t</b></r>"});
    const auto child = [](const XmlText& text, int at) { return text.childNamed(at, L"d"); };
    expectPositions(child, {L"<r>|<c><b><d/></b>x^<d/></c></r>"});
    expectPositions(&XmlText::sibling,
                    {L"<r><c>|<b><d/></b>x^<d/></c></r>", L"<r><c><b>|<d/></b>x<d/></c></r>"});
    expectPositions(&XmlText::nextSibling, {L"<r><c><b>|<d/></b>x^<d/></c></r>"});
}

TEST(XmlText, Neighbours) {
    const auto before = [](const XmlText& text, int at) {
        return text.previousNeighbor(at, false);
    };
    const auto beforeIt = [](const XmlText& text, int at) {
        return text.previousNeighbor(at, true);
    };
    const auto behind = [](const XmlText& text, int at) { return text.nextNeighbor(at, false); };
    const auto behindIt = [](const XmlText& text, int at) { return text.nextNeighbor(at, true); };
    expectPositions(beforeIt, {L"<r>^<e/> <!-- --> <c>|2</c></r>",
                               L"<r><b></b><!-- <i> --> |<e/> <c>2</c></r>"});
    expectPositions(
        before, {L"<r>^<b><b>1</b></b><!-- <i> --> |<e/></r>", L"<r><e/>^<c>2</c>3<d>|4</d></r>"});
    expectPositions(behind, {L"<r>|<e/> <!-- --> ^<c>2</c></r>", L"<r><b><b>|1</b>^</b></r>"});
    expectPositions(behindIt, {L"<r><c>|2</c>3<d>4</d></r>"});
}

TEST(XmlText, Paths) {
    for (const wchar_t* root : {L"r", L""}) {
        const XmlText text = xmlText(L"<?xml?><r><b><c:d>x</c:d></b><b>y</b></r>\n", root);
        const int x = at(text, L"x<");
        EXPECT_EQ(wide(text.path(x)), L"/r/b/c:d");
        for (const auto& [path, element] :
             {std::pair(L"/r/b/c:d", x - 5), std::pair(L"/r/b", at(text, L"<b")),
              std::pair(L"/r", at(text, L"<r>")), std::pair(L"/r/c", -1)})
            EXPECT_EQ(text.elementNamedByPath(path, x), element) << path;
        EXPECT_EQ(text.elementNamedByPath(L"/r/b", at(text, L"y")), at(text, L"<b>y"));
    }
    expectTexts(&XmlText::pathOfPosition,
                {{L"<r><b><c:d>|x</c:d></b></r>", L"/r/b/c:d"}, {L"<r>|<b>x</b></r>", L"/r"}});
    EXPECT_EQ(wide(Markup::pathToParent(L"/a/b/c/b/d", L"b")), L"/a/b/c/b");
}

TEST(XmlText, Placeholders) {
    expectPositions(whether(&XmlText::holdsOnlyPlaceholder),
                    {L"|^<r> &#x00A0;\n</r> ", L"|^<r>\xA0 </r> ", L"|<r>&#x00A0;\xA0</r>",
                     L"|<r>&#x00A0;<b/>a  </r> ", L"|<r/>", L"|<r> </r>", L"|a"},
                    L"");
    expectPositions(whether(&XmlText::isPlaceholderAtElementEnd),
                    {L"<r> |^&#x00A0;\n</r> ", L"<r>| &#x00A0;\n</r> ", L"<r>&#x00A0;|^\xA0</r>",
                     L"<r>|&#x00A0;\xA0</r>"});
    expectPositions(whether(&XmlText::isPlaceholderBeforeClosingTag),
                    {L"<r>|^\xA0 </r> ", L"<r>|&#x00A0;<b/>a  </r> "});
    expectPositions(whether(&XmlText::beginsTrailingSpaces), {L"<r>a|^  </r> ", L"<r>a | </r> "});
    expectPositions(&XmlText::placeholderBehind, {L"<r>|&#x00A0;^\xA0</r>"});
}

TEST(Namespaces, OfAnElementAndAround) {
    const XmlText text =
        xmlText(L"<r xmlns='d' xmlns:fo='1' xmlns:a=\"2\"><b i='j' xmlns:FO=\"3\"/>"
                L"<b i='j' xmlns:FO=\"3\"><c/>x</b></r>");
    const std::set<String> around = Namespaces::around(text, at(text, L"x</b"));
    EXPECT_EQ(wide(Namespaces::asAttributes(around)), L" xmlns:FO=\"3\" xmlns:a=\"2\"");
    EXPECT_EQ(wide(Namespaces::asAttributes(Namespaces::of(text, 0))),
              L" xmlns:a=\"2\" xmlns:fo=\"1\"");
    EXPECT_TRUE(Namespaces::declares(around, L"XMLNS:fo=\"9\""));
}
