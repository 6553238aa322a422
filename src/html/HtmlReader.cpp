#include "html/HtmlReader.h"

#include "editing/lists/Lists.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using Core::String;
using HtmlValues::attribute;
using HtmlValues::styleValue;
using Units = std::wstring_view;

namespace {

/// Lists and tables that are nested deeper are read as paragraphs.
constexpr std::size_t deepest = 40;

template <std::size_t Count>
bool contains(const std::array<Units, Count>& names, const String& name) {
    return std::find(names.begin(), names.end(), name.view()) != names.end();
}

/// What a reader does not see as text, or what acts.
constexpr std::array<Units, 29> leftOut{
    L"head",     L"script",   L"style",    L"template", L"noscript", L"title", L"iframe", L"object",
    L"embed",    L"applet",   L"audio",    L"video",    L"canvas",   L"svg",   L"math",   L"select",
    L"button",   L"input",    L"textarea", L"img",      L"map",      L"meta",  L"link",   L"xml",
    L"frameset", L"noframes", L"datalist", L"progress", L"meter"};

constexpr std::array<Units, 32> blocks{
    L"p",       L"div",      L"h1",      L"h2",         L"h3",     L"h4",         L"h5",
    L"h6",      L"pre",      L"section", L"article",    L"header", L"footer",     L"main",
    L"nav",     L"aside",    L"address", L"blockquote", L"figure", L"figcaption", L"center",
    L"form",    L"fieldset", L"legend",  L"dl",         L"dt",     L"dd",         L"details",
    L"summary", L"hr",       L"listing", L"plaintext"};

constexpr std::array<Units, 4> lists{L"ul", L"ol", L"menu", L"dir"};

/// How large a heading is beside text, by its level.
constexpr std::array<const wchar_t*, 6> headingSizes{L"2em", L"1.5em",  L"1.17em",
                                                     L"1em", L"0.83em", L"0.67em"};

int headingLevel(const String& name) {
    return name.length() == 2 && name[0] == L'h' && name[1] >= L'1' && name[1] <= L'6'
               ? name[1] - L'0'
               : 0;
}

/// Which side an element asks for; empty for the one where text begins anyway.
String alignmentOf(const HtmlEvents::Attributes& attributes, const String& inherited) {
    String asked = styleValue(attribute(attributes, L"style"), L"text-align");
    if (asked.empty())
        asked = attribute(attributes, L"align");
    asked = asked.toLower();
    if (asked == L"left" || asked == L"start")
        return {};
    const bool isKnown =
        asked == L"right" || asked == L"center" || asked == L"justify" || asked == L"end";
    return isKnown ? asked : inherited;
}

/// The level at which a paragraph of an office program is an item of a list, as in "l0 level2
/// lfo1"; 0 where it is none.
int officeLevel(const HtmlEvents::Attributes& attributes) {
    const String list = styleValue(attribute(attributes, L"style"), L"mso-list").toLower();
    const int level = list.find(L"level", 0);
    return level < 0 ? 0
                     : HtmlValues::count(list.subString(static_cast<unsigned>(level) + 5,
                                                        static_cast<unsigned>(list.length())),
                                         9);
}

bool isOfficeLabel(const HtmlEvents::Attributes& attributes) {
    return styleValue(attribute(attributes, L"style"), L"mso-list").toLower() == L"ignore";
}

/// Whether a label counts: "1.", "b)", "iv." do, "o" is a bullet.
bool isNumber(const String& label) {
    const Units units = label.view();
    const std::size_t last = units.find_last_not_of(L" \t\n\r\x00A0");
    return last != Units::npos &&
           (units[last] == L'.' || units[last] == L')' || String::isDigit(units[last]));
}

bool asksForBorder(const String& style) {
    bool asks = false;
    HtmlValues::forEachDeclaration(style, [&](const String& name, const String& value) {
        if (name == L"border")
            asks = value.find(L"solid", 0) >= 0;
    });
    return asks;
}

} // namespace

