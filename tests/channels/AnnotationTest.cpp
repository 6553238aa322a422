#include "channels/AnnotationBuffer.h"
#include "foundation/Exception.h"
#include "foundation/ObjectId.h"
#include "foundation/xml/Element.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Core::String;
using A = AnnotationBuffer;

const std::wstring start = L"<fo:root xmlns:fo='http://www.w3.org/1999/XSL/Format'";
const std::wstring rest = L"<fo:layout-master-set/><fo:page-sequence><fo:flow><fo:block>text"
                          L"</fo:block></fo:flow></fo:page-sequence></fo:root>";
const std::wstring qf = L" xmlns:qf='urn:forme:qf/1.0'";

/// The root's attributes and what stands before the page masters, as one text.
class Head {
public:
    explicit Head(const std::wstring& head) {
        document_->setContent(String(start + head + rest), true);
        document_->setCaretPos(false, document_.find(L"text"));
        document_.heard();
    }
    MarkedDocument* operator->() { return &document_; }
    std::wstring text() const {
        const std::wstring text = document_.content();
        return text.substr(start.size(), text.size() - start.size() - rest.size());
    }

private:
    MarkedDocument document_;
};

String allOf(const DocumentSignature& s) {
    return s.name + "|" + s.location + "|" + s.reason + "|" + s.title + "|" +
           s.certificateSerialNumber;
}

const DocumentSignature ada{"Ada", "<Rome>", "\"", "Dr", "7"};
const std::wstring adaMarkup = L" qf:name=\"Ada\" qf:location=\"&lt;Rome&gt;\" qf:reason=\"&quot;\""
                               L" qf:title=\"Dr\" qf:certificate-serial-number=\"7\"/>";

} // namespace

TEST(Annotations, TakeTheSignatureWhereTheReferenceAndTheIdSay) {
    const std::wstring ref = L" qf:annotation-reference='a'";
    const std::wstring a = L"<qf:annotation id='a'><qf:signature/><qf:signature name='2'/>"
                           L"</qf:annotation>";
    const std::wstring bare = L"<qf:annotation fo:id='a'>x</qf:annotation>";
    const std::wstring refB = L" qf:annotation-reference='b'";
    for (const auto& [head, id, expected] : {
             // No reference: a new signature, in a new annotation or in the one there is.
             std::tuple(qf + L">", "a",
                        qf +
                            L" qf:annotation-reference=\"a\">\n<qf:annotation qf:id=\"a\">"
                            L"<qf:signature" +
                            adaMarkup + L"</qf:annotation>"),
             std::tuple(qf + L">" + a, "a",
                        qf +
                            L" qf:annotation-reference=\"a\"><qf:annotation id='a'><qf:signature/>"
                            L"<qf:signature name='2'/><qf:signature" +
                            adaMarkup + L"</qf:annotation>"),
             // Another reference: the last signature, or a new one.
             std::tuple(qf + refB + L">" + a, "a",
                        qf +
                            L" qf:annotation-reference=\"a\"><qf:annotation id='a'><qf:signature/>"
                            L"<qf:signature name=\"Ada\"" +
                            adaMarkup.substr(14) + L"</qf:annotation>"),
             std::tuple(qf + refB + L">" + bare, "a",
                        qf +
                            L" qf:annotation-reference=\"a\"><qf:annotation fo:id='a'>x"
                            L"<qf:signature" +
                            adaMarkup + L"</qf:annotation>"),
             // A reference, and no such annotation: its id is one of "fo".
             std::tuple(qf + refB + L">", "a",
                        qf +
                            L" qf:annotation-reference=\"a\">\n<qf:annotation fo:id=\"a\">"
                            L"<qf:signature" +
                            adaMarkup + L"</qf:annotation>"),
             std::tuple(qf + ref + L">", "a",
                        qf + ref + L">\n<qf:annotation fo:id=\"a\"><qf:signature" + adaMarkup +
                            L"</qf:annotation>"),
             // The one that is referred to: its last signature, or else a child of another name.
             std::tuple(qf + ref + L">" + bare, "a",
                        qf + ref + L"><qf:annotation fo:id='a'>x<qf:annotation" + adaMarkup +
                            L"</qf:annotation>"),
         }) {
        Head document(head);
        const EditorState before = stateOf(document->face());
        A annotations(&document->face());
        annotations.setDocumentSignature(ada, id);
        annotations.commitChangesToEditableBuffer();
        EXPECT_EQ(document.text(), expected);
        const bool isRead = expected.find(L"<qf:signature") != std::wstring::npos;
        EXPECT_EQ(A(&document->face()).hasDocumentSignature(), isRead);
        EXPECT_EQ(allOf(A(&document->face()).getDocumentSignature()), isRead ? allOf(ada) : "||||");
        EXPECT_EQ(document->heard(), "bc");
        expectReplays(document->face(), before);
        annotations.commitChangesToEditableBuffer();
        EXPECT_EQ(document.text(), expected);

        annotations.removeDocumentSignature(id);
        annotations.commitChangesToEditableBuffer();
        EXPECT_EQ(document.text(), qf + L">");
        EXPECT_FALSE(A(&document->face()).hasDocumentSignature());
    }
}

