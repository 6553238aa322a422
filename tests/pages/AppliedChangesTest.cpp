#include "pages/DetachedPages.h"
#include "pages/PGMasterBufferUtilities.h"
#include "pages/PGMasterUtilities.h"
#include "properties/PageFacts.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <set>

using Core::String;

namespace {

/// A document in a host's setup with this text.
struct Edited : MarkedDocument {
    explicit Edited(const String& content) { face().setContent(content, true); }
    using MarkedDocument::content;
    String all() const { return face().getContent(); }
};

} // namespace

/// What was not edited changes nothing that a reader sees, in whatever document.
TEST(AppliedChanges, OfAnUntouchedPageKeepEverything) {
    for (const auto& path : corpusAndSamples()) {
        SCOPED_TRACE(path);
        const String content = textOf(path);
        const PageFacts facts(content);
        const std::vector<String> masters = PGMasterBuffer(content).getAllSimplePageMasters();
        for (std::size_t sequence = 0; sequence < facts.sequences.size(); ++sequence) {
            const String& master = masters[sequence % masters.size()];
            const int number = static_cast<int>(sequence);
            Edited target(content);
            const EditorState before = stateOf(target.face());
            const int pages = target->getFirstPageGeneratorPos();
            const Edited source(content.subString(0, static_cast<unsigned>(pages - 1)) +
                                target->getPageSequenceForEditing(number, master, L"locked") +
                                content.subString(static_cast<unsigned>(target.text().lastTag()),
                                                  static_cast<unsigned>(content.length())));
            PGMasterUtilities::applyChanges(&target.face(), &source.face(), master, {number});
            const PageFacts changed(target.all());
            EXPECT_EQ(changed.flows, facts.flows);
            EXPECT_EQ(std::multiset(changed.statics.begin(), changed.statics.end()),
                      std::multiset(facts.statics.begin(), facts.statics.end()));
            expectReplays(target.face(), before);
        }
    }
}

TEST(AppliedChanges, TakeMasterAndStaticContentsOverInOneStep) {
    Edited target(detachedPages);
    target->setCaretPos(false, detachedPages.find(L"one", 0));
    const EditorState before = stateOf(target.face());
    String edited = detachedPages;
    edited.replaceAll(L"extent=\"2in\"", L"extent=\"3in\" v:a=\"1\"");
    edited.replaceAll(L"xmlns:qf=\"",
                      L"qf:protect-copy=\"yes\" xmlns:w=\"unused\" xmlns:v=\"urn:v\" xmlns:qf=\"");
    edited.replaceAll(L">two<", L">TWO<");
    edited.replaceAll(L">three<", L">THREE<"); // fills no region of the master
    Edited source(edited);
    target.heard();
    PGMasterUtilities::applyChanges(&target.face(), &source.face(), L"A & B", {0, 1, 2, 2, 9, -1});
    const String changed = target.all();
    const String foot = L"<fo:static-content flow-name=\"foot\"><fo:block>TWO</fo:block>"
                        L"</fo:static-content>";
    EXPECT_GT(
        changed.find(L"<fo:simple-page-master xmlns:v=\"urn:v\" master-name=\"A &amp; B\">", 0), 0);
    EXPECT_GT(
        changed.find(L"[b>3]\">" + foot +
                         L"<fo:static-content flow-name=\"note\"><fo:block>three</fo:block>"
                         L"</fo:static-content><fo:static-content flow-name=\"xsl-region-before"
                         L"\"><fo:block>one</fo:block></fo:static-content><fo:flow",
                     0),
        0);
    EXPECT_GT(
        changed.find(L"<!-- <fo:static-content flow-name=\"foot\">no</fo:static-content> -->", 0),
        0);
    EXPECT_GT(changed.find(L" qf:protect-copy=\"yes\">", 0), 0);
    EXPECT_EQ(PageFacts(changed).flows, PageFacts(detachedPages).flows);
    EXPECT_EQ(xmlError(changed), "");
    const std::string heard = target.heard();
    for (const char kind : std::string("bcs"))
        EXPECT_LE(std::count(heard.begin(), heard.end(), kind), 1);
    expectReplays(target.face(), before);
    EXPECT_EQ(source.all(), edited);

    target->undo();
    PGMasterUtilities::applyChanges(&target.face(), &source.face(), L"none", {1});
    EXPECT_EQ(target.all(), detachedPages);
    PGMasterUtilities::applyChanges(&target.face(), &source.face(), L"A & B", {});
    EXPECT_GT(target.all().find(L"3in", 0), 0);
    EXPECT_EQ(PageFacts(target.all()).statics, PageFacts(detachedPages).statics);
    const Edited broken(L"<a>");
    EXPECT_THROW(PGMasterUtilities::applyChanges(&target.face(), &broken.face(), L"A & B", {1}),
                 Core::Exception);

    Edited twice(L"<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
                 L"<fo:layout-master-set><fo:simple-page-master master-name=\"A &amp; B\"/>"
                 L"</fo:layout-master-set><fo:page-sequence><fo:static-content flow-name=\"x\"/>"
                 L"<fo:static-content/><fo:static-content flow-name=\"x\"><fo:block/>"
                 L"</fo:static-content></fo:page-sequence></fo:root>");
    PGMasterUtilities::applyChanges(&twice.face(), &source.face(), L"A & B", {0});
    EXPECT_EQ(PageFacts(twice.all()).statics.size(), 5U); // of one name and of none
    EXPECT_EQ(xmlError(twice.all()), "");
    EXPECT_GT(twice.all().find(L"xmlns:qf=", 0), 0);
}