String HtmlReader::read(const HtmlParser& parser, const String& html) {
    HtmlReader reader;
    // What Windows puts in front of HTML says where in it the copied part lies.
    const int start = html.startsWith(L"Version:") ? html.find(L'<', 0) : 0;
    parser.parse(start > 0 ? html.subString(static_cast<unsigned>(start),
                                            static_cast<unsigned>(html.length()))
                           : html,
                 reader);
    return reader.result();
}

String HtmlReader::result() {
    endParagraph();
    endOfficeLists();
    const bool isLine = flow().count == 1 && !flow().loneLine.empty();
    return String(isLine ? std::move(flow().loneLine) : std::move(flow().blocks));
}

// Events

void HtmlReader::open(const String& name, const Attributes& attributes) {
    if (skipped_ > 0 || contains(leftOut, name)) {
        ++skipped_;
        return;
    }
    if (name == L"br" && !isInLabel_ &&
        attribute(attributes, L"class") != L"Apple-interchange-newline") {
        prepareForText();
        flow().lines.addBreak();
    }
    Element element = open_.back();
    element.kind = kindOf(name, attributes);
    if (headingLevel(name) > 0)
        element.format.size.clear(); // it has one of its own
    element.format.apply(name, attributes);
    if (element.kind != Kind::Inline)
        beginElement(element, name, attributes);
    open_.push_back(std::move(element));
}

void HtmlReader::close(const String&) {
    if (skipped_ > 0) {
        --skipped_;
        return;
    }
    endElement(open_.back());
    open_.pop_back();
}

void HtmlReader::text(const String& plain) {
    if (skipped_ > 0)
        return;
    if (isInLabel_) {
        officeLabel_ += plain;
        return;
    }
    const Units units = plain.view();
    const bool isBlank = std::all_of(units.begin(), units.end(), String::isSpace);
    if (isBlank && (isIn(Container::List) || isIn(Container::Table)))
        return;
    prepareForText();
    flow().lines.addText(open_.back().format, units);
}

HtmlReader::Kind HtmlReader::kindOf(const String& name, const Attributes& attributes) const {
    if (isOfficeLabel(attributes))
        return Kind::OfficeLabel;
    if (name == L"p" && officeLevel(attributes) > 0 && containers_.size() < deepest)
        return Kind::OfficeItem;
    if (contains(lists, name))
        return containers_.size() < deepest ? Kind::List : Kind::Block;
    if (name == L"table")
        return containers_.size() < deepest ? Kind::Table : Kind::Block;
    if (name == L"li")
        return isIn(Container::List) ||
                       (isIn(Container::Item) && !lists_.empty() && open_.back().kind == Kind::List)
                   ? Kind::Item
                   : Kind::Block;
    if (isIn(Container::Table)) {
        if (name == L"td" || name == L"th")
            return Kind::Cell;
        if (name == L"tr")
            return Kind::Row;
        if (name == L"caption")
            return Kind::Caption;
        return Kind::Group;
    }
    return contains(blocks, name) || name == L"tr" || name == L"td" || name == L"th" ? Kind::Block
                                                                                     : Kind::Inline;
}