TEST(Annotations, AreKnownByAnyIdAndHoldScripts) {
    Head document(qf + L">\n  <!-- <fo:layout-master-set/> -->\n  <qf:annotation  id = 'a'/>\n  "
                       L"<qf:annotation fo:id='b'><qf:signature name='1'/><qf:signature "
                       L"reason='2'/></qf:annotation>\n");
    A annotations(&document->face());
    EXPECT_EQ(annotations.getAnnotationNodes().size(), 2U);
    EXPECT_EQ(annotations.getAnnotation("b"), annotations.getAnnotationNodes().back());
    EXPECT_EQ(annotations.getAnnotation(""), nullptr);
    EXPECT_TRUE(annotations.annotationHasSignature(annotations.getAnnotation("b")));
    EXPECT_EQ(allOf(annotations.getDocumentSignatureFromElement(
                  annotations.getLastSignatureInAnnotation(annotations.getAnnotation("b")))),
              "||2||");
    // What is asked of an annotation that is not there.
    EXPECT_FALSE(annotations.annotationHasSignature(annotations.getAnnotation("c")));
    EXPECT_FALSE(annotations.getLastSignatureInAnnotation(nullptr));
    EXPECT_TRUE(annotations.getJSElementsFromAnnotation("c").empty());
    EXPECT_EQ(allOf(annotations.getDocumentSignatureFromElement(nullptr)), "||||");
    EXPECT_EQ(annotations.getDocumentSignatureID(), "");

    const std::wstring before = document.text();
    annotations.addJavaScriptToAnnotation("b", "if (a < b && c) x = \"]]>\";", "pdf");
    annotations.addJavaScriptToAnnotation("c", "1", "");
    annotations.addJavaScriptToAnnotation("c", "2", "");
    EXPECT_EQ(annotations.getJSElementsFromAnnotation("c").size(), 2U);
    annotations.commitChangesToEditableBuffer();
    std::wstring expected = before;
    expected.insert(expected.rfind(L"</qf:annotation>"),
                    L"<qf:javascript qf:output-type=\"pdf\">if (a &lt; b &amp;&amp; c) x = "
                    L"\"]]&gt;\";</qf:javascript>");
    expected += L"<qf:annotation qf:id=\"c\"><qf:javascript qf:output-type=\"\">1</qf:javascript>"
                L"<qf:javascript qf:output-type=\"\">2</qf:javascript></qf:annotation>";
    EXPECT_EQ(document.text(), expected);

    ObjectId::seed(1);
    const String taken = ObjectId::generate();
    annotations.addJavaScriptToAnnotation(taken, "", "");
    ObjectId::seed(1);
    EXPECT_NE(annotations.generateAnnotationId(), taken);
    ObjectId::unseed();
}

TEST(Annotations, LoseNothingWhereTheyCannotBeWritten) {
    Head document(qf + L" qf:annotation-reference='a'><qf:annotation id='a'/>");
    A annotations(&document->face());
    EXPECT_THROW(annotations.removeDocumentSignature("b"), Core::NullPointerException);
    EXPECT_THROW(annotations.setDocumentSignature({"x", "", L"\x01", "", ""}, "b"),
                 Core::Exception);
    EXPECT_THROW(annotations.addJavaScriptToAnnotation("b", L"\x01", ""), Core::Exception);
    annotations.commitChangesToEditableBuffer();
    EXPECT_FALSE(document->face().canUndo());

    annotations.addJavaScriptToAnnotation("b", "x", "");
    document->face().setContent(document->text().content() + "", true);
    document->face().insertXmlTextAtPosition(static_cast<int>(start.size()), " ");
    const EditorState changed = stateOf(document->face());
    EXPECT_THROW(annotations.commitChangesToEditableBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document->face()), changed);

    EXPECT_THROW(A(nullptr), Core::NullPointerException);
    (*document.operator->())
        ->setContent("<fo:root><!-- <fo:layout-master-set/> --></fo:root>", true);
    EXPECT_THROW(A(&document->face()), Core::Exception);
}

TEST(Annotations, DeclareWhatTheyNeedOnTheRoot) {
    Head document(L" a='1'>");
    A annotations(&document->face());
    annotations.setDocumentSignature(ada, "a");
    annotations.commitChangesToEditableBuffer();
    EXPECT_EQ(xmlError(document->text().content()), "");
    EXPECT_EQ(annotations.getDocumentBufferEnd() + 1, document->find(L"<fo:layout-master-set"));
    EXPECT_EQ(document->caret(), document->find(L"text"));
    const std::wstring signedOnce = document.text();
    EXPECT_NE(signedOnce.find(L" xmlns:qf=\"urn:forme:qf/1.0\""), std::wstring::npos);
    annotations.setDocumentSignature({"Bob", "", "", "", ""}, "a");
    annotations.commitChangesToEditableBuffer();
    EXPECT_EQ(allOf(A(&document->face()).getDocumentSignature()), "Bob||||");
    EXPECT_NE(document.text().find(L" xmlns:qf=\"urn:forme:qf/1.0\""), std::wstring::npos);
    document->face().undo();
    EXPECT_EQ(document.text(), signedOnce);
    document->face().undo();
    EXPECT_EQ(document.text(), L" a='1'>");
}
