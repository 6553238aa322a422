#include "pages/PageSequenceBuffer.h"

#include "foundation/Exception.h"
#include "foundation/xml/XmlDocument.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace {

using Core::String;
using S = PageSequenceBuffer;
using I = PageSequenceInfo;

/// A document with these page masters and sequences; B is a block.
String documentWith(const std::wstring& masters, const std::wstring& sequences) {
    return String(LR"(<?xml version="1.0" encoding="iso-8859-1"?>
<!DOCTYPE qfd:document [<!ENTITY e "E">]>
<qfd:document xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qfd="urn:forme:qfd/1.0">)"
                  L"<fo:layout-master-set>" +
                  masters + L"</fo:layout-master-set>" + writtenOut(sequences) +
                  L"</qfd:document>");
}

void load(const MarkedDocument& document, const String& text) {
    document->setContent(text, true);
}

/// What stands behind the page masters.
std::wstring sequencesOf(const MarkedDocument& document) {
    const std::wstring text = document.content();
    const std::size_t start = text.rfind(L"</fo:layout-master-set>") + 23;
    return inShort(text.substr(start, text.rfind(L"</") - start));
}

std::wstring firstStaticContent(const MarkedDocument& document) {
    const std::wstring text = sequencesOf(document);
    const std::size_t start = text.rfind(L"<fo:page-sequence");
    const std::size_t end = text.find(L"<fo:flow", start);
    return text.substr(text.find(L'>', start) + 1, end - text.find(L'>', start) - 1);
}

/// What undoing the last commit would do, the last first: "+" inserts, "-" deletes, "c" places the
/// caret.
std::string lastStep(const MarkedDocument& document) {
    EditActionStack stack = document->getEditActionStack();
    std::string step;
    for (int i = 0; i < 6; ++i) {
        const EditAction action = stack.getUndoAction();
        step += "+-=c()"[action.getType()];
        EXPECT_TRUE(i != 1 || inShort(wide(action.getString())) == sequencesOf(document));
    }
    return step;
}

const std::wstring body = L"<fo:flow flow-name=\"f\"><B>a</B></fo:flow>";

