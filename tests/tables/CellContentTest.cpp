#include "tables/CellContent.h"

#include "foundation/XmlTesting.h"
#include "support/ShortMarkup.h"

#include <gtest/gtest.h>

namespace {

TEST(CellContent, IsEmptiedToTheFirstBlock) {
    const std::string type = "<!DOCTYPE r [<!ENTITY e 'x'>]>";
    for (const auto& [before, after] :
         {std::pair("<C><fo:list-block/><B a=\"1\" id=\"x\">b<!--c--><I>d</I>&e;</B><B>f</B></C>",
                    "<B a=\"1\" id=\"x\"><!--c-->_</B>"),
          std::pair("<C><fo:list-block/></C>", "<B>_</B>"), std::pair("<C/>", "<B>_</B>"),
          std::pair("<C><T/><B>a</B></C>", "<T/><B>_</B>")}) {
        Xml::DomParser parser;
        parser.setSubstituteEntities(false);
        feed(parser, type + writtenOut(std::string(before)));
        CellContent::removeText(*parser.getDocument()->getRootNode());
        EXPECT_EQ(inShort(written(parser.getDocument())), type + "<C>\n" + after + "</C>\n");
    }
}

} // namespace
