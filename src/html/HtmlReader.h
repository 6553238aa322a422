#pragma once

#include "editing/lists/ListType.h"
#include "foundation/HtmlParser.h"
#include "html/HtmlFormat.h"
#include "html/HtmlLines.h"
#include "html/HtmlTable.h"

#include <string>
#include <vector>

/// Makes markup of HTML: paragraphs, lists, tables and formatted text as this system writes them.
/// What it has no counterpart for is read as what it holds; what a reader does not see, and what
/// acts, is left out. Lists that office programs write as paragraphs are lists.
class HtmlReader : private HtmlEvents {
public:
    /// Raises what the parser raises.
    static Core::String read(const HtmlParser& parser, const Core::String& html);

private:
    enum class Kind {
        Inline,
        Block,
        List,
        Item,
        Table,
        Caption,
        Group,
        Row,
        Cell,
        OfficeItem, ///< a paragraph that is an item of a list
        OfficeLabel ///< and its label
    };

    /// What the text in an element inherits.
    struct Element {
        Kind kind = Kind::Inline;
        HtmlFormat format;
        Core::String alignment;
        int heading = 0;      ///< its level
        int quotes = 0;       ///< how many quotations are around
        bool isBlock = false; ///< whether a block is around within its flow
    };

    /// What stands below each other: of all, of an item or of a cell.
    struct Flow {
        HtmlLines lines;
        std::wstring blocks;
        int count = 0;         ///< of these
        std::wstring loneLine; ///< the only one, if nothing says that it is a paragraph
    };

    struct List {
        bool isOrdered = false;
        std::size_t first = 1;
        bool isOffice = false;
        std::vector<std::wstring> items;
    };

    /// What the flows, lists and tables are nested in, the outermost first.
    enum class Container { Flow, List, Item, Table, Cell };

    void open(const Core::String& name, const Attributes& attributes) override;
    void close(const Core::String& name) override;
    void text(const Core::String& plain) override;

    Kind kindOf(const Core::String& name, const Attributes& attributes) const;
    void beginElement(Element& element, const Core::String& name, const Attributes& attributes);
    void endElement(const Element& element);

    void endParagraph();
    Core::String paragraphProperties(const Element& element) const;

    void beginList(bool isOrdered, int first, bool isOffice);
    void beginItem();
    void endItem();
    void endList();
    void beginOfficeItem(int level);
    void endOfficeLists();
    void takeOfficeLabel();
    void prepareForText();

    void beginCell(Element& element, const Core::String& name, const Attributes& attributes);
    void endCell();
    void endTable();

    bool isIn(Container container) const { return containers_.back() == container; }
    Flow& flow() { return flows_.back(); }
    std::wstring takeFlow();
    Core::String result();

    std::vector<Element> open_{Element()};
    std::vector<Container> containers_{Container::Flow};
    std::vector<Flow> flows_{Flow()};
    std::vector<List> lists_;
    std::vector<HtmlTable> tables_;
    std::vector<HtmlTable::Cell> cells_; // that are open
    std::vector<bool> bordered_;         // whether the cells of each table have borders
    int skipped_ = 0;                    // how many elements are open that are left out
    bool isInLabel_ = false;
    Core::String officeLabel_;
};
