#include "XmlTesting.h"
#include "support/Documents.h"

#include <expat.h>
#include <gtest/gtest.h>

namespace {

/// What Expat makes of a text, but for a line break behind the root's start tag.
std::string eventsOf(std::string_view text) {
    std::string log;
    static constexpr auto append = [](void* to, auto... parts) {
        (static_cast<std::string*>(to)->append(parts), ...);
    };
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &log);
    XML_SetElementHandler(
        parser,
        [](void* to, const char* name, const char** attributes) {
            append(to, "<", name);
            for (; *attributes; attributes += 2)
                append(to, " ", attributes[0], "=", attributes[1]);
            append(to, "\1");
        },
        [](void* to, const char* name) { append(to, "</", name); });
    XML_SetCharacterDataHandler(parser, [](void* to, const char* run, int length) {
        append(to, std::string_view(run, static_cast<std::size_t>(length)));
    });
    XML_SetCommentHandler(parser, [](void* to, const char* comment) { append(to, "!", comment); });
    XML_SetProcessingInstructionHandler(parser, [](void* to, const char* target, const char* data) {
        append(to, "?", target, " ", data);
    });
    EXPECT_EQ(XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1), XML_STATUS_OK);
    XML_ParserFree(parser);
    const std::size_t root = log.find('\1') + 1;
    return log.erase(root, log.compare(root, 1, "\n") == 0 ? 1 : 0);
}

TEST(XmlRoundTrip, WhatIsWrittenAsItWasRead) {
    for (std::string_view text : {
             "<r>\n a\tb <!-- - -> & ]]> --><b c=\"1\"/>\n</r>\n",
             "<r>\n<![CDATA[<a>&amp;\xC2\xA0]]><![CDATA[]]></r>\n",
             "<r>\n<?php  echo '<a>' ?><?t?><?u \n?></r>\n",
             "<f:r z=\"1\" xmlns:f=\"u\" a=\"2\" xmlns=\"d\" f:a=\"3\">\n<undeclared:x/></f:r>\n",
             "<!-- a -->\n\n<?p q?><r/>\n<!-- b -->\n",
             "<!DOCTYPE r PUBLIC \"-//p\" \"s[\" [\n<!ENTITY e \"<!-- ] -->\">\n<!-- ' ] -->\n"
             "<?p ]?>\n]>\n<r/>\n",
             "<!DOCTYPE r SYSTEM 'never-read.dtd'><r/>\n",
             "<!DOCTYPE a [<!ATTLIST a b CDATA 'x'>]><a c=\"1\"/>\n",
             "<r>\n\xF0\x9F\x98\x80 \xE2\x80\xA2 \"quoted\" 'so'</r>\n",
         })
        EXPECT_EQ(rewritten(text), text);
}

TEST(XmlRoundTrip, WhatComesOutInItsOneForm) {
    EXPECT_EQ(narrow(Xml::XmlDocument::getXmlDeclaration("UTF-8")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    EXPECT_EQ(narrow(Xml::XmlDocument::getXmlDeclaration("")), "<?xml version=\"1.0\"?>\n");
    EXPECT_EQ(rewritten("<?xml version='1.0' encoding='UTF-8'?>\n\n<r\n a='1'  ></r >"),
              "<r a=\"1\"/>\n");
    EXPECT_EQ(rewritten("<r><![CDATA[\n]]></r>"), "<r>\n<![CDATA[\n]]></r>\n");
    EXPECT_EQ(rewritten("<r>\n&amp;&lt;&gt;&quot;&apos;&#x2022;&#160;\xC2\xA0&#13;\r\n\r.</r>"),
              "<r>\n&amp;&lt;&gt;\"'\xE2\x80\xA2&#x00A0;&#x00A0;&#13;\n\n.</r>\n");
    EXPECT_EQ(rewritten("<r a='&amp;&lt;&gt;\"&apos;\xC2\xA0&#9;&#10;&#13;' b='x\ny\tz'/>"),
              "<r a=\"&amp;&lt;&gt;&quot;'\xC2\xA0&#9;&#10;&#13;\" b=\"x y z\"/>\n");
    EXPECT_EQ(rewritten("<!--a-->\r\n\r<r/><!--b--><!--c-->"),
              "<!--a-->\n\n<r/>\n<!--b--><!--c-->");
}

TEST(XmlRoundTrip, EveryDocumentOfTheCorpusSaysTheSameAfterIt) {
    for (const std::filesystem::path& path : corpusAndSamples()) {
        std::string text = bytesOf(path);
        std::string once = rewritten(text);
        EXPECT_EQ(eventsOf(once), eventsOf(text)) << path;
        EXPECT_EQ(rewritten(once), once) << path;
    }
}

TEST(XmlRoundTrip, EntityDeclarationsGoIntoTheDocumentType) {
    using Xml::XmlEntityType;
    auto document = parse("<r>&amp;x</r>");
    const auto declare = [&](const char* name, XmlEntityType type, const char* publicId,
                             const char* systemId, const char* content) {
        return messageOf(
            [&] { document->setEntityDeclaration(name, type, publicId, systemId, content); });
    };
    declare("e", XmlEntityType::Internal, "", "", "old");
    declare("e", XmlEntityType::Internal, "", "", "50% \"off\"");
    declare("x", XmlEntityType::External, "-//p", "a\"b", "");
    declare("u", XmlEntityType::Unparsed, "", "s", "gif");
    declare("p", XmlEntityType::InternalParameter, "", "", "");
    EXPECT_NE(declare("a b", XmlEntityType::Internal, "", "", "n"), "");
    EXPECT_NE(declare("y", XmlEntityType::External, "", "'\"", "n"), "");
    EXPECT_EQ(written(document),
              "<!DOCTYPE r [\n<!ENTITY % p \"\">\n<!ENTITY e \"50&#37; &#34;off&#34;\">\n"
              "<!ENTITY u SYSTEM \"s\" NDATA gif>\n<!ENTITY x PUBLIC \"-//p\" 'a\"b'>\n]>\n"
              "<r>\n&amp;x</r>\n");
}

TEST(XmlRoundTrip, ANewEntityDeclarationWinsOverTheOneInTheText) {
    for (std::string_view type :
         {"", "<!DOCTYPE r [<!ENTITY e 'old'>]>", "<!DOCTYPE r SYSTEM '['>", "<!DOCTYPE r>"}) {
        auto document = parse(std::string(type) + "<r>x</r>");
        document->setEntityDeclaration("e", Xml::XmlEntityType::Internal, "", "", "50% \"off\"");
        std::string text = written(document);
        text.replace(text.find("\nx<"), 2, "&e;");
        EXPECT_EQ(narrow(parse(text)->getRootNode()->get_child_text()->get_content()),
                  "50% \"off\"")
            << text;
    }
}

} // namespace
