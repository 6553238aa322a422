#include "pages/DetachedPages.h"
#include "foundation/Exception.h"
#include "pages/PGMasterBufferUtilities.h"
#include "pages/PGMasterUtilities.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

using Core::String;
using Names = std::vector<String>;
using Texts = std::map<String, String>;
using Range = std::pair<int, int>;

namespace {

const String text = detachedPages;
constexpr Range none{-1, -1};

String cut(const String& from, const Range& range) {
    return from.subString(static_cast<unsigned>(range.first),
                          static_cast<unsigned>(range.second - 1));
}

Texts regionsOf(const PGMasterBuffer& buffer, const wchar_t* master) {
    Texts regions;
    buffer.getSimplePageMasterRegionList(regions, master);
    return regions;
}

String written(PGMasterBuffer& buffer) {
    String result;
    buffer.commitChangesToEditableBuffer(result);
    return result;
}

} // namespace

TEST(DetachedPages, FindsPageSequencesAndWhatRunsOnTheirPages) {
    const PGMasterBufferUtilities buffer(text);
    EXPECT_EQ(buffer.getPaginationNodes().size(), 4U);
    Names references;
    for (Range range = buffer.getFirstPageSimpleOrRepeatPos(); range != none;
         buffer.getNextPageSimpleOrRepeatPos(range)) {
        EXPECT_EQ(buffer.getPageSeqPos(static_cast<int>(references.size())), range);
        references.push_back(buffer.getRefForPageSeqAtPos(range));
    }
    EXPECT_EQ(references, (Names{L"A & B", L"C", L"B"}));
    EXPECT_EQ(buffer.getPageSeqPos(3), none);
    const Range third = buffer.getPageSeqPos(2);
    EXPECT_EQ(buffer.getCurrentPageSequencePos(third.first), third);
    EXPECT_EQ(buffer.getCurrentPageSequencePos(third.second), none);
    EXPECT_EQ(buffer.getCurrentPageSequencePos(buffer.getPageSeqPos(1).first + 90), none);
    EXPECT_EQ(buffer.getCurrentPageSequencePos(-1), none);

    EXPECT_EQ(buffer.getFirstStaticContentPos(L"C"), none);
    EXPECT_NE(buffer.getFirstStaticContentPos(L"A & B"), none);
    EXPECT_EQ(buffer.getNextStaticContentPos(buffer.getPageSeqPos(1).first, L"C"), none);
    EXPECT_EQ(cut(text, buffer.getNextStaticContentPos(buffer.getFirstStaticContentPos(L"").second,
                                                       L"A & B")),
              L"<fo:static-content flow-name=\"foot\"/>");

    Names flows;
    buffer.getDocumentStaticContentList(flows, L"");
    EXPECT_EQ(flows, (Names{L"xsl-region-before", L"foot", L"note"}));
    Texts texts;
    buffer.getStaticContentTextMap(texts, L"A & B", true, true);
    EXPECT_EQ(texts.size(), 2U);
    EXPECT_TRUE(texts[L"foot"].find(L"two", 0) > 0); // the last one, through the complex master
    texts.clear();
    buffer.getStaticContentTextMap(texts, L"B", true, false);
    EXPECT_EQ(texts.size(), 2U);
    texts.clear();
    buffer.getStaticContentTextMap(texts, 0);
    EXPECT_EQ(texts[L"foot"], L"<fo:static-content flow-name=\"foot\"/>");
    EXPECT_EQ(texts.size(), 2U);
}

TEST(DetachedPages, FindByLettersButInComments) {
    const String letters = L"<a><!--<fo:page-sequence x=''></fo:page-sequence>-->"
                           L"<fo:page-sequence-master y=''></fo:page-sequence-master>"
                           L"<fo:page-sequence\nz=''></fo:page-sequence></a>";
    const PGMasterBufferUtilities buffer(letters);
    EXPECT_EQ(buffer.getWorkingRootElement(), L"qfd:document");
    EXPECT_EQ(buffer.getNextElementPos(L"fo:page-sequence", 0), none);
    EXPECT_TRUE(buffer.isCommentAtPos(3) && buffer.isCommentAtPos(49));
    EXPECT_FALSE(buffer.isCommentAtPos(2) || buffer.isCommentAtPos(50));
    EXPECT_EQ(cut(letters, buffer.getFirstElementPos(L"fo:page-sequence-master")),
              L"<fo:page-sequence-master y=''></fo:page-sequence-master>");
    EXPECT_EQ(PGMasterBufferUtilities(text).getWorkingRootElement(), L"fo:root");
    EXPECT_THROW(PGMasterBuffer(L"<a>"), Core::Exception);
}

