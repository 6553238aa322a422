#include "document/history/EditActionStack.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "pages/LayoutMasterSetBuffer.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using Core::String;
using M = LayoutMasterSetBuffer;

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

} // namespace

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
             [&] {
                 masters->editRegionLayout("A", data, RegionType::REGION_BODY, "xsl-region-body");
             },
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
    EXPECT_FALSE(masters->editRegionLayout("A", data, RegionType::REGION_BODY, "xsl-region-body"));
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
    masters->editRegionLayout("A", data, RegionType::REGION_BODY, "xsl-region-body");
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
