// Documents as plain XSL-FO. FORME_EXPORTED_DOCUMENTS sets how many are edited by random commands
// and tried, FORME_RANDOM_SEED where the streams begin.

#include "Session.h"
#include "foundation/Encoder.h"
#include "foundation/xml/DomParser.h"
#include "foundation/xml/ParseException.h"
#include "properties/PageCommands.h"
#include "properties/TableCommands.h"
#include "support/Documents.h"
#include "support/Formatter.h"

#include <forme/export/XslFoExport.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

namespace {

using Core::String;

String exported(const String& text) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setContent(text, true);
    return XslFoExport(document.get()).getText();
}

String wide(const std::string& text) {
    return Core::Encoder::convertUTF8ToString(text);
}

/// A template with that in its flow.
std::string document(const std::string& flow) {
    return R"(<!DOCTYPE qfd:document [<!ENTITY bank "Quay &#38;#38; Co">]>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format"
 xmlns:qf="urn:forme:qf/1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform" xmlns:my="urn:my">
<fo:layout-master-set><fo:simple-page-master master-name="A"><qf:printing-options/><fo:region-after/><fo:region-body/></fo:simple-page-master></fo:layout-master-set>
<fo:page-sequence master-reference="A"><qf:trans-promo src="x"/><fo:flow flow-name="xsl-region-body">)" +
           flow + "</fo:flow></fo:page-sequence></qfd:document>";
}

/// What comes out between two texts, without the line breaks between objects.
std::string between(const std::string& from, const std::string& text, const std::string& to) {
    std::string out = Core::Encoder::toDisplayText(exported(wide(text)));
    std::erase(out, '\n');
    const std::size_t start = out.find(from) + from.size();
    return out.substr(start, out.rfind(to) - start);
}

std::string flowOf(const std::string& flow) {
    return between("<fo:flow flow-name=\"xsl-region-body\">", document(flow), "</fo:flow>");
}

struct Case {
    std::string given;
    std::string expected;
};

void expectFlows(const std::vector<Case>& cases) {
    for (const auto& [given, expected] : cases) {
        EXPECT_EQ(flowOf(given), expected) << given;
        EXPECT_EQ(flowOf(expected), expected);
    }
}

} // namespace

TEST(XslFoExport, ShowsWhatAReaderSees) {
    expectFlows({
        {R"(<fo:block fo:color="red" qf:x="1" my:y="2" test="3">a &lt; &bank;<!-- c --><![CDATA[<d>]]></fo:block>)",
         R"(<fo:block color="red">a &lt; Quay &amp; Co&lt;d&gt;</fo:block>)"},
        {R"(<fo:block><qfd:field>f</qfd:field><qf:tab/><qfd:inline-xslt><xsl:if><fo:inline>x</fo:inline></xsl:if></qfd:inline-xslt></fo:block>)",
         R"(<fo:block><fo:inline>f</fo:inline><fo:leader leader-length="0.5in"/></fo:block>)"},
        {R"(<qfd:conditional-block-sequence><qfd:conditional-block test="a"><fo:block>1</fo:block></qfd:conditional-block><qfd:conditional-block fo:id="i"><fo:block>2</fo:block></qfd:conditional-block></qfd:conditional-block-sequence>)",
         R"(<fo:block>1</fo:block><fo:block id="i"><fo:block>2</fo:block></fo:block>)"},
        {R"(<fo:block>a <qfd:inline-repeat xpath="x">b</qfd:inline-repeat><my:note>c<fo:inline>d</fo:inline></my:note></fo:block>)",
         R"(<fo:block>a b<fo:inline>d</fo:inline></fo:block>)"},
        // A placeholder keeps an empty line, and is nothing in one that is not.
        {R"(<fo:block>&#xA0;</fo:block><fo:block>a<fo:inline>&#xA0;</fo:inline></fo:block><fo:block><fo:inline>&#xA0;</fo:inline></fo:block>)",
         "<fo:block>\u00A0</fo:block><fo:block>a<fo:inline/></fo:block>"
         "<fo:block><fo:inline/>\u00A0</fo:block>"},
        {R"(<fo:block><qf:form><fo:block><qf:form-control type="RadioButton" checked="true"/><qf:form-control type="text" value="v" fo:color="red"/></fo:block></qf:form></fo:block>)",
         R"(<fo:block><fo:block><fo:block><fo:inline>(x)</fo:inline><fo:inline color="red" border="0.5pt solid">v</fo:inline></fo:block></fo:block></fo:block>)"},
        {R"-(<fo:block><fo:external-graphic src="url('a.png')"/><qf:media-object qf:preview-src="b.png"><qf:media-parameter/></qf:media-object><fo:instream-foreign-object><p xmlns="urn:p" my:q="&amp;">t</p></fo:instream-foreign-object></fo:block>)-",
         R"-(<fo:block><fo:external-graphic src="url('a.png')"/><fo:external-graphic src="b.png"/><fo:instream-foreign-object><p xmlns="urn:p" xmlns:my="urn:my" my:q="&amp;">t</p></fo:instream-foreign-object></fo:block>)-"},
    });
}