void HtmlReader::beginElement(Element& element, const String& name, const Attributes& attributes) {
    if (element.kind == Kind::OfficeLabel) {
        isInLabel_ = true;
        officeLabel_.clear();
        return;
    }
    const bool isInTable = isIn(Container::Table);
    if (!isInTable && !(isIn(Container::List)))
        endParagraph();
    if (element.kind != Kind::OfficeItem && !isInTable)
        endOfficeLists();
    element.alignment = alignmentOf(attributes, element.alignment);
    if (element.kind != Kind::Cell)
        element.format.background = open_.back().format.background; // not of the text
    switch (element.kind) {
    case Kind::Block:
        prepareForText();
        element.isBlock = true;
        element.heading = headingLevel(name) > 0 ? headingLevel(name) : element.heading;
        element.quotes += name == L"blockquote";
        break;
    case Kind::OfficeItem:
        element.isBlock = true;
        beginOfficeItem(officeLevel(attributes));
        break;
    case Kind::List:
        beginList(name == L"ol", HtmlValues::count(attribute(attributes, L"start"), 1000000),
                  false);
        break;
    case Kind::Item:
        if (isIn(Container::Item)) // that nothing had begun
            endItem();
        beginItem();
        break;
    case Kind::Table:
        prepareForText();
        containers_.push_back(Container::Table);
        tables_.emplace_back();
        bordered_.push_back(HtmlValues::count(attribute(attributes, L"border"), 2) == 2 ||
                            attribute(attributes, L"border") == L"1" ||
                            asksForBorder(attribute(attributes, L"style")));
        break;
    case Kind::Group:
        if (name == L"col")
            tables_.back().beginColumn(
                attribute(attributes, L"width").empty()
                    ? 0
                    : HtmlValues::count(attribute(attributes, L"width"), 10000),
                HtmlValues::count(attribute(attributes, L"span"), 1000));
        if (name == L"thead" || name == L"tbody" || name == L"tfoot")
            tables_.back().beginGroup(name == L"thead"   ? HtmlTable::Group::Header
                                      : name == L"tfoot" ? HtmlTable::Group::Footer
                                                         : HtmlTable::Group::Body);
        break;
    case Kind::Row:
        tables_.back().beginRow();
        break;
    case Kind::Caption:
    case Kind::Cell:
        beginCell(element, name, attributes);
        break;
    case Kind::Inline:
    case Kind::OfficeLabel:
        break;
    }
}

void HtmlReader::endElement(const Element& element) {
    switch (element.kind) {
    case Kind::Inline:
    case Kind::Group:
    case Kind::Row:
        return;
    case Kind::OfficeLabel:
        isInLabel_ = false;
        takeOfficeLabel();
        return;
    case Kind::OfficeItem:
        endParagraph();
        return;
    case Kind::Block:
        endParagraph();
        endOfficeLists();
        return;
    case Kind::Item:
        endParagraph();
        endOfficeLists();
        endItem();
        return;
    case Kind::List:
        if (isIn(Container::Item)) { // that nothing had begun
            endParagraph();
            endItem();
        }
        endList();
        return;
    case Kind::Caption:
    case Kind::Cell:
        endParagraph();
        endOfficeLists();
        endCell();
        return;
    case Kind::Table:
        endTable();
        return;
    }
}

// Paragraphs

void HtmlReader::endParagraph() {
    if (isIn(Container::List) || isIn(Container::Table) || flow().lines.empty())
        return;
    const std::wstring content = flow().lines.take();
    if (content.empty())
        return;
    const Element& element = open_.back();
    const String properties = paragraphProperties(element);
    ++flow().count;
    flow().loneLine = element.isBlock || !properties.empty() ? std::wstring() : content;
    flow().blocks.append(L"<fo:block").append(properties.view()).append(L">");
    flow().blocks.append(content).append(L"</fo:block>");
}

String HtmlReader::paragraphProperties(const Element& element) const {
    String properties;
    if (element.heading > 0)
        properties += L" role=\"H" + String::formatS(element.heading) + L"\" font-size=\"" +
                      headingSizes[static_cast<std::size_t>(element.heading) - 1] +
                      L"\" font-weight=\"bold\"";
    if (!element.alignment.empty())
        properties += L" text-align=\"" + element.alignment + L"\"";
    if (element.quotes > 0)
        properties += L" margin-left=\"" + String::formatS(10 * element.quotes) + L"mm\"";
    return properties;
}

/// Text and blocks in a list that stand in none of its items are one.
void HtmlReader::prepareForText() {
    if (isIn(Container::List))
        beginItem();
}

std::wstring HtmlReader::takeFlow() {
    std::wstring blocks = std::move(flow().blocks);
    flows_.pop_back();
    return blocks;
}

// Lists

void HtmlReader::beginList(bool isOrdered, int first, bool isOffice) {
    if (isIn(Container::List)) {
        // A list directly in another belongs to the item before.
        std::vector<std::wstring>& items = lists_.back().items;
        std::wstring blocks;
        if (!items.empty()) {
            blocks = std::move(items.back());
            items.pop_back();
        }
        beginItem();
        flow().blocks = std::move(blocks);
    }
    containers_.push_back(Container::List);
    lists_.push_back({isOrdered, static_cast<std::size_t>(first), isOffice, {}});
}

