#include "XmlTesting.h"

#include "foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

std::string refusalOf(std::string_view text) {
    return messageOf([text] { parse(text); });
}

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(XmlParser, ErrorsTellThePlaceAndTheReason) {
    EXPECT_EQ(refusalOf("<a>\n  <b>\n</a>"), "3:3: mismatched tag");
    EXPECT_EQ(refusalOf("<a/><b/>"), "1:5: junk after document element");
    EXPECT_EQ(refusalOf("<a>\r\n\r\xF0\x9F\x98\x80\xC3\xA9 & </a>"),
              "3:6: not well-formed (invalid token)");
    EXPECT_EQ(refusalOf("<a>&nbsp;</a>"), "1:4: undefined entity");
    const TemporaryFolder folder;
    const Core::String path = folder.put("bad.xml", "<a>\n</b>").c_str();
    try {
        Xml::DomParser().parseFile(path);
        FAIL() << "accepted";
    } catch (const Xml::ParseException& exception) {
        EXPECT_EQ(narrow(exception.getMessage()), narrow(path) + ":2:3: mismatched tag");
        EXPECT_EQ(exception.getLine(), 2);
        EXPECT_EQ(exception.getColumn(), 3);
    }
}

TEST(XmlParser, NestingIsBounded) {
    EXPECT_EQ(refusalOf(repeated("<a>", 4096) + repeated("</a>", 4096)), "");
    std::string reason = "elements are nested more than 4096 deep";
    EXPECT_EQ(refusalOf(repeated("<a>", 1000000)), "1:12289: " + reason);
    EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY e '" + repeated("<a>", 4096) +
                        repeated("</a>", 4096) + "'>]><a>&e;</a>"),
              "1:" + std::to_string(25 + 7 * 4096 + 8) + ": " + reason);
}

std::string doctype(int count, int references) {
    std::string text = "<!DOCTYPE a [<!ENTITY e0 'x'>";
    for (int i = 1; i < count; ++i)
        text += "<!ENTITY e" + std::to_string(i) + " '" +
                repeated("&e" + std::to_string(i - 1) + ";", references) + "'>";
    return text + "]>";
}

TEST(XmlParser, EntityBombsAreRefused) {
    std::string quadratic = "<!DOCTYPE a [<!ENTITY e '" + std::string(100000, 'x') + "'>]><a>" +
                            repeated("&e;", 100000) + "</a>";
    for (const std::string& bomb :
         {doctype(30, 10) + "<a>&e29;</a>", doctype(30, 10) + "<a b='&e29;'/>", quadratic})
        EXPECT_NE(refusalOf(bomb).find("the entities expand to too much text"), std::string::npos);
}

TEST(XmlParser, EntitiesNestAsDeepAsTheirNumberAllows) {
    EXPECT_TRUE(rewritten(doctype(1024, 1) + "<a b='&e1023;'>&e1023;</a>")
                    .ends_with("<a b=\"x\">\nx</a>\n"));
    for (int count : {1025, 100000})
        EXPECT_NE(refusalOf(doctype(count, 1) + "<a/>").find("more than 1024 entity declarations"),
                  std::string::npos);
}

TEST(XmlParser, NothingIsReadFromOutsideTheText) {
    const TemporaryFolder folder;
    folder.put("secret", "secret");
    std::string external =
        "<!DOCTYPE a [<!ENTITY e SYSTEM '" + (folder.path() / "secret").string() + "'>]>";
    EXPECT_NE(refusalOf(external + "<a>&e;</a>").find("an entity outside the text"),
              std::string::npos);
    EXPECT_NE(refusalOf(external + "<a b='&e;'/>").find("external entity"), std::string::npos);
    EXPECT_EQ(refusalOf(external + "<a/>"), "");
    // What an unread document type might declare is undeclared.
    std::string subset = "<!DOCTYPE a SYSTEM 'x.dtd'>";
    EXPECT_EQ(refusalOf(subset + "<a>&e;</a>"), "1:31: undefined entity");
    EXPECT_EQ(refusalOf(subset + "<a b='&lt;&#60;&e;'/>"), "1:28: undefined entity");
}

TEST(XmlParser, LineBreaksInAttributesAreKeptOnRequest) {
    std::string text = "<!DOCTYPE a [<!--\" > -->\n<!ENTITY e '\n'>]>\n<!--\"\n\"--><a\n"
                       "b='1\r\n2\r3\n\"4'\nc=\"\n\">\"\n\"<?p \"\n\"?><![CDATA[<x a=\"\n\"]]></a>";
    Xml::DomParser parser;
    parser.allowNewLineInAttribute(true);
    feed(parser, text);
    std::string kept = written(parser.getDocument());
    std::string plain = rewritten(text);
    EXPECT_NE(kept.find("<a b=\"1&#10;2&#10;3&#10;&quot;4\" c=\"&#10;\">"), kept.npos) << kept;
    EXPECT_NE(plain.find("<a b=\"1 2 3 &quot;4\" c=\" \">"), plain.npos) << plain;
    EXPECT_EQ(kept.substr(kept.find(">\n\"")), plain.substr(plain.find(">\n\"")));
}

TEST(XmlParser, KeptLineBreaksDoNotMoveTheErrorsBehindThem) {
    for (std::string_view text : {"<a b='\r\n\n\r'\n c='x\ny' d='1' d='2'/>", "<a b='\n\n'>\n</c>",
                                  "<a b='\n\n", "<a b='\n\n'"}) {
        Xml::DomParser parser;
        parser.allowNewLineInAttribute(true);
        EXPECT_EQ(messageOf([&] { feed(parser, text); }), refusalOf(text)) << text;
    }
}

} // namespace
