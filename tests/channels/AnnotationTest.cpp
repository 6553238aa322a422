#include "channels/AnnotationBuffer.h"
#include "channels/BookmarkBuffer.h"
#include "channels/Head.h"
#include "foundation/Exception.h"
#include "foundation/ObjectId.h"
#include "foundation/xml/Element.h"
#include "support/Documents.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using Core::String;
using A = AnnotationBuffer;

std::string allOf(const DocumentSignature& s) {
    const String all = s.name + "|" + s.location + "|" + s.reason + "|" + s.title + "|" +
                       s.certificateSerialNumber;
    return std::string(Core::Encoder::convertStringToUTF8(all).view());
}

const DocumentSignature ada{"Ada", "<Rome>", "\"", "Dr", "7"};
const String adaMarkup = L" qf:location=\"&lt;Rome&gt;\" qf:reason=\"&quot;\" qf:title=\"Dr\""
                         L" qf:certificate-serial-number=\"7\"/>";

class Documents : public testing::TestWithParam<std::filesystem::path> {};

} // namespace

TEST_P(Documents, KeepEveryByteInFrontOfThePagesThatNobodyChanged) {
    MarkedDocument document;
    document->setContent(textOf(GetParam()), true);
    const std::wstring before = document.content();
    BookmarkBuffer(&document.face()).commitChangesToEditableBuffer();
    A annotations(&document.face());
    annotations.commitChangesToEditableBuffer();
    EXPECT_EQ(document.content(), before);
    EXPECT_FALSE(document->canUndo());

    const auto pages = static_cast<std::size_t>(annotations.getDocumentBufferEnd() + 1);
    annotations.setDocumentSignature(ada, "new");
    annotations.commitChangesToEditableBuffer();
    EXPECT_EQ(xmlError(document.text().content()), "");
    EXPECT_EQ(allOf(A(&document.face()).getDocumentSignature()), allOf(ada));
    const std::wstring after = document.content();
    EXPECT_TRUE(after.ends_with(before.substr(pages)));
    document->undo();
    EXPECT_EQ(document.content(), before);
}

