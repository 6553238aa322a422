#include "templates/QFDTemplateFunctionalBuffer.h"

#include "foundation/Messages.h"
#include "support/PartDocument.h"

#include <gtest/gtest.h>

namespace {

using Core::String;
using T = QFDTemplateFunctionalBuffer;

const std::wstring head = LR"(<?xml version="1.0"?>
<!DOCTYPE qfd:document [<!ENTITY firm 'Forme &amp; Sons'>]>
<!-- <qfd:document> <fo:layout-master-set> -->
<qfd:document xmlns:qfd='urn:forme:qfd/1.0' xmlns:fo="http://www.w3.org/1999/XSL/Format"
  xmlns:xsl="urn:x?a&amp;b">)";
const std::wstring tail = LR"(<fo:layout-master-set/><fo:page-sequence><fo:flow>
<fo:block>a</fo:block></fo:flow></fo:page-sequence></qfd:document>)";

/// A template with these data, and what becomes of them.
struct Template : PartDocument {
    explicit Template(const std::wstring& data) : PartDocument(head, data, tail) {}

    /// Edits and commits: one undo step.
    template <typename Edit>
    void edit(Edit edit) {
        const EditorState before = stateOf(face());
        T data(&face());
        edit(data);
        EXPECT_EQ(stateOf(face()), before);
        data.commitChangesToDocumentBuffer();
        if (stateOf(face()) == before)
            return;
        expectReplays(face(), before);
        const EditorState after = stateOf(face());
        data.commitChangesToDocumentBuffer();
        T(&face()).commitChangesToDocumentBuffer();
        EXPECT_EQ(stateOf(face()), after);
    }
};

const std::wstring all = LR"(
  <!-- <fo:layout-master-set/> &#13; -->
  <qfd:localization><qfd:locale language-id='de' language-file="de.xml" language-name=""/>
    <qfd:locale language-id="fr"/><qfd:locale language-file="x"/></qfd:localization>
  <qfd:script namespace-prefix="s" language='JScript'><![CDATA[a < b && c]]>&firm;</qfd:script>
  <qfd:variable   name='v' value="&firm;"></qfd:variable>
  <qfd:attribute-value object="i" attribute="fo:src" dynamic-value="x"/>
  <qfd:xslt-global><qfd:xslt xmlns:q="u"><fo:layout-master-set/> <xsl:if test='a>b'/></qfd:xslt></qfd:xslt-global>
)";

TEST(TemplateData, AreReadAsTheyStand) {
    Template document(all);
    document.edit([](T& data) {
        EXPECT_EQ(data.getScripts(),
                  (Core::Vector<ManagedScript>{{L"s", L"JScript", L"a < b && cForme & Sons"}}));
        EXPECT_TRUE(data.getScriptByNamespacePrefix(L"s"));
        EXPECT_FALSE(data.getScriptByNamespacePrefix(L"t"));
        EXPECT_EQ(data.getVariables(), (Core::Vector<QFDVariable>{{L"v", L"Forme & Sons"}}));
        EXPECT_EQ(data.getQFDLocales(),
                  (Core::Vector<QFDTemplateLocale>{{L"de", L"de.xml", L"de"}, {L"fr", L"", L""}}));
        EXPECT_EQ(data.getDefaultQFDLocale().id, L"fr");
        EXPECT_EQ(data.getGlobalXsltText(), L"<fo:layout-master-set/> <xsl:if test=\"a&gt;b\"/>");
        EXPECT_EQ(data.getNamespaces().at(L"xsl"), L"urn:x?a&b");
        EXPECT_EQ(data.getNamespacesAsString(),
                  L" xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:qfd=\"urn:forme:qfd/1.0\""
                  L" xmlns:xsl=\"urn:x?a&amp;b\"");
    });
    EXPECT_EQ(document.part(), all);
    EXPECT_EQ(document.heard(), "");
}

