#include "html/HtmlWriter.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "editing/lists/Lists.h"
#include "foundation/Encoder.h"
#include "foundation/Format.h"
#include "text/Markup.h"

#include <algorithm>
#include <utility>

using Core::String;
using XmlScan::Text;

namespace {

/// As HTML, in UTF-8.
std::string escaped(const String& plain) {
    std::string html;
    for (const char byte : Core::Encoder::toDisplayText(plain))
        switch (byte) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += byte;
        }
    return html;
}

/// Where a link leads, as in "url('https://...')" or by itself.
String destination(const String& value) {
    String link = Markup::unescaped(value);
    link.trim();
    if (!link.startsWith(L"url("))
        return link;
    std::wstring_view inner = link.view().substr(4);
    inner = inner.substr(0, inner.rfind(L')'));
    const std::size_t first = inner.find_first_not_of(L" '\"");
    const std::size_t last = inner.find_last_not_of(L" '\"");
    return first == std::wstring_view::npos ? String()
                                            : String(inner.substr(first, last - first + 1));
}

std::string attribute(const char* name, const std::string& value) {
    return value.empty() ? std::string() : std::string(" ") + name + "=\"" + value + "\"";
}

std::string declaration(const char* name, const String& value) {
    return value.empty() ? std::string() : std::string(name) + ":" + escaped(value) + ";";
}

/// What is no element but a style.
std::string styleOf(const HtmlFormat& format) {
    const bool isSmallShift = format.shift != HtmlFormat::Shift::None && format.size == L"70%";
    return declaration("color", format.color) + declaration("background-color", format.background) +
           declaration("font-size", isSmallShift ? String() : format.size) +
           declaration("font-family", format.family);
}

/// The level of a heading that a block says it is; 0 for none.
int headingOf(const PropertyCollection& properties) {
    const String role = properties.getPropertyValue(L"fo:role");
    const bool isHeading = role.length() == 2 && (role[0] == L'H' || role[0] == L'h');
    const int level = isHeading ? role[1] - L'0' : 0;
    return level >= 1 && level <= 6 ? level : 0;
}

std::string spanOf(const PropertyCollection& properties, const wchar_t* name) {
    int span = 1;
    return Core::Format::parseInt(properties.getPropertyValue(name), span) && span > 1
               ? std::to_string(span)
               : std::string();
}

constexpr std::pair<Text, const char*> tableParts[] = {
    {L"fo:table", "table"},      {L"fo:table-header", "thead"}, {L"fo:table-footer", "tfoot"},
    {L"fo:table-body", "tbody"}, {L"fo:table-row", "tr"},       {L"fo:table-cell", "td"},
};

} // namespace

String HtmlWriter::write(const Document& document) {
    HtmlWriter writer(document);
    SelectedContent::visit(document, writer);
    writer.endParagraph();
    return Core::Encoder::convertUTF8ToString(writer.html_);
}

void HtmlWriter::open(int element) {
    Level level = open_.back();
    level.closing.clear();
    level.isParagraph = false;
    const Text name = document_.text().tagName(element);
    if (level.isLeftOut || name == L"fo:list-item-label") {
        level.isLeftOut = true;
    } else if (name == L"fo:block") {
        openBlock(element, level);
    } else if (name == L"fo:list-block" || name == L"fo:list-item") {
        openList(element, level);
    } else if (const std::string part = tablePart(element); !part.empty()) {
        openTablePart(element, part, level);
    } else {
        inheritFormat(element, level, false);
        if (name == L"qf:tab")
            addTab();
    }
    open_.push_back(std::move(level));
}

void HtmlWriter::close(TextView name) {
    const Level level = std::move(open_.back());
    open_.pop_back();
    if (level.isLeftOut)
        return;
    if (level.isParagraph || !level.closing.empty())
        endParagraph();
    const bool holdsText = name == L"fo:list-item" || name == L"fo:table-cell";
    if (holdsText && html_.ends_with('>') && html_.size() == level.contentStart)
        html_ += escaped(L"\x00A0"); // as an empty paragraph has
    html_ += level.closing;
}

void HtmlWriter::openBlock(int element, Level& level) {
    if (document_.text().selfClosingAt(element)) {
        addBreak();
        return;
    }
    endParagraph();
    inheritFormat(element, level, true);
    level.isInBlock = true;
    level.isParagraph = true;
}