TEST(XslFoExport, PutsRightWhatIsNoXslFo) {
    const std::string cell = "<fo:table-cell><fo:block/></fo:table-cell>";
    const std::string row = "<fo:table-row>" + cell + "</fo:table-row>";
    const auto body = [](const std::string& rows) {
        return "<fo:table-body>" + rows + "</fo:table-body></fo:table>";
    };
    const std::string head = "<fo:table-header>" + row + "</fo:table-header>";
    const std::string column = "<fo:table-column/>";
    expectFlows({
        {"", "<fo:block/>"},
        {"a <fo:inline>b</fo:inline><fo:block>c</fo:block>d",
         "<fo:block>a "
         "<fo:inline>b</fo:inline></fo:block><fo:block>c</fo:block><fo:block>d</fo:block>"},
        {R"(<fo:block id="i">a</fo:block><fo:block id="i">b</fo:block>)",
         R"(<fo:block id="i">a</fo:block><fo:block>b</fo:block>)"},
        {R"(<fo:list-block id="i"/><fo:table id="i"><fo:table-column/><fo:table-body><fo:table-row/></fo:table-body></fo:table><fo:block id="i"/>)",
         R"(<fo:block id="i"/>)"},
        {"<fo:list-block><fo:list-item><fo:list-item-body>a</fo:list-item-body></"
         "fo:list-item></fo:list-block>",
         "<fo:list-block><fo:list-item><fo:list-item-label><fo:block/></"
         "fo:list-item-label><fo:list-item-body><fo:block>a</fo:block></fo:list-item-body></"
         "fo:list-item></fo:list-block>"},
        // Rows before the header, and a header alone.
        {R"(<fo:table><qfd:table-row-repeat xpath="x" fo:height="1in"><fo:table-cell/></qfd:table-row-repeat>)" +
             head + column + "</fo:table>",
         "<fo:table>" + column + head +
             body(R"(<fo:table-row height="1in">)" + cell + "</fo:table-row>")},
        {"<fo:table>" + head + "</fo:table>", "<fo:table>" + head + body(row)},
        // Cells that reach over more rows, or columns, than there are.
        {"<fo:table>" + column +
             body(R"(<fo:table-row><fo:table-cell number-rows-spanned="4"/>)" + cell +
                  "</fo:table-row><fo:table-row/>" + row),
         "<fo:table>" + column + column +
             body(
                 R"(<fo:table-row><fo:table-cell number-rows-spanned="2"><fo:block/></fo:table-cell>)" +
                 cell + "</fo:table-row>" + row)},
        {"<fo:table>" + body(cell + R"(<fo:table-cell ends-row="true"/>)" + cell),
         "<fo:table>" + body("<fo:table-row>" + cell + cell + "</fo:table-row>" + row)},
        {R"(<fo:block>a<fo:marker marker-class-name="m"/><fo:table-row><fo:table-cell>b</fo:table-cell></fo:table-row><fo:basic-link>c</fo:basic-link></fo:block>)",
         R"(<fo:block>a<fo:wrapper><fo:marker marker-class-name="m"/></fo:wrapper>b<fo:inline>c</fo:inline></fo:block>)"},
    });
    EXPECT_EQ(
        between(
            "</fo:layout-master-set>",
            R"(<fo:root xmlns:fo="http://www.w3.org/1999/XSL/Format"><fo:bookmark-tree/><fo:layout-master-set>
<fo:simple-page-master master-name="A"><fo:region-body region-name="b"/><fo:region-before/></fo:simple-page-master></fo:layout-master-set>
<fo:page-sequence master-reference="gone"><fo:flow flow-name="f">a</fo:flow><fo:static-content flow-name="xsl-region-before"/><fo:flow flow-name="b">c</fo:flow>
<fo:static-content flow-name="gone">d</fo:static-content></fo:page-sequence><fo:page-sequence master-reference="A"/></fo:root>)",
            "</fo:root>"),
        R"(<fo:page-sequence master-reference="A"><fo:static-content flow-name="xsl-region-before"><fo:block/></fo:static-content><fo:flow flow-name="b"><fo:block>a</fo:block><fo:block>c</fo:block></fo:flow></fo:page-sequence>)"
        R"(<fo:page-sequence master-reference="A"><fo:flow flow-name="b"><fo:block/></fo:flow></fo:page-sequence>)");
    EXPECT_EQ(exported(L"<qfd:document/>"), exported(exported(L"<fo:root/>")));
}

