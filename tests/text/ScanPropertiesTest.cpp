#include "foundation/Wide.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "text/ReferenceMarkup.h"
#include "text/XmlProbe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>

using namespace Core;

namespace {

/// Writes random documents. The names of self-closing tags are their own, so that pairing is that
/// of real nesting.
class RandomXml {
public:
    RandomXml(unsigned seed, bool withSections) : random_(seed), withSections_(withSections) {}

    XmlProbe document() {
        return XmlProbe(String(L"<?xml version=\"1.0\"?>\n<r>" + content(0) + L"</r>\n"));
    }

private:
    std::wstring content(int depth) {
        static constexpr std::array units{L"a",        L" ",    L";",      L"&amp;",
                                          L"&#x00A0;", L"\xA0", L"<x:e/>", L"<e k='1\"' l=\"/\" />",
                                          L"<?p q?>"};
        static constexpr std::array sections{L"<!-- -c&; -->", L"<![CDATA[ ] d; ]]>"};
        static constexpr std::array names{L"c", L"b", L"x:b", L"fo:table-cell",
                                          L"fo:list-item-body"};
        std::wstring text;
        for (std::size_t count = random_.below(5) + (depth == 0 ? 2 : 0); count > 0; --count) {
            if (withSections_ && random_.oneIn(4)) {
                text += random_.oneOf(sections);
            } else if (depth < 5 && random_.oneIn(2)) {
                const std::wstring name = random_.oneOf(names);
                text += L"<" + name + (random_.oneIn(2) ? L"" : L"\n x:k='\"'") + L">";
                text += content(depth + 1) + L"</" + name + L">";
            } else {
                text += random_.oneOf(units);
            }
        }
        return text;
    }

    Random random_;
    bool withSections_;
};

std::vector<XmlProbe> randomDocuments(bool withSections) {
    std::vector<XmlProbe> documents;
    for (unsigned seed = 0; seed < 60; ++seed)
        documents.push_back(RandomXml(seed, withSections).document());
    return documents;
}

/// Documents that people wrote, and random ones.
std::vector<XmlProbe> allDocuments() {
    std::vector<XmlProbe> documents = randomDocuments(true);
    for (const std::filesystem::path& path : corpusAndSamples())
        documents.push_back(XmlProbe(textOf(path)));
    return documents;
}

auto rootOf(const std::vector<ReferenceMarkup>& markup) {
    return std::find_if(markup.begin(), markup.end(),
                        [](const auto& tag) { return tag.kind == ReferenceMarkup::Opening; });
}

} // namespace

TEST(ScanProperties, StepsReachTheEndAndLeadBack) {
    for (const XmlProbe& xml : allDocuments()) {
        SCOPED_TRACE(wide(xml.text()).substr(0, 1000));
        const auto markup = parseMarkup(xml.text().view());
        ASSERT_TRUE(markup);
        const auto root = rootOf(*markup);
        const int end = (*markup)[root->partner].start;
        // An apostrophe in a comment before the root hides the root.
        const std::wstring_view prolog = xml.text().view().substr(0, root->start);
        const bool hidden = std::count(prolog.begin(), prolog.end(), L'\'') % 2 == 1;
        EXPECT_EQ(xml.getFirstEditablePositionInXml(), hidden ? -1 : root->last + 1);

        int from = root->last + 1, tagBefore = root->start;
        for (auto next = root; from >= 0 && from < end;) {
            while (next->start < from)
                tagBefore = next->kind == ReferenceMarkup::Section ? tagBefore : next->start,
                ++next;
            const int to = xml.getNextEditablePositionInXml(from);
            // From behind a section the step backward goes to the tag before.
            const bool jumps = xml.commentTagAtPosition(from) || xml.cdataSectionAtPosition(from);
            EXPECT_EQ(xml.getPreviousEditablePositionInXml(to), jumps ? tagBefore : from);
            from = to;
        }
        EXPECT_EQ(from, end);
    }
}

TEST(ScanProperties, TagsAgreeWithAParser) {
    for (const XmlProbe& xml : allDocuments()) {
        SCOPED_TRACE(wide(xml.text()).substr(0, 1000));
        const auto markup = parseMarkup(xml.text().view());
        ASSERT_TRUE(markup);
        int previous = -1;
        for (auto at = rootOf(*markup); at != markup->end(); ++at) {
            const ReferenceMarkup& tag = *at;
            const int partner = (*markup)[tag.partner].start;
            if (previous >= 0) {
                EXPECT_EQ(xml.getPreviousTagPosition(tag.start), previous);
                EXPECT_EQ(xml.getCurrentElementPosition(tag.start),
                          elementAround(*markup, tag.start));
            }
            if (tag.kind == ReferenceMarkup::Opening) {
                EXPECT_EQ(xml.getClosingTagForTagAtPosition(tag.start), partner);
            } else if (tag.kind == ReferenceMarkup::Closing && xml.length() < 1000) {
                EXPECT_EQ(xml.getStartTagForTagAtPosition(tag.start), partner);
            }
            if (tag.kind != ReferenceMarkup::Section)
                previous = tag.start;
        }
        for (int at = 0; at < xml.length() && xml.length() < 1000; ++at) {
            const int element = elementAround(*markup, at);
            String name = L"old";
            EXPECT_EQ(xml.getCurrentElementNameAndPos(at, name), element) << at;
            EXPECT_EQ(wide(name), wide(xml.getNameForTagAtPosition(element, true))) << at;
        }
    }
}