/// The element that is left empty stays, and one without content is a plain start tag.
TEST(TemplateData, ComeAndGo) {
    Template document(L"");
    document.edit([](T& data) { data.insertOrEditQFDLocale(L"a", L"f", L"A"); });
    document.edit([](T& data) {
        EXPECT_EQ(data.getDefaultQFDLocale(), QFDTemplateLocale());
        data.deleteQFDLocale(L"a");
    });
    EXPECT_EQ(document.part(), L"\n<qfd:localization></qfd:localization>");
    document.edit([](T& data) {
        data.getQFDDocumentElement()->remove_child(
            data.getQFDDocumentElement()->get_children(L"localization").front());
    });
    EXPECT_EQ(document.part(), L"");
}

TEST(TemplateData, OfScriptsTellWhatTheyUseAsMarkup) {
    ManagedScript script(L"s", L"CSharp",
                         L"a<msxsl:assembly name='n\"' x='y' href=\"h\"/>\n<msxsl:using "
                         L"namespace=\"&amp;&#10;\" ></msxsl:using >b<msxsl:using/><msxsl:assembly "
                         L"href='h<msxsl:using namespace=\"a\"> </msxsl:using>");
    Template document(L"");
    document.edit([&](T& data) { data.overrideScripts({script}); });
    EXPECT_EQ(document.content().find(L"xmlns:msxsl=\"urn:schemas-microsoft-com:xslt\">"),
              document.content().find(L"urn:x?a&amp;b") + 15);
    script.parseAndRemoveMsxslNodes();
    EXPECT_EQ(script.assemblies, (Core::Vector<MsxslAssembly>{{L"n\"", L"h"}}));
    EXPECT_EQ(script.usings, (Core::Vector<MsxslUsing>{{L"&\n"}}));
    EXPECT_EQ(script.text, L"a\nb<msxsl:using/><msxsl:assembly href='h<msxsl:using "
                           L"namespace=\"a\"> </msxsl:using>");
    EXPECT_EQ(T(&document.face()).getScripts().front().text,
              L"<msxsl:assembly name=\"n&quot;\" /><msxsl:using namespace=\"&amp;&#10;\"/>" +
                  script.text);
}

TEST(TemplateData, OfTheStyleSheetAreMarkup) {
    Template document(all);
    document.edit([&](T& data) {
        data.overrideGlobalXsltText(
            L" <xsl:if test=\"]]&gt;\">&firm;&#xA0;</xsl:if>\n<a><b/></a> ");
        EXPECT_TRUE(data.getXsltInGlobalXslt()->get_parent() == data.getGlobalXslt());
    });
    EXPECT_EQ(T(&document.face()).getGlobalXsltText(),
              L"<xsl:if test=\"]]&gt;\">&firm;&#x00A0;</xsl:if>\n<a><b/></a>");
    document.edit([](T& data) {
        data.getXsltInGlobalXslt()->set_attribute(L"xmlns:xsl", L"own");
        data.overrideGlobalXsltText(L"<xsl:if/>");
        EXPECT_EQ(data.getXsltInGlobalXslt()->get_namespace_defs().at(L"xsl"), L"own");
    });
    document.edit([](T& data) {
        data.overrideGlobalXsltText(L"\n ");
        EXPECT_FALSE(data.getGlobalXslt());
        EXPECT_EQ(data.getGlobalXsltText(), L"");
    });
    EXPECT_EQ(document.part().find(L"xslt"), std::wstring::npos);
    const wchar_t* const nested = L"<fo:root><fo:layout-master-set/></fo:root><fo:root/>";
    document.edit([&](T& data) { data.overrideGlobalXsltText(nested); });
    document.edit([&](T& data) {
        EXPECT_EQ(data.getGlobalXsltText(), nested);
        data.overrideVariables({{L"w", L"1"}});
    });
    EXPECT_TRUE(document.part().ends_with(
        L"</qfd:xslt-global><qfd:variable   name=\"w\" value=\"1\"></qfd:variable>"));
    for (const wchar_t* refused :
         {L"<a>", L"</qfd:xslt><qfd:xslt>", L"<no:a/>", L"<fo:root></fo:root><no:a/>", L"&no;"})
        EXPECT_THROW(T(&document.face()).overrideGlobalXsltText(refused), Core::Exception);
}

