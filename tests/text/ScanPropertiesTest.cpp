#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "text/EveryQuestion.h"
#include "text/ReferenceMarkup.h"
#include "text/XmlTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>

using Core::String;
using XmlScan::Source;

namespace {

/// Writes random documents. The names of self-closing tags are their own, so that pairing is that
/// of real nesting.
class RandomXml {
public:
    RandomXml(unsigned seed, bool withSections) : random_(seed), withSections_(withSections) {}

    XmlText document() {
        return xmlText(String(L"<?xml version=\"1.0\"?>\n<r>" + content(0) + L"</r>\n"));
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

std::vector<XmlText> randomDocuments(bool withSections) {
    std::vector<XmlText> documents;
    for (unsigned seed = 0; seed < 60; ++seed)
        documents.push_back(RandomXml(seed, withSections).document());
    return documents;
}

/// Documents that people wrote, and random ones.
std::vector<XmlText> allDocuments() {
    std::vector<XmlText> documents = randomDocuments(true);
    for (const std::filesystem::path& path : corpusAndSamples())
        documents.push_back(xmlText(textOf(path)));
    return documents;
}

auto rootOf(const std::vector<ReferenceMarkup>& markup) {
    return std::find_if(markup.begin(), markup.end(),
                        [](const auto& tag) { return tag.kind == ReferenceMarkup::Opening; });
}

} // namespace

TEST(ScanProperties, StepsReachTheEndAndLeadBack) {
    for (const XmlText& xml : allDocuments()) {
        SCOPED_TRACE(wide(xml.content()).substr(0, 1000));
        const auto markup = parseMarkup(xml.content().view());
        ASSERT_TRUE(markup);
        const auto root = rootOf(*markup);
        const int end = (*markup)[root->partner].start;
        // An apostrophe in a comment before the root hides the root.
        const TextView prolog = xml.view(0, root->start);
        const bool hidden = std::count(prolog.begin(), prolog.end(), L'\'') % 2 == 1;
        EXPECT_EQ(xml.firstPositionInRoot(), hidden ? -1 : root->last + 1);

        int from = root->last + 1, tagBefore = root->start;
        for (auto next = root; from >= 0 && from < end;) {
            while (next->start < from)
                tagBefore = next->kind == ReferenceMarkup::Section ? tagBefore : next->start,
                ++next;
            const int to = xml.next(from);
            // From behind a section the step backward goes to the tag before.
            const bool jumps = xml.commentAt(from) || xml.cdataAt(from);
            EXPECT_EQ(xml.previous(to), jumps ? tagBefore : from);
            from = to;
        }
        EXPECT_EQ(from, end);
    }
}

TEST(ScanProperties, TagsAgreeWithAParser) {
    for (const XmlText& xml : allDocuments()) {
        SCOPED_TRACE(wide(xml.content()).substr(0, 1000));
        const auto markup = parseMarkup(xml.content().view());
        ASSERT_TRUE(markup);
        int previous = -1;
        for (auto at = rootOf(*markup); at != markup->end(); ++at) {
            const ReferenceMarkup& tag = *at;
            const int partner = (*markup)[tag.partner].start;
            if (previous >= 0) {
                EXPECT_EQ(xml.previousTag(tag.start), previous);
                EXPECT_EQ(xml.elementAround(tag.start), elementAround(*markup, tag.start));
            }
            if (tag.kind == ReferenceMarkup::Opening) {
                EXPECT_EQ(xml.closingTag(tag.start), partner);
            } else if (tag.kind == ReferenceMarkup::Closing && xml.length() < 1000) {
                EXPECT_EQ(xml.startTag(tag.start), partner);
            }
            if (tag.kind != ReferenceMarkup::Section)
                previous = tag.start;
        }
        for (int at = 0; at < xml.length() && xml.length() < 1000; ++at) {
            const int element = elementAround(*markup, at);
            EXPECT_EQ(xml.elementAround(at), element) << at;
            EXPECT_EQ(xml.nameAround(at), xml.nameAt(element)) << at;
        }
    }
}

TEST(ScanProperties, FragmentScansAgreeWhereNoSectionStands) {
    for (const XmlText& xml : randomDocuments(false)) {
        const String content = xml.content();
        const XmlScan::Text text = content.view();
        for (int at = -3; at < xml.length() + 3; ++at) {
            EXPECT_EQ(XmlScan::stepForward(text, at, Source::Fragment), xml.next(at));
            EXPECT_EQ(XmlScan::previousTag(text, at, Source::Fragment), xml.previousTag(at));
            EXPECT_EQ(XmlScan::closingTag(text, at, Source::Fragment), xml.closingTag(at));
            EXPECT_EQ(XmlScan::currentElement(text, at, Source::Fragment), xml.elementAround(at));
            EXPECT_EQ(XmlScan::fragmentElementName(text, at), xml.nameAround(at).view());
        }
    }
}

// Also for texts that are no XML, and positions that are none.
TEST(ScanProperties, EveryAnswerIsAPositionInTheTextOrNone) {
    const auto checkAll = [&](const XmlText& xml) {
        for (int at = -3; at <= xml.length() + 3 && !testing::Test::HasFailure(); ++at)
            EXPECT_EQ(brokenAnswer(xml, at), "") << at;
        for (const int at : {INT_MIN, INT_MAX})
            EXPECT_EQ(brokenAnswer(xml, at), "") << at;
    };
    for (const XmlText& xml : randomDocuments(true)) {
        checkAll(xml);
        // Cut anywhere, it is a text in which nothing can be taken for granted.
        checkAll(xmlText(xml.content().subString(xml.length() / 3, xml.length() * 2 / 3)));
    }
    for (const wchar_t* hostile : {L"", L"<", L"</", L"<>", L">", L"]]>", L"&", L"<!--",
                                   L"</a>]]></a> ", L" <a><![CDATA[", L"<a b='"})
        checkAll(xmlText(hostile));
}