void HtmlWriter::openList(int element, Level& level) {
    const XmlText& text = document_.text();
    endParagraph();
    if (text.tagName(element) == L"fo:list-item") {
        begin("li", {}, level);
        level.startsBare = true;
        return;
    }
    const int label = text.nextNamed(element, L"fo:list-item-label");
    const int block = text.nextNamed(label, L"fo:block");
    String first = block < 0 ? String() : Markup::characterData(text, block);
    first.trim();
    int number = 0;
    const bool isOrdered =
        !first.empty() && String::isDigit(first[0]) &&
        Core::Format::parseInt(String(first.view().substr(0, first.view().find_first_of(L").:"))),
                               number);
    begin(isOrdered ? "ol" : "ul",
          attribute("start", number > 1 ? std::to_string(number) : std::string()), level);
}

/// Its element in HTML; empty for what is no part of a table. What holds cells is a row.
std::string HtmlWriter::tablePart(int element) const {
    const XmlText& text = document_.text();
    const Text name = text.tagName(element);
    if (name == L"qfd:table-row-repeat")
        return text.tagName(text.firstChild(element)) == L"fo:table-cell" ? "tr" : "";
    for (const auto& [part, html] : tableParts)
        if (part == name)
            return html;
    return {};
}

void HtmlWriter::openTablePart(int element, const std::string& part, Level& level) {
    const PropertyCollection properties = Attributes::of(document_, element);
    const bool isCell = part == "td";
    const bool isHeader = isCell && (document_.text().isWithin(element, L"fo:table-header") ||
                                     properties.getPropertyValue(L"fo:role") == L"TH");
    endParagraph();
    inheritFormat(element, level, true);
    HtmlFormat shown;
    shown.background = HtmlValues::color(properties.getPropertyValue(L"fo:background-color"));
    std::string style = isCell ? styleOf(shown) : std::string();
    if (isHeader && !level.format.isBold) // which HTML makes bold by itself
        style += declaration("font-weight", L"normal");
    if (isHeader)
        level.format.isBold = open_.back().format.isBold;
    begin(isHeader ? "th" : part,
          attribute("colspan", spanOf(properties, L"fo:number-columns-spanned")) +
              attribute("rowspan", spanOf(properties, L"fo:number-rows-spanned")) +
              attribute("style", style),
          level);
    level.startsBare = isCell;
    level.style.clear();
}

/// Takes up what the element says of the text in it. What it says as a paragraph is noted for
/// that; the size and weight of a heading come with its element.
void HtmlWriter::inheritFormat(int element, Level& level, bool isParagraph) const {
    const PropertyCollection properties = Attributes::of(document_, element);
    const int heading = isParagraph ? headingOf(properties) : 0;
    for (const EditableProperty& property : properties.getPropertyList()) {
        const String name = property.getName().substringAfter(L"fo:");
        const String value = Markup::unescaped(property.getValue());
        if (heading > 0 && (name == L"font-size" || name == L"font-weight"))
            continue;
        if (name == L"baseline-shift")
            level.format.applyStyle(L"vertical-align", value);
        else if (!isParagraph || (name != L"background-color" && name != L"vertical-align"))
            level.format.applyStyle(name.view(), value);
        if (name == L"external-destination")
            level.format.apply(L"a", {{L"href", destination(property.getValue())}});
    }
    level.format.keepsBlanks = false;
    if (!isParagraph)
        return;
    const String align = properties.getPropertyValue(L"fo:text-align");
    level.paragraph.clear();
    if (heading > 0)
        level.paragraph.append("h").append(std::to_string(heading));
    level.style.clear();
    if (align == L"right" || align == L"center" || align == L"justify" || align == L"end")
        level.style = declaration("text-align", align);
}

void HtmlWriter::begin(const std::string& name, const std::string& attributes, Level& level) {
    html_ += "<" + name + attributes + ">";
    level.closing = "</" + name + ">";
    level.contentStart = html_.size();
}

// Text

void HtmlWriter::text(const Run& run) {
    if (!open_.back().isLeftOut)
        addText(run);
}