INSTANTIATE_TEST_SUITE_P(Channels, Documents, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

TEST(Annotations, TakeTheSignatureWhereTheReferenceAndTheIdSay) {
    const std::wstring signedTwice = L"<qf:annotation  id='a'><qf:signature/><qf:signature name='2'"
                                     L"/></qf:annotation>";
    const std::wstring unsignedOne = L"<qf:annotation fo:id='a'>x</qf:annotation>";
    const std::wstring newOne =
        L"<qf:annotation qf:id=\"a\"><qf:signature qf:name@</qf:annotation>";
    const std::wstring foreign =
        L"<qf:annotation fo:id=\"a\"><qf:signature qf:name@</qf:annotation>";
    // What the root refers to, the annotations before and after.
    const std::tuple<std::wstring, std::wstring, std::wstring> cases[] = {
        {L"", L"", newOne},
        {L"", signedTwice,
         signedTwice.substr(0, signedTwice.size() - 16) +
             L"<qf:signature qf:name@</qf:annotation>"},
        {L"b", signedTwice, signedTwice.substr(0, signedTwice.size() - 22) + L"@</qf:annotation>"},
        {L"b", unsignedOne, L"<qf:annotation fo:id='a'>x<qf:signature qf:name@</qf:annotation>"},
        {L"b", L"", foreign},
        {L"a", L"", foreign},
        {L"a", unsignedOne, L"<qf:annotation fo:id='a'>x<qf:annotation qf:name@</qf:annotation>"}};
    for (const auto& [reference, before, after] : cases) {
        const std::wstring start = fo + qf + L" qf:annotation-reference=\"";
        Head document(start + reference + L"\"><!-- -->" + before);
        const EditorState old = stateOf(document.face());
        A annotations(&document.face());
        annotations.setDocumentSignature(ada, "a");
        String expected = String(start + L"a\"><!-- -->" + after);
        expected.replaceAll(L"@", (L"=\"Ada\"" + adaMarkup).c_str());
        for (int commit = 0; commit < 2; ++commit) {
            annotations.commitChangesToEditableBuffer();
            EXPECT_EQ(document.part(), expected.view());
        }
        EXPECT_EQ(document.heard(), "bc");
        const bool isSigned = expected.find(L"<qf:signature", 0) >= 0;
        EXPECT_EQ(A(&document.face()).hasDocumentSignature(), isSigned);
        EXPECT_EQ(allOf(A(&document.face()).getDocumentSignature()),
                  isSigned ? allOf(ada) : "||||");
        expectReplays(document.face(), old);

        annotations.removeDocumentSignature("a");
        annotations.commitChangesToEditableBuffer();
        EXPECT_EQ(document.part(), fo + qf + L"><!-- -->");
    }
}

TEST(Annotations, AreKnownByAnyIdAndHoldScripts) {
    Head document(fo + qf +
                  L">\n  <!-- <fo:layout-master-set/> -->\n  <qf:annotation  id = 'a'/>\n  "
                  L"<qf:annotation fo:id='b'><qf:signature name='1'/><qf:signature "
                  L"reason='2'/></qf:annotation>\n");
    A annotations(&document.face());
    EXPECT_EQ(annotations.getAnnotationNodes().size(), 2U);
    const Xml::Element* b = annotations.getAnnotation("b");
    EXPECT_EQ(b, annotations.getAnnotationNodes().back());
    EXPECT_TRUE(annotations.annotationHasSignature(b));
    EXPECT_EQ(allOf(annotations.getDocumentSignatureFromElement(
                  annotations.getLastSignatureInAnnotation(b))),
              "||2||");
    EXPECT_FALSE(annotations.annotationHasSignature(annotations.getAnnotation("c")));
    EXPECT_TRUE(annotations.getJSElementsFromAnnotation("c").empty());
    EXPECT_EQ(allOf(annotations.getDocumentSignatureFromElement(nullptr)), "||||");
    EXPECT_EQ(annotations.getDocumentSignatureID(), "");
    EXPECT_EQ(annotations.getAnnotation(""), nullptr);

    std::wstring expected = document.part();
    annotations.addJavaScriptToAnnotation("b", "if (a < b) x = \"]]>\";", "pdf");
    annotations.addJavaScriptToAnnotation("c", "1", "");
    annotations.addJavaScriptToAnnotation("c", "2", "");
    EXPECT_EQ(annotations.getJSElementsFromAnnotation("c").size(), 2U);
    annotations.commitChangesToEditableBuffer();
    expected.insert(expected.rfind(L"</qf:annotation>"),
                    L"<qf:javascript qf:output-type=\"pdf\">if (a &lt; b) x = \"]]&gt;\";"
                    L"</qf:javascript>");
    expected += L"<qf:annotation qf:id=\"c\"><qf:javascript qf:output-type=\"\">1</qf:javascript>"
                L"<qf:javascript qf:output-type=\"\">2</qf:javascript></qf:annotation>";
    EXPECT_EQ(document.part(), expected);

    Head aliased(fo + qf + L" xmlns:x='urn:forme:qf/1.0' x:annotation-reference='b'>");
    A other(&aliased.face());
    other.setDocumentSignature(ada, "a");
    other.commitChangesToEditableBuffer();
    EXPECT_NE(aliased.part().find(L" x:annotation-reference=\"a\">"), std::wstring::npos);
    EXPECT_EQ(other.getDocumentSignatureID(), "a");
    other.removeDocumentSignature("a");
    EXPECT_EQ(other.getDocumentSignatureID(), "");

    ObjectId::seed(1);
    const String taken = ObjectId::generate();
    annotations.addJavaScriptToAnnotation(taken, "", "");
    ObjectId::seed(1);
    EXPECT_NE(annotations.generateAnnotationId(), taken);
    ObjectId::unseed();
}

TEST(Annotations, DeclareWhatTheyNeedOnTheRootAndLoseNothingWhereTheyCannotBeWritten) {
    Head document(L" a=\"1\">");
    A annotations(&document.face());
    EXPECT_THROW(annotations.setDocumentSignature({"x", L"\x01", "", "", ""}, "b"),
                 Core::Exception);
    EXPECT_THROW(annotations.addJavaScriptToAnnotation("b", L"\x01", ""), Core::Exception);
    EXPECT_THROW(annotations.removeDocumentSignature("b"), Core::NullPointerException);
    annotations.commitChangesToEditableBuffer();
    EXPECT_FALSE(document->canUndo());

    const std::wstring rootTag =
        L" a=\"1\" qf:annotation-reference=\"a\" xmlns:qf=\"urn:forme:qf/1.0\">";
    annotations.setDocumentSignature(ada, "a");
    annotations.commitChangesToEditableBuffer();
    EXPECT_TRUE(document.part().starts_with(rootTag));
    EXPECT_EQ(annotations.getDocumentBufferEnd() + 1, document.find(L"<fo:layout-master-set"));
    EXPECT_EQ(document.caret(), document.find(L"text"));
    annotations.setDocumentSignature({"Bob", "", "", "", ""}, "a");
    annotations.commitChangesToEditableBuffer();
    EXPECT_TRUE(document.part().starts_with(rootTag));
    EXPECT_EQ(allOf(A(&document.face()).getDocumentSignature()), "Bob||||");

    annotations.removeDocumentSignature("a");
    document.insertUnheard(L" ");
    const EditorState changed = stateOf(document.face());
    EXPECT_THROW(annotations.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document.face()), changed);
    document->setContent("<fo:root><!-- <fo:layout-master-set/> --></fo:root>", true);
    EXPECT_THROW(A(&document.face()), Core::Exception);
}