TEST(DetachedPages, RegionsAreHiddenShownAndNamed) {
    PGMasterBuffer buffer(text);
    EXPECT_EQ(regionsOf(buffer, L"A & B"), (Texts{{L"region-after", L"foot"},
                                                  {L"region-before", L"xsl-region-before"},
                                                  {L"region-body", L"xsl-region-body"}}));
    EXPECT_EQ(regionsOf(buffer, L"")[L"region-body"], L"main");
    const String before = written(buffer);
    EXPECT_TRUE(before.startsWith(L"<?xml"));
    for (const wchar_t* region : {L"A-region-after", L"xsl-region", L""}) // there, no type, no name
        buffer.setVisibleRegion(L"A & B", region, true);
    buffer.setVisibleRegion(L"A & B", L"", false);
    EXPECT_EQ(written(buffer), before);

    buffer.setVisibleRegion(L"A & B", L"foot", false);
    EXPECT_FALSE(buffer.isRegionVisible(L"A & B", L"foot"));
    buffer.setVisibleRegion(L"A & B", L"foot", true); // by the type with which it was hidden
    buffer.setVisibleRegion(L"A & B", L"xsl-region-before", false);
    buffer.setVisibleRegion(L"A & B", L"xsl-region-before", true);
    const String shown = written(buffer);
    EXPECT_GT(shown.find(L"<fo:region-after region-name=\"foot\" extent=\"0.7in\"/>"
                         L"<fo:region-before region-name=\"xsl-region-before\" extent=\"2in\"/>",
                         0),
              0);
    EXPECT_GT(shown.find(L"margin-top=\"1in\"", 0), 0); // shorthands stay written out
    buffer.setNameForRegion(L"A & B", L"foot", L"\"<&");
    EXPECT_TRUE(buffer.isRegionVisible(L"A & B", L"\"<&"));
    EXPECT_TRUE(buffer.simplePMUsedInComplexPageMaster(L"A & B", L"C"));
    EXPECT_FALSE(buffer.simplePMUsedInComplexPageMaster(L"A & B", L"E"));
    EXPECT_THROW(buffer.addNewStaticContent(L"\x1", L"", 3, true), Core::Exception);
    EXPECT_EQ(buffer.getStaticContentsNodes().size(), 4U);
    buffer.setNameForStaticContent(L"xsl-region-before", L"foot"); // stands beside it
    EXPECT_TRUE(buffer.getStaticContentElement(L"foot"));
    buffer.setNameForStaticContent(L"new", L"foot");
    EXPECT_TRUE(buffer.getStaticContentElement(L"new"));
    buffer.renameSimplePageMaster(L"B", L"D"); // not of a whole document
    EXPECT_EQ(buffer.getAllSimplePageMasters(), (Names{L"A & B", L"B"}));
    PGMasterBuffer set(L"<s><simple-page-master master-name='B'/><m master-name='C'/></s>");
    set.renameSimplePageMaster(L"B", L"C");
    EXPECT_TRUE(set.getSimplePageMasterByName(L"B"));
    set.renameSimplePageMaster(L"B", L"D");
    EXPECT_TRUE(set.getSimplePageMasterByName(L"D"));
}

TEST(DetachedPages, NewAndRenamedRegionsGetTheirFlow) {
    Texts regions{{L"x", L"y"}};
    EXPECT_EQ(PGMasterUtilities::getRegionName(text, regions, RegionType::REGION_START, L"A & B"),
              L"xls-region-start");
    EXPECT_FALSE(regions.contains(L"x"));
    const auto added = [&](const wchar_t* master, const wchar_t* flow, int sequence) {
        return PGMasterUtilities::addNewStaticRegion(text, master, flow, regions,
                                                     RegionType::REGION_START, sequence, true);
    };
    for (const String& same : {added(L"none", L"f", 1), added(L"", L"f", 1), added(L"B", L"", 1),
                               added(L"B", L"f", 0), added(L"B", L"f", 9)})
        EXPECT_EQ(same, text);
    const String once = added(L"A & B", L"side & <", 3);
    EXPECT_GT(once.find(L"<fo:region-start region-name=\"side &amp; &lt;\" extent=\"0.7in\"/>", 0),
              0);
    EXPECT_GT(once.find(L"\"B\"><fo:static-content flow-name=\"side &amp; &lt;\" "
                        L"font-family=\"Times\" font-size=\"12pt\"><fo:block>&#x00A0;</fo:block>"
                        L"</fo:static-content><fo:flow",
                        0),
              0);
    EXPECT_EQ(added(L"A & B", L"foot", 2).find(L"font-family", 0), -1); // it stands there

    const Texts stored{{L"new", L"<fo:static-content flow-name=\"new\"/>"}};
    const auto renamed = [&](const wchar_t* master, const wchar_t* name, RegionType type) {
        return PGMasterUtilities::renameRegion(text, stored, master, name, regions, type);
    };
    EXPECT_EQ(renamed(L"none", L"new", RegionType::REGION_AFTER), text);
    EXPECT_EQ(renamed(L"A & B", L"", RegionType::REGION_AFTER), text);
    const String changed = renamed(L"A & B", L"new", RegionType::REGION_AFTER);
    EXPECT_GT(changed.find(L"<fo:region-after region-name=\"new\"/>", 0), 0);
    EXPECT_GT(changed.find(L"\t<fo:static-content flow-name=\"new\"/><fo:static-content "
                           L"flow-name=\"xsl-region-before\">",
                           0),
              0);
    EXPECT_GT(renamed(L"B", L"new", RegionType::REGION_END)
                  .find(L"xpath=\"/a[b&gt;3]\"><fo:static-content flow-name=\"new\"/>", 0),
              0); // the first sequence that uses it does so through a complex master
    const String hidden =
        PGMasterUtilities::enableDisableRegion(text, L"A & B", L"xsl-region-before", false);
    EXPECT_EQ(hidden.find(L"<fo:region-before", 0), -1);
    EXPECT_EQ(PGMasterUtilities::enableDisableRegion(text, L"B", L"none", false), text);
    PGMasterUtilities::clearTextFormatting(L"<", 0);
}