void HtmlReader::beginItem() {
    containers_.push_back(Container::Item);
    flows_.emplace_back();
}

void HtmlReader::endItem() {
    lists_.back().items.push_back(takeFlow());
    containers_.pop_back();
}

void HtmlReader::endList() {
    const List list = std::move(lists_.back());
    lists_.pop_back();
    containers_.pop_back();
    if (list.items.empty())
        return;
    const ListType type = list.isOrdered ? ListType::Numbering : ListType::Bullets;
    std::wstring& markup = flow().blocks;
    markup += L"<fo:block><fo:list-block>";
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        markup += Lists::openingOfItem(type, list.first + i).view();
        markup += list.items[i].empty() ? L"<fo:block>&#x00A0;</fo:block>" : list.items[i];
        markup += L"</fo:list-item-body></fo:list-item>";
    }
    markup += L"</fo:list-block></fo:block>";
    ++flow().count;
}

// Lists of office programs, whose items are paragraphs that say their level

void HtmlReader::beginOfficeItem(int level) {
    int depth = 0;
    for (std::size_t i = lists_.size(); i > 0 && lists_[i - 1].isOffice; --i)
        ++depth;
    if (!(isIn(Container::Item) && depth > 0))
        depth = 0;
    for (; depth > level; --depth) {
        endItem();
        endList();
    }
    if (depth == level)
        endItem();
    for (; depth < level; ++depth) {
        beginList(false, 1, true);
        if (depth + 1 < level)
            beginItem();
    }
    beginItem();
}

void HtmlReader::endOfficeLists() {
    while (isIn(Container::Item) && lists_.back().isOffice) {
        endItem();
        endList();
    }
}

/// The label of the first item tells what kind of list it is.
void HtmlReader::takeOfficeLabel() {
    if (!lists_.empty() && lists_.back().isOffice && lists_.back().items.empty())
        lists_.back().isOrdered = isNumber(officeLabel_);
}

// Tables

void HtmlReader::beginCell(Element& element, const String& name, const Attributes& attributes) {
    const String style = attribute(attributes, L"style");
    HtmlTable::Cell cell;
    const bool isLight = HtmlValues::styleValue(style, L"font-weight") == L"normal";
    if (name == L"th")
        cell.attributes = isLight ? L" role=\"TH\"" : L" role=\"TH\" font-weight=\"bold\"";
    String color = element.format.background;
    if (color.empty())
        color = HtmlValues::color(attribute(attributes, L"bgcolor"));
    if (!color.empty())
        cell.attributes.append(L" background-color=\"").append(color.view()).append(L"\"");
    if (bordered_.back() || asksForBorder(style))
        cell.attributes += L" border=\"0.5pt solid #000000\"";
    cell.columns = HtmlValues::count(attribute(attributes, L"colspan"), 1000);
    const String rows = attribute(attributes, L"rowspan");
    cell.rows = rows == L"0" ? 0 : HtmlValues::count(rows, 65534);
    cells_.push_back(std::move(cell));
    containers_.push_back(Container::Cell);
    flows_.emplace_back();
    element.format.background.clear(); // which is the cell's
    element.isBlock = false;
    element.heading = 0;
    element.quotes = 0;
}

void HtmlReader::endCell() {
    const bool isCaption = open_.back().kind == Kind::Caption;
    HtmlTable::Cell cell = std::move(cells_.back());
    cells_.pop_back();
    cell.content = takeFlow();
    containers_.pop_back();
    if (isCaption)
        tables_.back().addCaption(cell.content);
    else
        tables_.back().add(std::move(cell));
}

void HtmlReader::endTable() {
    const std::wstring markup = tables_.back().markup();
    tables_.pop_back();
    bordered_.pop_back();
    containers_.pop_back();
    if (!markup.empty())
        ++flow().count;
    flow().loneLine.clear();
    flow().blocks += markup;
}
