#include "pages/PageSequenceBuffer.h"

#include "foundation/Exception.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Core::String;
using S = PageSequenceBuffer;

/// A document with these page sequences; B is a block.
String documentWith(const std::wstring& sequences) {
    return String(LR"(<?xml version="1.0" encoding="iso-8859-1"?>
<!DOCTYPE qfd:document [<!ENTITY e "E">]>
<qfd:document xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qfd="urn:forme:qfd/1.0">)"
                  L"<fo:layout-master-set></fo:layout-master-set>" +
                  writtenOut(sequences) + L"</qfd:document>");
}

void load(const MarkedDocument& document, const String& text) {
    document->setContent(text, true);
}

const std::wstring body = L"<fo:flow flow-name=\"f\"><B>a</B></fo:flow>";

TEST(PageSequences, TakePrintingOptionsByAllNodesAndGiveThemBySequences) {
    S sequences(documentWith(L"<qf:insert-document src=''/><fo:page-sequence/>"
                             L"<qf:insert-document src=''/>"));
    std::vector<PrintingAttributes> options = sequences.getPageSequencesPrintingOptions();
    ASSERT_EQ(options.size(), 1u);
    options[0].copyCount.setStaticValue(L"1");
    EXPECT_THROW(sequences.setPageSequencesPrintingOptions(options), Core::Exception);
    EXPECT_TRUE(sequences.getPageSequencesPrintingOptions()[0].isEmpty());
    options.push_back(options[0]);
    options[1].copyCount.setStaticValue(L"2");
    sequences.setPageSequencesPrintingOptions(options);
    EXPECT_EQ(sequences.getPageSequencesPrintingOptions()[0].copyCount.getStaticValue(), L"2");
}

TEST(PageSequences, AreNotHalfChangedByWhatXmlCannotHold) {
    MarkedDocument document;
    load(document, documentWith(L"<fo:page-sequence>" + body +
                                L"</fo:page-sequence>"
                                L"<fo:page-sequence>" +
                                body + L"</fo:page-sequence>"));
    const String text = document->getContent();
    S sequences(&document.face());
    const PageMasterData master(L"m");
    const String bad = L"\x1";
    std::vector<PrintingAttributes> options = sequences.getPageSequencesPrintingOptions();
    options[0].copyCount.setStaticValue(L"1");
    options[1].psPrinterCode = bad;
    for (const std::function<void()>& change : std::initializer_list<std::function<void()>>{
             [&] { sequences.addNewPageSequence(PageMasterData(bad)); },
             [&] { sequences.addNewPageSequenceRepeat(master, L"/", L"", L"", bad); },
             [&] { sequences.addExternalDocument(bad); },
             [&] { sequences.convertPageSequence(0, master, L"/", bad, L"", L""); },
             [&] { sequences.setPageSequencesPrintingOptions(options); }}) {
        EXPECT_THROW(change(), Core::Exception);
        sequences.commitChangesToEditableBuffer();
        EXPECT_EQ(document->getContent(), text);
    }
}

TEST(PageSequences, AreNotWrittenOverWhatHasChanged) {
    const std::wstring sequence =
        L"<fo:page-sequence master-reference=\"m\">" + body + L"</fo:page-sequence>";
    MarkedDocument document;
    load(document, documentWith(sequence));
    S sequences(&document.face());
    S copy(sequences);
    document->replaceXmlText(document.find(L"</fo:layout"), document.find(L"</fo:layout") + 22,
                             L"<fo:x/></fo:layout-master-set>");
    sequences.setIdForSequence(0, L"i");
    sequences.commitChangesToEditableBuffer();
    EXPECT_EQ(document.text().tagName(sequences.getDocumentBufferStart()), L"fo:page-sequence");
    const EditorState committed = stateOf(document.face());
    EXPECT_THROW(copy.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document.face()), committed);
    document->insertText(L"x", false, false);
    const EditorState typed = stateOf(document.face());
    EXPECT_THROW(sequences.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document.face()), typed);
    load(document, L"<fo:root><!--<fo:layout-master-set/>--><fo:page-sequence/></fo:root>");
    EXPECT_THROW(S(&document.face()), Core::Exception);
}

} // namespace