/// With a style sheet comes what its prefixes and entities mean; languages are the target's own.
TEST(AppliedChanges, TakeTheTemplatesDataOver) {
    const auto document = [](const String& data, const wchar_t* size, const String& declared) {
        return L"<qfd:document xmlns:qfd=\"urn:forme:qfd/1.0\" xmlns:fo=\"urn:fo\"" + declared +
               L">" + data +
               L"<fo:layout-master-set><fo:simple-page-master master-name=\"M\" page-width=\"" +
               size + L"\"/></fo:layout-master-set></qfd:document>";
    };
    const String same = L"<qfd:variable  name='v' value=''/><qfd:attribute-value note='n'/>\n";
    const String own = L"<qfd:localization><qfd:locale language-id=\"de\"/></qfd:localization>";
    const String declared = L" xmlns:x=\"other\"";
    Edited target(document(same + own + L"<qfd:script/>", L"1in", declared));
    const EditorState before = stateOf(target.face());
    const String sheet = L"<qfd:xslt-global><qfd:xslt xmlns:x=\"u\"><x:y select=\"z:a\">&co;</x:y>"
                         L"</qfd:xslt></qfd:xslt-global>";
    const auto source = [&](const wchar_t* address) {
        return L"<!DOCTYPE qfd:document [<!ENTITY co 'ACME'>]>" +
               document(L"<qfd:variable name='v'/><qfd:script>&co;</qfd:script>" + sheet, L"2in",
                        L" xmlns:z=\"" + String(address) + L"\"");
    };
    const auto expected = [&](const wchar_t* address) {
        return document(
            same + own +
                L"<qfd:script namespace-prefix=\"\" language=\"\">ACME</qfd:script>"
                L"<qfd:xslt-global><qfd:xslt xmlns:fo=\"urn:fo\" xmlns:qfd=\"urn:forme:qfd/1.0\" "
                L"xmlns:x=\"u\" xmlns:z=\"" +
                String(address) + L"\"><x:y select=\"z:a\">ACME</x:y></qfd:xslt></qfd:xslt-global>",
            L"2in", declared);
    };
    for (const wchar_t* address : {L"z", L"y", L"y"}) {
        PGMasterUtilities::applyChanges(&target.face(), &Edited(source(address)).face(), L"M", {});
        EXPECT_EQ(target.all(), expected(address));
    }
    while (target->canUndo())
        target->undo();
    EXPECT_EQ(stateOf(target.face()), before);
}

/// An entity is what it stands for, and what the root has to declare moves no sequence away.
TEST(AppliedChanges, FindNamesThatAreEntities) {
    const auto document = [](const String& declared, const String& contents) {
        return L"<!DOCTYPE fo:root [<!ENTITY n \"h\">]>\n<fo:root "
               L"xmlns:fo=\"http://www.w3.org/1999/"
               L"XSL/Format\"" +
               declared +
               L"><fo:layout-master-set><fo:simple-page-master "
               L"master-name=\"&n;\"><fo:region-before"
               L" region-name=\"h\"/></fo:simple-page-master></fo:layout-master-set>"
               L"<fo:page-sequence master-reference=\"&n;\">" +
               contents + L"</fo:page-sequence><fo:page-sequence>" + contents +
               L"</fo:page-sequence></fo:root>";
    };
    const String declared = L" xmlns:qf=\"urn:forme:qf/1.0\"";
    const String header = L"<fo:static-content flow-name=\"h\"><fo:block qf:a=\"\"/>"
                          L"</fo:static-content>";
    Edited target(document(L"", L"<fo:static-content flow-name=\"&n;\"/>"));
    const EditorState before = stateOf(target.face());
    const Edited source(document(declared, header));
    PGMasterUtilities::applyChanges(&target.face(), &source.face(), L"h", {1, 0, 1});
    EXPECT_EQ(target.all(), document(declared, header));
    expectReplays(target.face(), before);
}

