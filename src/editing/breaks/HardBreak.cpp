#include "editing/breaks/HardBreak.h"

#include "document/Attributes.h"
#include "document/BlockLevel.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/Placeholders.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "editing/typing/Typing.h"
#include "text/XmlScan.h"

#include <array>

using Core::String;

namespace {

String placeholder() {
    return String(XmlScan::nbspEntity);
}

constexpr std::array<const wchar_t*, 3> decorations{
    L"fo:text-underline-style", L"fo:text-overline-style", L"fo:text-line-through-style"};

} // namespace

HardBreak::HardBreak(Document& document)
    : document_(document), element_(document.text().elementAround(document.caret())),
      holder_(element_) {}

int HardBreak::run() {
    if (!Stops::canHoldCaret(document_, caret()))
        return -1;
    climb();
    const bool inForm = nameOf(holder_) == L"qf:form";
    const bool splits = !inForm && document_.names.isBlock(nameOf(holder_));
    if (splits)
        split();
    else
        wrapLooseContent();
    return splits || inForm ? document_.text().ancestor(caret(), L"fo:block") : -1;
}

/// Over the inlines around the caret, which are closed before the break and opened again behind it.
void HardBreak::climb() {
    while (isInline(holder_)) {
        closing_ += L"</" + nameOf(holder_) + L">";
        // Deliberate: an inline goes on behind the break under the same id; what refers to it finds
        // the first half.
        reopened_ = startTag(holder_) + reopened_;
        holder_ = document_.text().elementAround(holder_);
    }
}

String HardBreak::startTag(int element) const {
    return String(document_.text().view(element, document_.text().next(element)));
}

// Splitting a block

void HardBreak::split() {
    const bool wasLine = !endsBlockAtCaret();
    const bool wasBeforeBreak = isBeforeSoftBreak();
    inserted_ = splittingText();
    const auto inserted = Typing::insertMarkupAt(document_, caret(), inserted_);
    if (wasBeforeBreak)
        document_.setCaret(inserted.end - (placeholder() + reopened_).length());
    repairHalves(inserted.start);
    if (wasLine)
        keepLineBefore();
    keepLineBehind();
    endDecoration();
}

/// Whether nothing shows between the caret and the end of the block.
bool HardBreak::endsBlockAtCaret() const {
    return Lines::endOfSkipped(document_, caret()) == document_.text().closingTag(holder_);
}

String HardBreak::splittingText() const {
    String text = isFirstInBlock() ? placeholder() : String();
    text += closing_ + L"</" + nameOf(holder_) + L">\n" + indentation() +
            startTagOfSecondHalf(document_, holder_);
    // What stands before a soft break is a line of its own.
    if (isBeforeSoftBreak())
        text += placeholder();
    return text + reopened_;
}

bool HardBreak::isBeforeSoftBreak() const {
    return nameOf(caret()) == L"fo:block" && document_.text().selfClosingAt(caret());
}

/// An inline at whose start the break falls is left to the repair, which removes it.
bool HardBreak::isFirstInBlock() const {
    return holder_ == element_ && Stops::next(document_, holder_) == caret();
}

/// The tabs before the block.
String HardBreak::indentation() const {
    int start = holder_;
    while (document_.text().standsAt(L"\t", start - 1))
        --start;
    return String(document_.text().view(start, holder_));
}

String HardBreak::startTagOfSecondHalf(const Document& document, int block) {
    const String name = document.text().nameAt(block);
    PropertyCollection properties = Attributes::of(document, block);
    for (const wchar_t* property : ownProperties)
        properties.removePropertyByName(property);
    properties.removeNamespaceForPropertiesWith(name.substringBefore(L":"));
    const String attributes = properties.isEmpty() ? L"" : L" " + properties.getPropertiesString();
    return L"<" + name + attributes + L">";
}

// What the halves need

/// The first half ends at `end`, the new one begins at the caret.
void HardBreak::repairHalves(int end) {
    fillNewLine();
    Placeholders::repairEmptied(document_, end, true);
    Placeholders::repairEmptied(document_, caret(), true);
}

