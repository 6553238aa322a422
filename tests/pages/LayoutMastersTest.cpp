#include "document/history/EditActionStack.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "pages/LayoutMasterSetBuffer.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <regex>
#include <string>
#include <vector>

namespace {

using Core::String;
using M = LayoutMasterSetBuffer;
using Type = RegionType;

/// The page masters of a small document, and the buffer that edits them.
class Masters {
public:
    explicit Masters(const std::wstring& masters = {}) {
        document_->setContent(
            LR"(<fo:root xmlns:fo="http://www.w3.org/1999/XSL/Format" font-size="9pt">)"
            L"<fo:layout-master-set id='set'>" +
                String(masters) +
                LR"(</fo:layout-master-set><fo:page-sequence master-reference="A">)"
                LR"(<fo:static-content flow-name="xsl-region-before"><fo:block>head</fo:block>)"
                LR"(</fo:static-content><fo:flow flow-name="xsl-region-body"><fo:block>text)"
                LR"(</fo:block></fo:flow></fo:page-sequence></fo:root>)",
            true);
        buffer_ = std::make_unique<M>(&document_.face());
    }

    M* operator->() { return buffer_.get(); }
    MarkedDocument& document() { return document_; }
    /// What the document holds of them when the changes are committed.
    std::wstring committed() {
        buffer_->commitChangesToEditableBuffer();
        const std::wstring text = document_.content();
        const std::size_t start = text.find(L"'set'>") + 6;
        return text.substr(start, text.find(L"</fo:layout-master-set>") - start);
    }

private:
    MarkedDocument document_;
    std::unique_ptr<M> buffer_;
};

std::wstring page(const std::wstring& regions, const std::wstring& attributes = {}) {
    return L"<fo:simple-page-master master-name=\"A\"" + attributes + L">" + regions +
           L"</fo:simple-page-master>";
}

std::vector<std::string> narrow(const std::vector<String>& names) {
    std::vector<std::string> found;
    found.reserve(names.size());
    for (const String& name : names)
        found.push_back(std::string(Core::Encoder::convertStringToUTF8(name).view()));
    return found;
}

using Names = std::vector<std::string>;

class MastersOf : public testing::TestWithParam<std::filesystem::path> {
protected:
    void SetUp() override { document_->setContent(textOf(GetParam()), true); }

    MarkedDocument document_;
};

} // namespace