TEST(AppliedChanges, PagesForEditingHaveALockedFlow) {
    const Edited document(detachedPages);
    const String page = document->getPageSequenceForEditing(1, L"'\"&", L"x & y");
    EXPECT_TRUE(
        page.startsWith(L"<fo:page-sequence master-reference='&apos;&quot;&amp;'>\n\t<fo:"));
    EXPECT_TRUE(page.endsIn(L"You are editing &apos;&quot;&amp; page type</fo:block>\n"
                            L"\t\t</fo:flow>\n</fo:page-sequence>"));
    EXPECT_GT(page.find(L"\t\t\t<fo:block>&#x00A0;</fo:block>\n\t\t\t<fo:block text-align", 0), 0);
    EXPECT_EQ(page.find(L"margin=", 0), -1);
    EXPECT_EQ(document->getPageSequenceForEditing(0, L"B", L"f"), L"");
    EXPECT_EQ(document->getPageSequenceForEditing(9, L"B", L"f"), L"");
    EXPECT_EQ(document->getPageSequenceContentWithReplacedFoFlow(3, L"X"), L"X");
    const Edited noFlow(L"<fo:root xmlns:fo='f'><fo:page-sequence a='1'> <b/> </fo:page-sequence>"
                        L"<fo:page-sequence><fo:flow>1</fo:flow>-<fo:flow/>+</fo:page-sequence>"
                        L"<fo:page-sequence/></fo:root>");
    EXPECT_EQ(noFlow->getPageSequenceContentWithReplacedFoFlow(0, L"X"), L" <b/> X");
    EXPECT_EQ(noFlow->getPageSequenceContentWithReplacedFoFlow(1, L"X"), L"-X+");
    EXPECT_EQ(noFlow->getPageSequenceForEditing(2, L"B", L"f"), L"");

    const PGMasterBufferUtilities buffer(detachedPages);
    const String dummy = buffer.getDummyPage(L"{1} & B", {{L"region-before", L"<"}});
    EXPECT_TRUE(dummy.startsWith(
        L"<fo:page-sequence master-reference=\"{1} &amp; B\">\n\t<fo:static-content "
        L"flow-name=\"&lt;\">\n\t\t<fo:block>&#x00A0;</fo:block>\n\t</fo:static-content>\n\t<fo:"));
    EXPECT_GT(
        dummy.find(L"This page type, {1} &amp; B, is not used by any page sequence.</fo:block>"
                   L"\n\t\t<fo:block text-align",
                   0),
        0);
    EXPECT_TRUE(dummy.endsIn(L"here.</fo:block>\n</fo:flow>\n</fo:page-sequence>"));
    EXPECT_TRUE(buffer.getNewFoFlow(L"B").startsWith(
        L"<fo:block fo:text-align=\"center\">&#x00A0;</fo:block>\n<fo:block fo:"));
    EXPECT_EQ(xmlError(PGMasterBufferUtilities::makeDummyBuffer(L"a<fo:inline/>")), "");

    for (const auto& [before, after] :
         {std::pair{L"master-references=\"1\" fo:master-reference = 'a\"b' x",
                    L"master-references=\"1\" fo:master-reference='N' x"},
          std::pair{L"no-master-reference=\"a\"", L"no-master-reference=\"a\""}}) {
        String reference = before;
        PGMasterUtilities::changePageMasterReferenceForSequence(reference, L"N");
        EXPECT_EQ(reference, after);
    }
    String::setResourceText(19601, L"Hier & da");
    EXPECT_GT(buffer.getDummyPage(L"B", {}).find(L">Hier &amp; da<", 0), 0);
    String::setResourceText(19601, L"You can edit its headers, footers and side regions here.");
}