void HardBreak::fillNewLine() {
    const int element = document_.text().elementAround(caret());
    if (isInline(element) || !Placeholders::isVoid(document_, element))
        return;
    Placeholders::repairEmptied(document_, caret(), false);
    takeInPlaceholderBehind(element);
}

/// A placeholder that stood behind what was split has moved in.
void HardBreak::takeInPlaceholderBehind(int element) {
    const int behind = document_.text().behindElement(element);
    if (document_.isInEditable(behind) && document_.text().standsAt(XmlScan::nbspEntity, behind))
        Edit(document_).remove(behind, behind + placeholder().length());
}

/// Behind a soft break, or another end of a line, nothing may be left before the break: that line
/// keeps a placeholder, in the inlines that end with it.
void HardBreak::keepLineBefore() {
    int end = endOfContent(holder_);
    int before = document_.text().previous(end);
    while (document_.names.closesInline(nameOf(before))) {
        end = Lines::startOfSkipped(document_, before);
        before = document_.text().previous(end);
    }
    if (before > holder_ && isBlockLevelTag(document_.text(), before))
        Edit(document_).insert(end, placeholder());
}

/// Where the element's content ends, without white space that does not show.
int HardBreak::endOfContent(int element) const {
    return Lines::startOfSkipped(document_, document_.text().closingTag(element));
}

/// So does the line behind the break where a soft break or a nested block ends it at once.
void HardBreak::keepLineBehind() {
    if (nameOf(Lines::endOfSkipped(document_, caret())) != L"fo:block")
        return;
    int before = document_.text().previous(caret());
    while (isInline(before))
        before = document_.text().previous(before);
    if (nameOf(before) != nameOf(holder_))
        return;
    const int start = caret();
    document_.insertUnrecorded(start, placeholder());
    document_.recordInsertion(start, placeholder());
    document_.setCaret(start);
    document_.recordCaret();
}

/// An empty line does not show lines under, over or through its placeholder.
void HardBreak::endDecoration() {
    int element = document_.text().elementAround(caret());
    if (!isInline(element) || !document_.text().holdsOnlyPlaceholder(element))
        return;
    for (bool reachedBlock = false; element >= 0 && !reachedBlock;
         element = document_.text().elementAround(element)) {
        const PropertyCollection properties = Attributes::of(document_, element);
        PropertyCollection kept = properties;
        for (const wchar_t* decoration : decorations)
            kept.removePropertyByName(decoration);
        if (kept.getPropertyList().size() < properties.getPropertyList().size())
            Attributes::replace(document_, element, kept);
        reachedBlock = nameOf(element) == L"fo:block";
    }
    document_.recordCaret();
}

// Where there is no block to split

void HardBreak::wrapLooseContent() {
    static const String open = L"<fo:block>";
    const int start = caret();
    const int inside = start + open.length();
    const int end = endOfLooseContent() + open.length();
    document_.recordCaret();
    Edit(document_).insert(start, open);
    Edit(document_).insert(end, L"</fo:block>");
    Placeholders::repairEmptied(document_, inside, false);
    document_.setCaret(Stops::next(document_, start));
    document_.recordCaret();
}

/// Where something begins in the same element that is no line of text, or the element ends; the
/// caret, if only white space and comments stand before that.
int HardBreak::endOfLooseContent() const {
    const int closing = document_.text().closingTag(element_);
    int end = document_.text().nextTag(caret());
    while (0 <= end && end < closing && !isBlockLevelTag(document_.text(), end))
        end = document_.text().nextTag(document_.text().behindElement(end));
    int content = document_.text().skipSpaces(caret());
    while (document_.text().ignoredAt(content))
        content = document_.text().skipSpaces(document_.text().next(content));
    return end < 0 || content == end ? caret() : end;
}

int HardBreak::caret() const {
    return document_.caret();
}

bool HardBreak::isInline(int element) const {
    return document_.names.isInline(nameOf(element));
}

String HardBreak::nameOf(int element) const {
    return document_.text().nameAt(element);
}