TEST(DetachedPages, ComplexMastersAreStrippedAndFlowsEmptied) {
    PGMasterBufferUtilities buffer(text);
    const String complexMaster = buffer.getComplexMasterBufferTextByName(L"C");
    EXPECT_TRUE(complexMaster.startsWith(L"<fo:page-sequence-master master-name=\"C\">"));
    EXPECT_EQ(buffer.getComplexMasterBufferTextByName(L"E"), L"");
    String removed;
    const String stripped = buffer.stripComplexMastersFromBuffer(text, removed);
    EXPECT_EQ(removed, complexMaster);
    EXPECT_EQ(stripped.length(), text.length() - removed.length());
    EXPECT_EQ(xmlError(stripped), "");
    EXPECT_EQ(buffer.stripComplexMastersFromBuffer(stripped, removed), stripped);
    EXPECT_EQ(removed, complexMaster); // only what was there
    String twice = text;
    twice.replaceAll(complexMaster, complexMaster + complexMaster);
    EXPECT_EQ(PGMasterBufferUtilities(twice).stripComplexMastersFromBuffer(twice, removed),
              stripped);
    EXPECT_EQ(removed, complexMaster + complexMaster + complexMaster);

    EXPECT_TRUE(buffer.getFoFlowFromBuffer(text).startsWith(L"<fo:block margin=\"2pt\">a"));
    const String original = buffer.getOriginalFoFlow();
    EXPECT_EQ(buffer.getFoFlowFromBuffer(L"<fo:flow/>"), L"");
    EXPECT_EQ(buffer.getOriginalFoFlow(), original);
    EXPECT_EQ(buffer.emptyFoFlowFromBuffer(
                  L"<fo:flow a='>'><fo:block/><fo:block>a</fo:block></fo:flow>", L"<b/>"),
              L"<fo:flow a='>'><b/></fo:flow>");
    EXPECT_EQ(buffer.emptyFoFlowFromBuffer(L"<fo:block/>", L"<b/>"), L"");
    EXPECT_EQ(buffer.emptyFoFlowFromBuffer(
                  L"<fo:flow/><fo:flow><c/><d><fo:block/></d></fo:flow><fo:block/>", L"<b/>"),
              L"<fo:flow/><fo:flow><c/><b/></fo:flow><fo:block/>");

    struct Splice {
        int start, end;
        bool insertOnly;
        const wchar_t *expected, *ofRange;
    };
    for (const Splice& row : {Splice{0, 4, false, L"<_x<b></a>", L"_x<b></a>"},
                              {0, 4, true, L"<_a>x<b></a>", L"_<a>x<b></a>"},
                              {3, 4, false, L"<a>_x<b></a>", L"<a>_x<b></a>"},
                              {5, 6, false, L"<a>x_</a>", L"<a>x_</a>"},
                              {3, 3, true, L"<a>_x<b></a>", L"<a>_x<b></a>"},
                              {4, 99, false, L"<a>x_", L"<a>x_"},
                              {-1, -1, true, L"<a>x<b></a>", L"<a>x<b></a>"}}) {
        String spliced = L"<a>x<b></a>", ofRange = spliced;
        buffer.insertReplace(spliced, row.start, row.end, L"_", row.insertOnly);
        buffer.insertReplace(ofRange, {row.start, row.end}, L"_", row.insertOnly);
        EXPECT_EQ(spliced, row.expected) << row.start;
        EXPECT_EQ(ofRange, row.ofRange) << row.start;
    }
}