TEST(ScanProperties, FragmentScansAgreeWhereNoSectionStands) {
    for (const XmlProbe& xml : randomDocuments(false)) {
        const String& text = xml.text();
        for (int at = -3; at < xml.length() + 3; ++at) {
            EXPECT_EQ(XmlProbe::getNextEditablePositionInXml(at, text),
                      xml.getNextEditablePositionInXml(at));
            EXPECT_EQ(XmlProbe::getPreviousTagPosition(at, text), xml.getPreviousTagPosition(at));
            EXPECT_EQ(XmlProbe::getClosingTagForTagAtPosition(at, text),
                      xml.getClosingTagForTagAtPosition(at));
            EXPECT_EQ(XmlProbe::getCurrentElementPosition(at, text),
                      xml.getCurrentElementPosition(at));
            EXPECT_EQ(XmlProbe::getCurrentElementName(at, text), xml.getCurrentElementName(at));
        }
    }
}

// Also for texts that are no XML, and positions that are none.
TEST(ScanProperties, EveryAnswerIsAPositionInTheTextOrNone) {
    const auto check = [](const XmlProbe& xml, int at) {
        SCOPED_TRACE(at);
        const bool valid = !xml.isOnInvalidPosition(at);
        for (const int answer : {xml.getNextTagPosition(at),
                                 xml.getPreviousTagPosition(at),
                                 xml.getClosingTagForTagAtPosition(at),
                                 xml.getStartTagForTagAtPosition(at),
                                 xml.getNextEditablePositionInXml(at),
                                 at == xml.length() ? -1 : xml.getPreviousEditablePositionInXml(at),
                                 xml.getNextAttributePosition(at),
                                 xml.getPreviousAttributePosition(at),
                                 xml.getNextAttributeValuePosition(at),
                                 xml.getLastPositionInElementContaining(at),
                                 xml.getParentElementPosition(at),
                                 xml.getNextElementPosition(at),
                                 xml.getPreviousElementPosition(at),
                                 xml.getFirstChildPosition(at),
                                 xml.getSiblingElement(at),
                                 xml.getNonBreakingSpacePosition(at),
                                 xml.getNextChildByName(L"b", at),
                                 xml.getElementPositionFromPath(L"/r/b", at),
                                 xml.getPreviousNeighborPosition(at, false),
                                 xml.getPreviousNeighborPosition(at, true),
                                 xml.getNextNeighborPosition(at, false),
                                 xml.getNextNeighborPosition(at, true),
                                 xml.searchParent(L"b", at, false, true, L""),
                                 xml.searchParent(L"b", at, true, false, L"")})
            EXPECT_TRUE(answer >= -1 && answer <= (valid ? xml.length() : -1)) << answer;
        for (const auto type : {xmlComment, xmlCData, xmlProcessingInstruction, xmlElement}) {
            EXPECT_LE(xml.getElementStartPosition(type, at), xml.length());
            EXPECT_LE(xml.getElementEndPosition(type, at), xml.length());
        }
        EXPECT_LE(XmlProbe::getClosingTagForTagAtPosition(at, xml.text()), xml.length());
        EXPECT_TRUE(at > 0 || xml.getClosingTagsBetweenPositions(0, at).empty());
        const String all =
            xml.getNextTagName(at) + xml.getPreviousTagName(at) + xml.getNameForAttributeAt(at) +
            xml.getValueForAttributeAt(at) + xml.getEscapeCharacterString(at) +
            xml.getNextElementName(at) + xml.getCurrentElementStartTagString(at) +
            xml.getCharacterDataForElementAt(at) + xml.getNativeText(at, xml.length());
        EXPECT_TRUE(valid || all.empty()) << wide(all);
        EXPECT_FALSE(!valid && (!xml.getNamespacesFromAllContainers(at).empty() ||
                                xml.elementContainsJustNonBreakingSpace(at) ||
                                xml.isNbspFollowedByCloseElement(at) ||
                                xml.isLastValidWhiteSpaceBeforeElementClosed(at) ||
                                EditableXmlBuffer::isInsideStartTag(xml.text(), at)));
    };
    const auto checkAll = [&](const XmlProbe& xml) {
        for (int at = -3; at <= xml.length() + 3 && !testing::Test::HasFailure(); ++at)
            check(xml, at);
        for (const int at : {INT_MIN, INT_MAX})
            check(xml, at);
    };
    for (const XmlProbe& xml : randomDocuments(true)) {
        checkAll(xml);
        // Cut anywhere, it is a text in which nothing can be taken for granted.
        checkAll(XmlProbe(xml.text().subString(xml.length() / 3, xml.length() * 2 / 3)));
    }
    for (const wchar_t* hostile : {L"", L"<", L"</", L"<>", L">", L"]]>", L"&", L"<!--",
                                   L"</a>]]></a> ", L" <a><![CDATA[", L"<a b='"})
        checkAll(XmlProbe(hostile));
}