void HtmlWriter::addText(const Run& run) {
    std::wstring shown;
    const auto flush = [&] {
        if (!shown.empty())
            put(open_.back().format, escaped(String(std::exchange(shown, std::wstring()))));
    };
    for (const wchar_t unit : run.plain.view()) {
        if (unit == L'\n' && run.keepsLineFeeds && !run.keepsBlanks) {
            flush();
            addBreak();
        } else if (String::isSpace(unit) && !run.keepsBlanks) {
            if (!blankDue_)
                blankFormat_ = open_.back().format;
            blankDue_ = !isLineEmpty_ && breaksDue_ == 0;
        } else {
            beginParagraph(run.keepsBlanks);
            putBreaks();
            if (blankDue_ && shown.empty())
                putDueBlank();
            if (std::exchange(blankDue_, false))
                shown += L' ';
            shown += unit;
            isLineEmpty_ = false;
        }
    }
    flush();
}

/// Shows once something follows it in the paragraph.
void HtmlWriter::addBreak() {
    ++breaksDue_;
    blankDue_ = false;
}

void HtmlWriter::putBreaks() {
    for (; breaksDue_ > 0; --breaksDue_) {
        closeFormat();
        html_ += isLineEmpty_ ? escaped(L"\x00A0") + "<br>" : "<br>";
        isLineEmpty_ = true;
    }
}

void HtmlWriter::putDueBlank() {
    if (std::exchange(blankDue_, false))
        put(blankFormat_, " ");
}

void HtmlWriter::addTab() {
    beginParagraph(false);
    putBreaks();
    putDueBlank();
    put(open_.back().format, "<span style=\"white-space:pre\">\t</span>");
    isLineEmpty_ = false;
}

void HtmlWriter::beginParagraph(bool keepsBlanks) {
    if (isInParagraph_)
        return;
    isInParagraph_ = true;
    Level& level = open_.back();
    const bool isPlain = level.paragraph.empty() && level.style.empty() && !keepsBlanks;
    bool isBare = !level.isInBlock;
    for (auto holder = open_.rbegin(); holder != open_.rend() && !isBare && isPlain; ++holder)
        if (!holder->closing.empty() && holder->startsBare)
            isBare = true;
    for (Level& holder : open_)
        holder.startsBare = false;
    if (isBare)
        return;
    const std::string name = keepsBlanks ? "pre" : level.paragraph.empty() ? "p" : level.paragraph;
    html_ += "<" + name + attribute("style", level.style) + ">";
    paragraphEnd_ = "</" + name + ">";
}

void HtmlWriter::endParagraph() {
    closeFormat();
    html_ += std::exchange(paragraphEnd_, std::string());
    isInParagraph_ = false;
    isLineEmpty_ = true;
    blankDue_ = false;
    breaksDue_ = 0;
}

/// What is open already and goes on stays open.
void HtmlWriter::put(const HtmlFormat& format, const std::string& html) {
    if (!(format == format_)) {
        const std::vector<Tag> wanted = tagsOf(format);
        const auto differing =
            std::mismatch(tags_.begin(), tags_.end(), wanted.begin(), wanted.end());
        closeTags(static_cast<std::size_t>(differing.first - tags_.begin()));
        for (auto tag = differing.second; tag != wanted.end(); ++tag) {
            html_ += "<" + tag->name + tag->attributes + ">";
            tags_.push_back(*tag);
        }
        format_ = format;
    }
    html_ += html;
}

/// The elements that format in this way, the outermost first.
std::vector<HtmlWriter::Tag> HtmlWriter::tagsOf(const HtmlFormat& format) {
    std::vector<Tag> tags;
    if (!format.link.empty())
        tags.push_back({"a", attribute("href", escaped(format.link))});
    if (const std::string style = styleOf(format); !style.empty())
        tags.push_back({"span", attribute("style", style)});
    for (const auto& [isWanted, name] :
         {std::pair(format.isBold, "b"), std::pair(format.isItalic, "i"),
          std::pair(format.isUnderlined, "u"), std::pair(format.isStruck, "s"),
          std::pair(format.shift == HtmlFormat::Shift::Super, "sup"),
          std::pair(format.shift == HtmlFormat::Shift::Sub, "sub")})
        if (isWanted)
            tags.push_back({name, {}});
    return tags;
}

void HtmlWriter::closeTags(std::size_t kept) {
    for (; tags_.size() > kept; tags_.pop_back())
        html_ += "</" + tags_.back().name + ">";
}

void HtmlWriter::closeFormat() {
    closeTags(0);
    format_ = HtmlFormat();
}

String EditableDocumentBuffer::getSelectionAsHtml() const {
    return HtmlWriter::write(*document_);
}