TEST(PageSequences, AreListedByWhatTheySay) {
    S sequences(documentWith(L"", LR"-(<fo:page-sequence fo:master-reference="A &amp; B" id="i"/>
<fo:page-sequence/><qf:insert-document src="url(a&amp;b)"/><qf:insert-document src="c"/>
<qfd:page-sequence-repeat fo:master-reference="m" fo:id="r" xpath="x[a[b=']']]/y" sort="s" condition="c"/>
<qfd:page-sequence-repeat fo:master-reference="m" id="p" xpath="/d" parent-sequence-id="q"/>
<qfd:page-sequence-repeat fo:master-reference="m" id="q" xpath="z" parent-sequence-id="p"/>
<qfd:page-sequence-repeat master-reference="m"/><x:page-sequence master-reference="m"/>)-"));
    const auto rows = sequences.getPageSequenceInfo();
    ASSERT_EQ(rows.size(), 6u);
    EXPECT_EQ(sequences.getPaginationNodes().size(), 8u);
    EXPECT_TRUE(rows[0].kind == I::pageSequence && rows[0].masterReference == L"A & B");
    EXPECT_TRUE(rows[1].kind == I::insertDocument && rows[1].externalSource == L"a&b");
    EXPECT_EQ(rows[2].externalSource, L"c");
    EXPECT_TRUE(rows[3].kind == I::pageSequenceRepeat && rows[3].id == L"r" &&
                rows[3].sort == L"s" && rows[3].condition == L"c");
    EXPECT_TRUE(sequences.masterIsUsedByPageSequence(L"A & B"));
    EXPECT_FALSE(sequences.masterIsUsedByPageSequence(L""));
    EXPECT_TRUE(sequences.getReferenceForSequence(2).empty());
    EXPECT_EQ(sequences.getXPathContextFromParentSet({}, L"r"), L"x/y");
    EXPECT_EQ(sequences.getXPathContextFromParentSet({}, L"q"), L"/d/z");
    EXPECT_EQ(sequences.getXPathContextFromParentSet({L"p"}, L"q"), L"/z");
    for (const wchar_t* unknown : {L"", L"i", L"u"})
        EXPECT_EQ(sequences.getXPathContextFromParentSet({}, unknown), L"/");
}

TEST(PageSequences, ChangeWhatTheySayAndNothingElse) {
    S sequences(documentWith(
        L"", L"<qfd:page-sequence-repeat fo:master-reference='m' id='i'><fo:static-content"
             L" flow-name='a'/><fo:static-content flow-name='b'/></qfd:page-sequence-repeat>"
             L"<qf:insert-document src=''/>"));
    for (int index : {-1, 2, 3}) {
        sequences.deletePageSequence(index);
        sequences.convertPageSequence(index, PageMasterData(L"m"), L"", L"", L"", L"");
        sequences.movePageSequenceDown(index);
        sequences.setIdForSequence(index, L"x");
    }
    sequences.removeExternalDocument(0);
    sequences.setReferenceForSequence(1, L"x");
    sequences.setReferenceForSequence(0, L"");
    sequences.changeReferenceName(L"", L"x");
    sequences.changeSortForPageIndx(1, L"x");
    sequences.changeFlowNameForStaticContent(0, L"a", L"b");
    sequences.addNewPageSequence(PageMasterData(L"m"));
    sequences.setDuplexPrinting();
    sequences.commitChangesToEditableBuffer();
    const auto markup = [&](int index) {
        const SmartPtr<Xml::XmlDocument> alone(new Xml::XmlDocument);
        alone->createRootNodeByImport(sequences.getPageSequenceByIdx(index), false);
        return wide(alone->writeToString().trim());
    };
    EXPECT_EQ(markup(0), LR"(<qfd:page-sequence-repeat fo:master-reference="m" id="i"/>)");
    EXPECT_EQ(markup(1), LR"(<qf:insert-document src=""/>)");
    EXPECT_TRUE(!sequences.getPageSequenceByIdx(2) && sequences.getDocumentBufferStart() == -1);

    sequences.changeReferenceName(L"m", L"n&");
    sequences.setIdForSequence(0, L"j");
    sequences.changeXPathReferenceForPageIndx(0, L"");
    sequences.changeFlowNameForStaticContent(0, L"a", L"c");
    sequences.setParentSetIdForSequence(0, L"p");
    sequences.setSourceForExternalDocument(1, L"u");
    sequences.addExternalDocument(L"v");
    EXPECT_EQ(markup(0), L"<qfd:page-sequence-repeat fo:master-reference=\"n&amp;\" id=\"i\""
                         L" fo:id=\"j\" xpath=\"\" parent-sequence-id=\"p\"/>");
    EXPECT_EQ(markup(1), L"<qf:insert-document src=\"url(u)\"/>");
    EXPECT_EQ(markup(2), L"<qf:insert-document xmlns:qf=\"urn:forme:qf/1.0\" src=\"url(v)\"/>");
    EXPECT_TRUE(S::getStaticContent(sequences.getPageSequenceByIdx(0), L"c"));
    sequences.removeExternalDocument(1);
    EXPECT_EQ(sequences.getPaginationNodes().size(), 2u);
}

TEST(PageSequences, TakePrintingOptionsByAllNodesAndGiveThemBySequences) {
    S sequences(documentWith(L"", L"<qf:insert-document src=''/><fo:page-sequence/>"
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
    load(document, documentWith(L"", L"<fo:page-sequence>" + body +
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

TEST(PageSequences, TakeTheHeadersOfThoseWhosePagesHaveTheMasterToo) {
    const std::wstring masters =
        LR"(<fo:simple-page-master master-name="A &amp; B"><fo:region-start region-name="x"/>)"
        LR"(<fo:region-end region-name="x"/></fo:simple-page-master><fo:simple-page-master)"
        LR"( master-name="d"/><fo:page-sequence-master master-name="0"><fo:alternatives><fo:one)"
        LR"( master-reference="A &amp; B"/></fo:alternatives></fo:page-sequence-master>)";
    const std::wstring sequences =
        L"<fo:page-sequence master-reference='A &amp; B'><!--<fo:static-content flow-name='k'/>-->"
        L"<fo:static-content flow-name='&e;'><B>1</B></fo:static-content>" +
        body +
        L"</fo:page-sequence><qfd:page-sequence-repeat fo:master-reference='0' xmlns:z='urn:z'>"
        L"<fo:static-content flow-name='E' ><B z:a=''>\x00E9</B></fo:static-content>" +
        body +
        L"</qfd:page-sequence-repeat><fo:page-sequence master-reference='d'><fo:static-content"
        L" flow-name='xsl-region-end'/>" +
        body + L"</fo:page-sequence>";
    const std::wstring own =
        L"<fo:static-content xmlns:z=\"urn:z\" flow-name='E' ><B z:a=''>\x00E9</B>"
        L"</fo:static-content>";
    const auto contentsOnA = [&](const PageMasterData& master) {
        MarkedDocument document;
        load(document, documentWith(masters, sequences));
        S buffer(&document.face());
        buffer.addNewPageSequence(master);
        buffer.commitChangesToEditableBuffer();
        EXPECT_EQ(xmlError(document->getContent()), "");
        return firstStaticContent(document);
    };
    const auto empty = [](const std::wstring& name) {
        return L"<fo:static-content flow-name=\"" + name +
               L"\" font-size=\"12pt\" font-family=\"Times\"><B>_</B></fo:static-content>";
    };
    const std::wstring rest = empty(L"xsl-region-before") + empty(L"xsl-region-after");
    EXPECT_EQ(contentsOnA(PageMasterData(L"A & B")), own + empty(L"x") + rest);
    Core::Vector<ReferenceInfo> references;
    for (const wchar_t* name : {L"A & B", L"d", L""})
        references.emplace_back(ReferenceInfo::single, name);
    EXPECT_EQ(contentsOnA(PageMasterData(L"0", references)),
              own + L"<fo:static-content flow-name='xsl-region-end'/>" +
                  empty(L"xsl-region-start") + rest);
}

TEST(PageSequences, AreNotWrittenOverWhatHasChanged) {
    const std::wstring sequence =
        L"<fo:page-sequence master-reference=\"m\">" + body + L"</fo:page-sequence>";
    MarkedDocument document;
    load(document, documentWith(L"", sequence));
    S sequences(&document.face());
    S copy(sequences);
    document->replaceXmlText(document.find(L"</fo:layout"), document.find(L"</fo:layout") + 22,
                             L"<fo:x/></fo:layout-master-set>");
    sequences.setIdForSequence(0, L"i");
    sequences.commitChangesToEditableBuffer();
    EXPECT_EQ(document.text().tagName(sequences.getDocumentBufferStart()), L"fo:page-sequence");
    EXPECT_EQ(lastStep(document), ")c-+c(");
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

/// The names of the sequences that random commands leave, next to what the buffer says.
TEST(PageSequences, KeepTheirOrderThroughAnyCommands) {
    Random random(5);
    MarkedDocument document;
    for (int round = 0; round < 60; ++round) {
        load(document, documentWith(L"<fo:simple-page-master master-name=\"m\"/>",
                                    L"<fo:page-sequence master-reference=\"m\">" + body +
                                        L"</fo:page-sequence>"));
        S sequences(&document.face());
        std::vector<std::wstring> ids{L""};
        for (int step = 0; step < 30; ++step) {
            const std::size_t at = random.below(ids.size() + 1);
            const int index = static_cast<int>(at);
            const bool isThere = at < ids.size();
            switch (random.below(6)) {
            case 0:
                if (random.oneIn(2))
                    sequences.addNewPageSequence(PageMasterData(L"m"));
                else
                    sequences.addNewPageSequenceRepeat(PageMasterData(L"m"), L"/a[b>1]", L"", L"",
                                                       L"");
                ids.push_back(L"i" + std::to_wstring(step));
                sequences.setIdForSequence(static_cast<int>(ids.size()) - 1, String(ids.back()));
                break;
            case 1:
                sequences.deletePageSequence(index);
                if (isThere)
                    ids.erase(ids.begin() + index);
                break;
            case 2:
                sequences.movePageSequenceDown(index);
                if (at + 1 < ids.size())
                    std::swap(ids[at], ids[at + 1]);
                break;
            case 3:
                sequences.movePageSequenceUp(index);
                if (at > 0 && isThere)
                    std::swap(ids[at], ids[at - 1]);
                break;
            case 4:
                sequences.convertPageSequence(index, PageMasterData(L"m"), L"/b", L"", L"", L"");
                break;
            default: {
                const EditorState before = stateOf(document.face());
                sequences.commitChangesToEditableBuffer();
                EXPECT_EQ(xmlError(document->getContent()), "");
                if (stateOf(document.face()).text != before.text)
                    expectReplays(document.face(), before);
                const String once = document->getContent();
                sequences.commitChangesToEditableBuffer();
                EXPECT_EQ(document->getContent(), once);
                for (std::size_t i = 0; i <= ids.size(); ++i) {
                    const int place = document->getPageSequencePosition(static_cast<int>(i));
                    EXPECT_EQ(document->getPageSequenceIdxFromPos(place),
                              i < ids.size() ? static_cast<int>(i) : -1);
                }
            }
            }
            std::vector<std::wstring> said;
            for (const I& row : sequences.getPageSequenceInfo())
                said.push_back(wide(row.id));
            ASSERT_EQ(said, ids);
        }
    }
}

} // namespace
