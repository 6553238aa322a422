#include "tables/CellContent.h"

#include "foundation/XmlTesting.h"
#include "support/ShortMarkup.h"

#include <gtest/gtest.h>

namespace {

using Xml::Element;

/// A row with its cells, in the short forms of the markup.
class Row {
public:
    explicit Row(const std::string& cells) {
        Xml::DomParser parser;
        parser.setSubstituteEntities(false);
        feed(parser, "<!DOCTYPE r [<!ENTITY e 'x'>]>" + writtenOut("<R>" + cells + "</R>"));
        document_ = parser.getDocument();
    }
    Element& operator[](std::size_t index) const {
        const auto cells = document_->getRootNode()->get_children("table-cell");
        return static_cast<Element&>(**std::next(cells.begin(), static_cast<int>(index)));
    }
    std::string cells() const {
        const std::string text = inShort(written(document_));
        const std::size_t start = text.find("<R>\n") + 4;
        return text.substr(start, text.rfind("</R>") - start);
    }

private:
    SmartPtr<Xml::XmlDocument> document_;
};

TEST(CellContent, IsEmptiedToTheFirstBlock) {
    const std::string list = "<fo:list-block><fo:list-item/></fo:list-block>";
    for (const auto& [before, after] :
         {std::pair("<C>" + list + "<B a=\"1\" id=\"x\">b<!--c--><I>d</I>&e;</B><B>f</B></C>",
                    std::string("<C><B a=\"1\" id=\"x\"><!--c-->_</B></C>")),
          std::pair("<C>" + list + "</C>", std::string("<C><B>_</B></C>")),
          std::pair(std::string("<C/>"), std::string("<C><B>_</B></C>")),
          std::pair(std::string("<C><T/><B>a</B></C>"), std::string("<C><T/><B>_</B></C>"))}) {
        const Row row(before);
        CellContent::removeText(row[0]);
        EXPECT_EQ(row.cells(), after);
    }
}

TEST(CellContent, OfANewCellIsNothingButThePlaceholder) {
    const std::string given =
        "<C id=\"c\" a=\"1\"><T id=\"t\"/>t<B id=\"b\" k=\"2\">x</B><!--y--></C>";
    for (const bool before : {true, false}) {
        const Row row("<C/>" + given);
        const Element* cell = &CellContent::addLike(row[1], before);
        EXPECT_EQ(cell, &row[before ? 1 : 2]);
        const std::string added = "<C a=\"1\"><B k=\"2\">_</B></C>";
        EXPECT_EQ(row.cells(), "<C/>" + (before ? added + given : given + added));
    }
}

TEST(CellContent, ThatShowsTakesThePlaceOfThePlaceholder) {
    for (const auto& [target, source, after] :
         {std::tuple("<B>_</B>", " <B>a</B> ", "<B>a</B>"),
          std::tuple("<B>b</B>", "<B>a</B><T/>t<fo:list-block/>",
                     "<B>b</B><B>a</B><T/>t<fo:list-block/>"),
          std::tuple("<B>b</B>", "<B>_</B><B> _ </B><B/>", "<B>b</B>"),
          std::tuple("<B>_</B><B>_</B>", "<B>a</B>", "<B>_</B><B>_</B><B>a</B>"),
          std::tuple("<B> _</B>", "<B>a</B>", "<B> _</B><B>a</B>"),
          std::tuple("<B>_</B>", "<!--c-->", "<B>_</B><!--c-->"),
          std::tuple("<B>_</B>", "<B> <!--c-->&e;</B>", "<B> <!--c-->&e;</B>"),
          std::tuple("<B>_</B>", "<B> <!--c--><![CDATA[a]]></B>",
                     "<B> <!--c--><![CDATA[a]]></B>")}) {
        const std::string cells =
            "<C>" + std::string(source) + "</C>"; // what is moved stays until it is removed
        const Row row("<C>" + std::string(target) + "</C>" + cells);
        CellContent::importBlocks(row[0], row[1]);
        EXPECT_EQ(row.cells(), inShort("<C>" + std::string(after) + "</C>" + cells));
    }
}

} // namespace
