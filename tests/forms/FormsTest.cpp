// What of forms is no keystroke: the markup of controls, and what a host asks.

#include "forms/FormBuffer.h"
#include "foundation/xml/ParseException.h"
#include "support/MarkedDocument.h"
#include "templates/PropertyValueHandler.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

using Xml::FormControlType;

namespace {

::testing::AssertionResult matches(const std::wstring& text, const wchar_t* pattern) {
    return std::regex_match(text, std::wregex(pattern)) ? ::testing::AssertionSuccess()
                                                        : ::testing::AssertionFailure() << text;
}

} // namespace

TEST(Forms, WriteControls) {
    const MarkedDocument document(L"<B>|a</B>");
    FormBuffer forms = document->getFormBuffer();
    const auto xml = [&](FormControlType type, const wchar_t* name) {
        return wide(forms.getFormControlXml(type, name, L""));
    };
    EXPECT_EQ(xml(FormControlType::Text, L"a"), LR"(<qf:form-control type="text" name="a"/>)");
    EXPECT_EQ(xml(FormControlType::Submit, L"\"<&&amp;"),
              LR"(<qf:form-control type="submit" name="&quot;&lt;&amp;&amp;" value="Submit"/>)");
    EXPECT_TRUE(
        matches(xml(FormControlType::Button, L""),
                LR"(<qf:form-control type="button" name="button[A-Za-z]\w{21}" value="Button"/>)"));
    for (const bool isWrapped : {true, false})
        EXPECT_TRUE(matches(
            wide(forms.getFormControlXml(FormControlType::CheckBox, isWrapped, L"v")),
            isWrapped ? LR"(<qf:form><fo:block><[^<]*name="checkbox[^<]*"/></fo:block></qf:form>)"
                      : LR"(<qf:form-control type="checkbox" name="checkbox\w{22}"/>)"));
    EXPECT_EQ(document.marked(), L"<B>|a</B>");
    EXPECT_FALSE(document->canUndo());
}

TEST(Forms, InsertControlsUnderNewNames) {
    MarkedDocument document(L"<B>|_</B>");
    FormBuffer forms = document->getFormBuffer();
    const EditorState before = stateOf(document.face());
    forms.insertFormControl(FormControlType::RadioButton, false, true, L"");
    const wchar_t* inForm =
        LR"(<B><qf:form><B><qf:form-control type="radiobutton" name="radiobutton\w{22}"/>\|</B></qf:form>_</B>)";
    EXPECT_TRUE(matches(document.marked(), inForm));
    EXPECT_EQ(document.heard(), "bc");
    expectReplays(document.face(), before);
    const Core::String first = forms.getPreviousControlAttribute(L"radiobutton", L"qf:name");
    forms.insertFormControl(FormControlType::RadioButton, true, false, L"");
    EXPECT_NE(forms.getPreviousControlAttribute(L"radiobutton", L"qf:name"), first);
    document->insertText(L"x", false, false);
    document->undo();
    document->undo();
    EXPECT_TRUE(matches(document.marked(), inForm));
}

TEST(Forms, KeepDynamicValuesInTheTemplateInTheSameStep) {
    MarkedDocument document(L"<B><qf:form><B>a^b|</B></qf:form></B>");
    FormBuffer forms = document->getFormBuffer();
    const EditorState before = stateOf(document.face());
    forms.insertFormControl(FormControlType::Text, true, false, L"/customer/name");
    EXPECT_TRUE(matches(
        document.marked(),
        LR"(<B><qf:form><B>a<qf:form-control type="text" name="text\w{22}" fo:id="\w{22}"/>\|</B></qf:form></B>)"));
    EXPECT_EQ(document.heard(), "bcs");
    PropertyValueEx value(L"qf:value", forms.getPreviousControlAttribute(L"text", L"fo:id"));
    PropertyValueHandler::read(&document.face(), value);
    EXPECT_EQ(value.getDynamicValue(), L"/customer/name");
    expectReplays(document.face(), before);
    document->undo();
    EXPECT_FALSE(document->canUndo());

    const Core::String markup =
        forms.getFormControlXml(FormControlType::Text, L"n", L"/customer/name");
    EXPECT_NE(markup.find(L" fo:id=\"", 0), -1);
    EXPECT_NE(document.content().find(L"/customer/name"), std::wstring::npos);
    document->undo();
    EXPECT_EQ(stateOf(document.face()), before);
    EXPECT_FALSE(document->canUndo());
}

TEST(Forms, TakeTheValueBackWithAControlThatIsRefused) {
    const MarkedDocument inLabel(
        L"<fo:list-block><fo:list-item><fo:list-item-label><B>1|</B></fo:list-item-label>"
        L"</fo:list-item></fo:list-block>");
    const EditorState before = stateOf(inLabel.face());
    inLabel->getFormBuffer().insertFormControl(FormControlType::Text, true, false, L"x");
    EXPECT_EQ(stateOf(inLabel.face()), before);
    const MarkedDocument broken(L"<B>|a</B>");
    const std::wstring content = broken.content();
    broken->setContent(Core::String(content.substr(0, content.find(L"<fo:layout")) +
                                    L"<qfd:attribute-value>" +
                                    content.substr(content.find(L"<fo:layout"))),
                       true);
    const EditorState loaded = stateOf(broken.face());
    EXPECT_THROW(
        broken->getFormBuffer().insertFormControl(FormControlType::Text, true, false, L"x"),
        Xml::ParseException);
    EXPECT_EQ(stateOf(broken.face()), loaded);
    EXPECT_FALSE(broken->canUndo());
}
