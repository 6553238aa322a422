#pragma once

#include "text/Markup.h"
#include "text/XmlText.h"

#include <string>

/// Asks a text everything about a position, be the text no XML and the position none. An answer is
/// a position in the text or its end, or none, and always none where there is no such position.
/// Says which is not, or nothing.
inline std::string brokenAnswer(const XmlText& xml, int at) {
    using XmlScan::Source;
    const Core::String content = xml.content();
    const XmlScan::Text text = content.view();
    const bool isValid = xml.isValid(at);
    std::string broken;
    const auto upTo = [&](int last, auto... answers) {
        for (const int answer : {answers...})
            if (answer < -1 || answer > last)
                broken = std::to_string(answer) + " of " + std::to_string(last);
    };
    upTo(isValid ? xml.length() : -1, xml.nextTag(at), xml.previousTag(at), xml.closingTag(at),
         xml.startTag(at), xml.next(at), at == xml.length() ? -1 : xml.previous(at),
         xml.nextAttribute(at), xml.findQuote(at), xml.previousAttribute(at),
         xml.closingTagAround(at), xml.startOfContentAround(at), xml.elementAround(at),
         xml.elementAround(xml.elementAround(at)), xml.nextElement(at), xml.previousElement(at),
         xml.firstChild(at), xml.nextSibling(at), xml.sibling(at), xml.placeholderBehind(at),
         xml.previousNeighbor(at, false), xml.previousNeighbor(at, true),
         xml.nextNeighbor(at, false), xml.nextNeighbor(at, true), xml.childNamed(at, L"b"),
         xml.nextNamed(at, L"b"), xml.previousNamed(at, L"/b"), xml.ancestor(at, L"b"),
         xml.elementNamedByPath(L"/r/b", at), xml.elementNamedByPath(xml.path(at), at),
         xml.searchAncestor(at, {L"b"}, {true, false, L""}),
         xml.searchAncestor(at, {L"b"}, {false, true, L""}));
    upTo(xml.length(), xml.firstPositionInRoot(), xml.root(),
         XmlScan::previousTag(text, at, Source::Fragment),
         XmlScan::currentElement(text, at, Source::Fragment));
    // Behind a section that is never ended these count from a missing end.
    const int beyond = xml.length() + 2;
    upTo(beyond, XmlScan::stepForward(text, at, Source::Fragment),
         XmlScan::closingTag(text, at, Source::Fragment));
    for (const auto kind : {xmlComment, xmlCData, xmlProcessingInstruction, xmlElement})
        if (xml.kindStart(kind, at) > xml.length() || xml.kindEnd(kind, at) > xml.length())
            broken = "a kind that reaches out of the text";
    const Core::String all = xml.nextTagName(at) + xml.previousTagName(at) + xml.nameAround(at) +
                             Core::String(xml.attributeName(at)) +
                             Core::String(xml.attributeValue(at)) + xml.startTagAround(at) +
                             xml.parentName(at) + xml.nextNeighborName(at, true) +
                             Markup::characterData(xml, at) + Markup::cutOut(xml, at, xml.length());
    const bool holds = xml.holdsOnlyPlaceholder(at) || xml.isPlaceholderAtElementEnd(at) ||
                       xml.isPlaceholderBeforeClosingTag(at) || xml.beginsTrailingSpaces(at) ||
                       xml.isBeforeTable(at) || xml.isBehindTable(at) || xml.isInLabel(at) ||
                       xml.isInFlow(at) || !Namespaces::around(xml, at).empty();
    if (!isValid && (!all.empty() || holds))
        broken = "something at no position";
    if (at <= 0 && !Markup::openedBetween(xml, 0, at).empty())
        broken = "tags opened nowhere";
    for (const int other : {0, at / 2, xml.length() - 1}) {
        Markup::closingTagsInReverse(Markup::openedBetween(xml, at, other));
        Markup::cutOut(xml, at, other);
        xml.areInSameRegion(at, other);
        xml.elementContains(at, other);
    }
    return broken;
}