TEST(XslFoExport, TellsWhereItCannotRead) {
    const auto messageOf = [](const String& text) -> std::string {
        try {
            return Core::Encoder::toDisplayText(exported(text));
        } catch (const Xml::ParseException& failure) {
            return failure.what();
        }
    };
    EXPECT_EQ(messageOf(L"<fo:root>\n  <fo:flow></fo:root>"), "2:14: mismatched tag");
    EXPECT_EQ(messageOf(L"<html/>"), "1:1: the root element is neither fo:root nor qfd:document");
    EXPECT_EQ(messageOf(L"<!DOCTYPE fo:root SYSTEM 'x'><fo:root>&y;</fo:root>"),
              "1:39: undefined entity");
}

namespace {
/// A document after random commands, of one of several kinds.
std::string editedDocument(std::size_t number, Random& random,
                           const std::filesystem::path& folder) {
    const auto documents = corpusAndSamples();
    std::string path = documents[number % documents.size()];
    const std::size_t kind = number % 8;
    if (kind == 1 || kind == 3 || kind == 5) {
        path = folder / "new.xml";
        std::ofstream(path) << (kind == 1   ? randomDocument(random)
                                : kind == 3 ? documentWithTables(random, 20)
                                            : documentWithPages(random));
    }
    if (kind == 3 || (kind == 2 && textOf(path).find(L"<fo:table-cell", 0U) >= 0))
        return withTablesEdited(path, random, 10);
    if (kind == 4 || kind == 5)
        return withPagesEdited(path, random, 8);
    Session session;
    session.open(wide(path));
    static const CommandMix mix = everyCommand();
    for (int i = 0; i < 25; ++i)
        session.serveLine(randomCommand(random, session.document(), mix));
    return Core::Encoder::toDisplayText(session.document().getContent());
}

/// What a document of XSL-FO alone does not hold.
void expectPlain(const Xml::Element& element, std::set<String>& ids) {
    EXPECT_EQ(element.get_namespace_prefix(), String(L"fo"));
    for (const Xml::Attribute* attribute : element.get_attributes()) {
        EXPECT_TRUE(attribute->get_namespace_prefix().empty() ||
                    attribute->get_namespace_prefix() == String(L"xml"));
        if (attribute->get_name() == String(L"id")) {
            EXPECT_TRUE(ids.insert(attribute->get_value()).second);
        }
    }
    if (element.get_name() == String(L"instream-foreign-object") ||
        element.get_name() == String(L"declarations"))
        return;
    for (const Xml::Node* child : element.get_children())
        if (child->is_element())
            expectPlain(static_cast<const Xml::Element&>(*child), ids);
}

/// Gathers documents as one, with names of its own for each, because a formatter takes
/// longer to start than to format.
class Gathered {
public:
    void add(const std::string& text) {
        static const std::regex names(
            R"x( (master-name|master-reference|id|ref-id|internal-destination)="|)x"
            R"x( (region-name|flow-name)="(?!xsl-))x");
        const std::string own =
            std::regex_replace(text, names, "$&d" + std::to_string(count_++) + "-");
        masters_ += part(own, "<fo:layout-master-set>", "</fo:layout-master-set>");
        if (own.find("<fo:bookmark-tree>") != std::string::npos)
            bookmarks_ += part(own, "<fo:bookmark-tree>", "</fo:bookmark-tree>");
        const std::size_t pages = own.find("<fo:page-sequence ");
        pages_ += own.substr(pages, own.rfind("</fo:root>") - pages);
    }
    std::string text() const {
        return "<fo:root "
               "xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><fo:layout-master-set>" +
               masters_ + "</fo:layout-master-set>" +
               (bookmarks_.empty() ? ""
                                   : "<fo:bookmark-tree>" + bookmarks_ + "</fo:bookmark-tree>") +
               pages_ + "</fo:root>";
    }

private:
    static std::string part(const std::string& text, const std::string& from,
                            const std::string& to) {
        const std::size_t start = text.find(from) + from.size();
        return text.substr(start, text.find(to, start) - start);
    }

