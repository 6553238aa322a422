#include "XmlTesting.h"
#include "support/Documents.h"

#include <expat.h>
#include <gtest/gtest.h>

namespace {

/// What Expat makes of a text, but for a line break behind the root's start tag.
class Events {
public:
    static std::string of(std::string_view text) {
        Events events;
        XML_Parser parser = XML_ParserCreate(nullptr);
        XML_SetUserData(parser, &events);
        XML_SetElementHandler(parser, start, end);
        XML_SetCharacterDataHandler(parser, characters);
        XML_SetCommentHandler(parser, comment);
        XML_SetProcessingInstructionHandler(parser, instruction);
        EXPECT_EQ(XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1), XML_STATUS_OK);
        XML_ParserFree(parser);
        return events.log_;
    }

private:
    static std::string& log(void* self) { return static_cast<Events*>(self)->log_; }
    static void start(void* self, const char* name, const char** attributes) {
        bool isRoot = static_cast<Events*>(self)->depth_++ == 0;
        log(self).append("<").append(name);
        for (; *attributes; attributes += 2)
            log(self).append(" ").append(attributes[0]).append("=").append(attributes[1]);
        static_cast<Events*>(self)->rootEnd_ = isRoot ? log(self).size() : 0;
    }
    static void end(void* self, const char* name) {
        --static_cast<Events*>(self)->depth_;
        log(self).append("</").append(name);
    }
    static void characters(void* self, const char* text, int length) {
        std::string_view run(text, static_cast<std::size_t>(length));
        if (run != "\n" || log(self).size() != static_cast<Events*>(self)->rootEnd_)
            log(self) += run;
    }
    static void comment(void* self, const char* text) { log(self).append("!").append(text); }
    static void instruction(void* self, const char* target, const char* data) {
        log(self).append("?").append(target).append(" ").append(data);
    }

    std::string log_;
    int depth_ = 0;
    std::size_t rootEnd_ = 0;
};

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

TEST(XmlRoundTrip, ASecondWritingChangesNothing) {
    for (std::string_view text :
         {"<r>a&#13;\nb</r>", "<r>&#10;</r>", "<r a='\n&#10;'>\r</r>\n\n<!--e-->\n\n",
          "<r><!--a\r\nb--><?p a\r\nb?></r>", "<?xml version='1.0'?>\n\n<!--a-->\r\n<r/>",
          "<!DOCTYPE r [\r\n<!ENTITY e 'v'>\r\n]>\r\n<r>&e;</r>"}) {
        std::string once = rewritten(text);
        EXPECT_EQ(rewritten(once), once) << text;
    }
}

TEST(XmlRoundTrip, EveryDocumentOfTheCorpusSaysTheSameAfterIt) {
    for (const std::filesystem::path& path : corpusAndSamples()) {
        std::string text = bytesOf(path);
        std::string once = rewritten(text);
        EXPECT_EQ(Events::of(once), Events::of(text)) << path;
        EXPECT_EQ(rewritten(once), once) << path;
    }
}

TEST(XmlRoundTrip, EntityDeclarationsGoIntoTheDocumentType) {
    using Xml::XmlEntityType;
    auto document = parse("<r>x</r>");
    document->setEntityDeclaration("e", XmlEntityType::Internal, "", "", "old");
    document->setEntityDeclaration("e", XmlEntityType::Internal, "", "", "50% \"off\"");
    document->setEntityDeclaration("x", XmlEntityType::External, "-//p", "a\"b", "");
    document->setEntityDeclaration("u", XmlEntityType::Unparsed, "", "s", "gif");
    document->setEntityDeclaration("p", XmlEntityType::InternalParameter, "", "", "");
    std::string text = written(document);
    EXPECT_EQ(text, "<!DOCTYPE r [\n<!ENTITY % p \"\">\n<!ENTITY e \"50&#37; &#34;off&#34;\">\n"
                    "<!ENTITY u SYSTEM \"s\" NDATA gif>\n<!ENTITY x PUBLIC \"-//p\" 'a\"b'>\n]>\n"
                    "<r>\nx</r>\n");
    text.replace(text.find("\nx<"), 2, "\n&e;");
    EXPECT_EQ(narrow(parse(text)->getRootNode()->get_child_text()->get_content()), "\n50% \"off\"");
    auto refuse = [&](const char* name, XmlEntityType type, const char* systemId) {
        return messageOf([&] { document->setEntityDeclaration(name, type, "", systemId, "n"); });
    };
    EXPECT_NE(refuse("a b", XmlEntityType::Internal, ""), "");
    EXPECT_NE(refuse("y", XmlEntityType::External, "'\""), "");
}

TEST(XmlRoundTrip, ANewEntityDeclarationWinsOverTheOneInTheText) {
    for (std::string_view type :
         {"<!DOCTYPE r [<!ENTITY e 'old'>]>", "<!DOCTYPE r SYSTEM '['>", "<!DOCTYPE r>"}) {
        auto document = parse(std::string(type) + "<r>x</r>");
        document->setEntityDeclaration("e", Xml::XmlEntityType::Internal, "", "", "new");
        std::string text = written(document);
        text.replace(text.find("\nx<"), 2, "&e;");
        EXPECT_EQ(narrow(parse(text)->getRootNode()->get_child_text()->get_content()), "new")
            << text;
    }
}

} // namespace