TEST_P(MastersOf, KeepEveryByteThatNobodyChanged) {
    const std::wstring before = document_.content();
    std::vector<String> names;
    {
        M untouched(&document_.face());
        names = untouched.getAllSimplePageMasters();
        untouched.commitChangesToEditableBuffer();
        EXPECT_EQ(document_.content(), before);
        EXPECT_FALSE(document_->canUndo());
    }
    for (const String& name : names) {
        M masters(&document_.face());
        const PageMargins margins = masters.getPageMargins(name);
        masters.setPageMargins(name, L"7.25in", margins.right, margins.top, margins.bottom);
        masters.commitChangesToEditableBuffer();
        const std::wstring after = document_.content();
        // All of the text but attributes of margins in one tag is as it was.
        static const std::wregex margin(L"\\s+margin(-[a-z]+)?\\s*=\\s*(\"[^\"]*\"|'[^']*')");
        std::size_t start = 0;
        while (before[start] == after[start])
            ++start;
        start = before.rfind(L'<', start);
        const std::wstring oldTag = before.substr(start, before.find(L'>', start) - start);
        const std::wstring newTag = after.substr(start, after.find(L'>', start) - start);
        EXPECT_TRUE(oldTag.starts_with(L"<fo:simple-page-master")) << oldTag;
        EXPECT_EQ(std::regex_replace(oldTag, margin, L""), std::regex_replace(newTag, margin, L""));
        EXPECT_EQ(before.substr(start + oldTag.size()), after.substr(start + newTag.size()));
        EXPECT_EQ(masters.getPageMargins(name).left, "7.25in");
        masters.commitChangesToEditableBuffer();
        EXPECT_EQ(document_.content(), after);
        document_->undo();
        EXPECT_EQ(document_.content(), before);
        EXPECT_FALSE(document_->canUndo());
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, MastersOf, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

TEST(LayoutMasters, AddDeleteAndRename) {
    Masters masters;
    masters->addSimplePageMaster("A", false);
    masters->addSimplePageMaster("A", true);
    masters->addSimplePageMaster("", true);
    masters->addSimplePageMaster("B & C", true);
    EXPECT_EQ(narrow(masters->getRegionsForPageMaster("B & C")),
              (Names{"B & C-region-start", "B & C-region-end", "B & C-region-before",
                     "B & C-region-after", "xsl-region-body"}));
    EXPECT_EQ(masters->getRegionData("A", "xsl-region-body").marginLeft.getValueAsString(),
              "0.7in");
    masters->addComplexPageMaster("X");
    masters->addSingleReferenceToComplexMaster("X", "A");
    masters->addConditionalReferenceToComplexMaster("X", "A", "page-position", "first");
    masters->renameSimplePageMaster("A", "B & C");
    masters->renameSimplePageMaster("A", "X");
    masters->renameSimplePageMaster("A", "D");
    EXPECT_EQ(narrow(masters->getAllSimplePageMasters()), (Names{"D", "B & C"}));
    for (const ComplexPageMasterEntry& entry : masters->getComplexPageMasterEntries("X"))
        EXPECT_EQ(entry.masterName, "D");
    masters->deleteSimplePageMaster("B & C");
    masters->deleteComplexPageMaster("X");
    const EditorState before = stateOf(masters.document().face());
    EXPECT_EQ(
        masters.committed(),
        L"\n<fo:simple-page-master master-name=\"D\" page-height=\"11in\" page-width=\"8.5in\">"
        L"<fo:region-body region-name=\"xsl-region-body\" margin=\"0.7in\"/>"
        L"<fo:region-before region-name=\"xsl-region-before\" extent=\"0.7in\" "
        L"display-align=\"after\"/>"
        L"<fo:region-after region-name=\"xsl-region-after\" extent=\"0.7in\" "
        L"display-align=\"before\"/>"
        L"<fo:region-start region-name=\"xsl-region-start\" extent=\"0.7in\"/>"
        L"<fo:region-end region-name=\"xsl-region-end\" extent=\"0.7in\"/>"
        L"</fo:simple-page-master>");
    EXPECT_TRUE(masters.document().content().find(L"master-reference=\"A\"") != std::wstring::npos);
    expectReplays(masters.document().face(), before);
}

TEST(LayoutMasters, HideAndShowRegions) {
    Masters masters(page(L"<fo:region-body/><fo:region-before extent='50%'/>"
                         L"<fo:region-end region-name='e'/>"));
    EXPECT_EQ(narrow(masters->getRegionsForPageMaster("A")),
              (Names{"", "e", "xsl-region-before", "", "xsl-region-body"}));
    EXPECT_EQ(masters->getRegionType("A", "e"), Type::REGION_AFTER);
    EXPECT_EQ(masters->getRegionType("A", "?"), Type::REGION_BODY);
    MarkedDocument& document = masters.document();
    document->setCaretPos(false, document.find(L"text"));
    EXPECT_FALSE(masters->setVisibleRegion("A", "", Type::REGION_START, false));
    EXPECT_FALSE(masters->setVisibleRegion("A", "e", Type::REGION_END, false));
    document->setCaretPos(false, document.find(L"head"));
    EXPECT_TRUE(masters->setVisibleRegion("A", "xsl-region-before", Type::REGION_BEFORE, false));
    for (int i = 0; i < 2; ++i) // the second time there is one of the type
        EXPECT_FALSE(masters->setVisibleRegion("A", "other", Type::REGION_BEFORE, true));
    EXPECT_EQ(masters.committed(),
              page(L"<fo:region-body/><fo:region-before region-name=\"xsl-region-before\" "
                   L"extent=\"0.7in\" display-align=\"after\"/>"));
    EXPECT_TRUE(masters->getRegionsForPageMaster("B").empty());
    EXPECT_FALSE(masters->getPageRegionsData("B").body.visible);
}

TEST(LayoutMasters, LoseNothingToWhatXmlCannotHold) {
    Masters masters(page(L"<fo:region-body></fo:region-body>") +
                    L"<fo:page-sequence-master master-name='X'>"
                    L"<fo:single-page-master-reference master-reference='A'/>"
                    L"</fo:page-sequence-master>");
    const String bad = L"1\x0001";
    ReferenceInfo conditional(ReferenceInfo::conditional, "A");
    conditional.setCondition("odd-or-even", bad);
    PrintingAttributes code;
    code.psPrinterCode = bad;
    RegionData data;
    data.visible = true;
    data.backgroundColor = "red";
    data.shadowColor = bad;
    for (const std::function<void()>& command : std::vector<std::function<void()>>{
             [&] { masters->addSimplePageMaster(bad, false); },
             [&] { masters->addComplexPageMaster(bad); },
             [&] { masters->setPageDimensions("A", "1in", bad); },
             [&] { masters->setPageMargins("A", "1in", bad, "", ""); },
             [&] { masters->setPaddingForRegion("A", "xsl-region-body", "1in", bad, "", ""); },
             [&] { masters->editRegionLayout("A", data, Type::REGION_BODY, "xsl-region-body"); },
             [&] { masters->addRepeatingReferenceToComplexMaster("X", "A", bad); },
             [&] { masters->addConditionalReferenceToComplexMaster("X", "A", "z:odd", "odd"); },
             [&] { masters->editComplexPageMaster(PageMasterData("X", {conditional})); },
             [&] {
                 masters->setSimplePageMasterPrintingOptions({{"A", code}});
             }})
        EXPECT_THROW(command(), Core::Exception);
    const std::wstring before = masters.document().content();
    masters.committed();
    EXPECT_EQ(masters.document().content(), before);
    masters->setExtentForRegion("A", "xsl-region-body", "1in");
    EXPECT_TRUE(
        masters.committed().starts_with(page(L"<fo:region-body extent=\"1in\"></fo:region-body>")));
    EXPECT_THROW(M(nullptr), Core::NullPointerException);
}

TEST(LayoutMasters, ARegionKeepsWhatARecordCannotHold) {
    const std::wstring odd = L"<fo:region-body reference-orientation='-90' extent='50%' "
                             L"box-shadow='1pt 2pt 9pt red' padding-left='auto'/>";
    Masters masters(page(odd));
    RegionData data = masters->getRegionData("A", "xsl-region-body");
    EXPECT_EQ(data.orientation, 3);
    EXPECT_EQ(data.shadowY.getValueAsString(), "2pt");
    EXPECT_EQ(data.columnCount, 1);
    data.columnCount = 2;
    EXPECT_FALSE(masters->editRegionLayout("A", data, Type::REGION_BODY, "xsl-region-body"));
    EXPECT_TRUE(masters->bodyHasMoreThanOneColumn("A"));
    std::wstring edited = odd;
    edited.insert(edited.size() - 2, L" column-count=\"2\"");
    EXPECT_EQ(masters.committed(), page(edited));
    data = masters->getRegionData("A", "xsl-region-body");
    data.shadowX = {};
    data.shadowColor = L"blue";
    data.orientation = 4;
    data.backgroundImage = L"url(a.png)";
    data.backgroundGradient = L"linear";
    data.borderStyleTop = 4;
    masters->editRegionLayout("A", data, Type::REGION_BODY, "xsl-region-body");
    const RegionData read = masters->getRegionData("A", "xsl-region-body");
    EXPECT_EQ(read.shadowX.getValueAsString(), "0pt");
    EXPECT_EQ(read.orientation, 0);
    EXPECT_EQ(read.backgroundImage, "data:,linear");
    EXPECT_EQ(read.borderStyleTop, 4);
    masters->setBackgroundGradientForRegion("A", "xsl-region-body", "");
    masters->setBoxShadowDataForRegion("A", "xsl-region-body", "", "", "");
    EXPECT_EQ(masters.committed(),
              page(L"<fo:region-body extent='50%' padding-left='auto' column-count=\"2\" "
                   L"border-top-style=\"solid\" background-image=\"data:,linear\" "
                   L"background-size=\"100%\"/>"));
}

TEST(LayoutMasters, ReferToSimpleOnes) {
    Masters masters(page(L"<fo:region-body/>"));
    for (const char* name : {"ComplexMaster1", "ComplexMaster3"})
        masters->addComplexPageMaster(name);
    EXPECT_EQ(masters->getNextComplexMasterName(), "ComplexMaster2");
    ReferenceInfo conditional(ReferenceInfo::conditional, "A");
    conditional.setCondition("odd-or-even", "odd");
    ReferenceInfo repeating(ReferenceInfo::repeating, "A");
    repeating.setMaximumRepeat("5");
    const Core::Vector<ReferenceInfo> references{
        conditional, {9, "A"}, {ReferenceInfo::single, "A"}, repeating, conditional};
    masters->editComplexPageMaster(PageMasterData("ComplexMaster1", references));
    masters->editComplexPageMaster(PageMasterData("A", references));
    const auto entries = masters->getComplexPageMasterEntries("ComplexMaster1");
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[1].attributeName, "odd-or-even");
    EXPECT_EQ(entries[3].attributeName, "5");
    conditional.setCondition("1st", "odd");
    EXPECT_THROW(masters->editComplexPageMaster(PageMasterData("ComplexMaster3", {conditional})),
                 Core::Exception);
    const std::wstring alternative =
        L"<fo:conditional-page-master-reference master-reference=\"A\" odd-or-even=\"odd\"/>";
    EXPECT_EQ(masters.committed(),
              page(L"<fo:region-body/>") +
                  L"<fo:page-sequence-master master-name=\"ComplexMaster3\"/>"
                  L"<fo:page-sequence-master master-name=\"ComplexMaster1\">"
                  L"<fo:repeatable-page-master-alternatives maximum-repeats=\"no-limit\">" +
                  alternative + alternative +
                  L"</fo:repeatable-page-master-alternatives>"
                  L"<fo:single-page-master-reference master-reference=\"A\"/>"
                  L"<fo:repeatable-page-master-reference master-reference=\"A\" "
                  L"maximum-repeats=\"5\"/></fo:page-sequence-master>");
}

TEST(LayoutMasters, KeepPrintingOptionsFirst) {
    Masters masters(page(L"<fo:region-body/>") + L"<fo:simple-page-master/>");
    auto options = masters->getSimplePageMasterPrintingOptions();
    ASSERT_EQ(options.size(), 1U);
    const String id = options["A"].mediaColor.getObjectID();
    EXPECT_EQ(id.length(), 8);
    EXPECT_NE(masters->getSimplePageMasterPrintingOptions()["A"].mediaColor.getObjectID(), id);
    options["A"].duplex.setStaticValue("true");
    options["A"].inputTray.setType(PropertyValueType::Dynamic);
    options["A"].psPrinterCode = "a < b";
    options["nobody"] = options["A"];
    masters->setSimplePageMasterPrintingOptions(options);
    const std::wstring written =
        page(L"<qf:printing-options duplex=\"true\" fo:id=\"" + wide(id) +
             L"\"><qf:ps-printer-code>a &lt; b</qf:ps-printer-code></qf:printing-options>"
             L"<fo:region-body/>");
    EXPECT_EQ(masters.committed(), written + L"<fo:simple-page-master/>");
    EXPECT_TRUE(masters.document().content().find(L"xmlns:qf=\"urn:forme:qf/1.0\"") < 120);
    EXPECT_EQ(masters->getSimplePageMasterPrintingOptions()["A"].psPrinterCode, "a < b");
    masters->setSimplePageMasterPrintingOptions({{"A", PrintingAttributes()}});
    EXPECT_EQ(masters.committed(), page(L"<fo:region-body/>") + L"<fo:simple-page-master/>");
}

TEST(LayoutMasters, AreWrittenWhereTheyAreNow) {
    Masters masters(page(L""));
    MarkedDocument& document = masters.document();
    document->setContent(L"<!-- <fo:layout-master-set> --><fo:root xmlns:fo='u'>"
                         L"<fo:layout-master-set id='set'/></fo:root>",
                         true);
    masters->setPageDimensions("A", "1in", "");
    EXPECT_EQ(masters.committed(), page(L"", L" page-width=\"1in\""));
    document->setContent("<fo:root xmlns:fo='u'/>", true);
    EXPECT_THROW(masters->commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_THROW(M(&document.face()), Core::Exception);
    EXPECT_EQ(masters->getLayoutMasterXml(),
              "<fo:layout-master-set>\n<fo:simple-page-master master-name=\"A\" "
              "page-width=\"1in\"/></fo:layout-master-set>");
}