    std::string masters_;
    std::string bookmarks_;
    std::string pages_;
    int count_ = 0;
};

/// But for what documents say and a formatter cannot do: images that are not there, values
/// that mean nothing, text that is too long, a table with a caption.
std::set<std::string> realErrorsIn(const std::filesystem::path& document) {
    std::set<std::string> errors = formatterErrorsIn(document);
    std::erase_if(errors, [](const std::string& error) {
        static const std::regex given("Image not found|Invalid property value|overflows the "
                                      "viewport|No LayoutManager maker");
        return std::regex_search(error, given);
    });
    return errors;
}

} // namespace

TEST(XslFoExport, IsTakenByAFormatterWhateverWasEdited) {
    const auto first = static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1));
    const std::size_t samples = corpusAndSamples().size();
    const std::size_t count = setting("FORME_EXPORTED_DOCUMENTS", 60);
    const auto folder = newFolder("forme-export");
    Gathered gathered;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < samples + count; ++i) {
        SCOPED_TRACE("document " + std::to_string(i));
        Random random(first + static_cast<std::uint32_t>(i));
        const String given = i < samples ? textOf(corpusAndSamples()[i])
                                         : wide(editedDocument(i - samples, random, folder));
        const String once = exported(given);
        texts.push_back(Core::Encoder::toDisplayText(once));
        EXPECT_EQ(Core::Encoder::toDisplayText(exported(once)), texts.back());
        Xml::DomParser parser;
        parser.parseMemory(reinterpret_cast<const unsigned char*>(texts.back().data()),
                           texts.back().size());
        std::set<String> ids;
        expectPlain(*parser.getDocument()->getRootNode(), ids);
        gathered.add(texts.back());
    }
    if (!hasFormatter())
        GTEST_SKIP() << "fop is not installed";
    const auto all = folder / "all.fo";
    std::ofstream(all) << gathered.text();
    for (const std::string& error : realErrorsIn(all))
        ADD_FAILURE() << all << ": " << error;
    if (!HasFailure())
        std::filesystem::remove_all(folder);
}