TEST(TemplateData, ChangeTheIdOfAnObject) {
    Template document(all + L"<qfd:attribute-value note=\"n\" object=\"k\" attribute=\"\"/>");
    document.edit([](T& data) {
        EXPECT_FALSE(data.overrideQFDAttributesId(L"j", L"k"));
        EXPECT_TRUE(data.overrideQFDAttributesId(L"i", L"j"));
        data.addXmlNodeFromQFDAttributeToRootNode({}, data.getQFDDocumentElement());
        data.addXmlNodeFromQFDAttributeToRootNode({L"j", L"", L"", L"c", L"", L""},
                                                  data.getQFDDocumentElement());
        const auto entries = data.getQFDAttributes().getAttributeList();
        ASSERT_EQ(entries.size(), 3u);
        EXPECT_EQ(entries[2], data.getQFDAttributeFromXmlNode(
                                  data.getQFDDocumentElement()->get_children().back()));
    });
    EXPECT_TRUE(document.part().ends_with(
        L"<qfd:attribute-value object=\"j\" attribute=\"fo:src\" dynamic-value=\"x\"/>"
        L"<qfd:attribute-value note=\"n\" object=\"k\" attribute=\"\"/>"
        L"<qfd:attribute-value object=\"j\" attribute=\"\" condition=\"c\"/>"));
}

/// References to them, that is: in a comment and a section nothing is one.
TEST(TemplateData, LoseCarriageReturnsAtACommit) {
    Template document(L"<!--&#13;--><qfd:script language='a&#xD;b'>c&#13;d<![CDATA[&#13;]]>"
                      L"</qfd:script><qfd:variable name=''/>");
    T data(&document.face());
    data.commitChangesToDocumentBuffer();
    EXPECT_EQ(data.getScripts().front().text, L"cd&#13;");
    document->undo();
    document.edit([](T&) {});
    EXPECT_EQ(document.part(), L"<!--&#13;--><qfd:script language=\"ab\">cd<![CDATA[&#13;]]>"
                               L"</qfd:script><qfd:variable name=''/>");
}

/// What cannot be done leaves no trace.
TEST(TemplateData, AreRefusedWhole) {
    Template document(all);
    T stale(&document.face());
    EXPECT_THROW(stale.overrideVariables({{L"a", L"b"}, {L"\x1", L""}}), Core::Exception);
    EXPECT_EQ(stale.getVariables().size(), 1u);
    document->setContent(String(head + L" " + all + tail), false);
    const EditorState before = stateOf(document.face());
    stale.overrideVariables({});
    EXPECT_THROW(stale.commitChangesToDocumentBuffer(), Core::Exception);
    EXPECT_EQ(stateOf(document.face()), before);

    for (const wchar_t* text : {L"<fo:root><fo:layout-master-set/></fo:root>", L"",
                                L"<qfd:document><a><fo:layout-master-set/></a></qfd:document>",
                                L"<qfd:document><a/></qfd:document>"}) {
        document->setContent(text, true);
        T without(&document.face());
        EXPECT_THROW(without.getScripts(), Core::NullPointerException);
        EXPECT_THROW(without.commitChangesToDocumentBuffer(), Core::NullPointerException);
    }
    document->setContent(L"<?a?>\n<qfd:document>\n<a></b><fo:layout-master-set/></qfd:document>",
                         true);
    EXPECT_TRUE(messageOf([&] { T refused(&document.face()); }).starts_with("3:"));
}

} // namespace
