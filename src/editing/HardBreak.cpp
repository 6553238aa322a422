#include "editing/HardBreak.h"

#include "document/EditableDocumentBuffer.h"
#include "editing/BlockLevel.h"
#include "text/XmlScan.h"

#include <array>

using Core::String;

namespace {

String placeholder() {
    return String(XmlScan::nbspEntity);
}

constexpr std::array<const wchar_t*, 3> decorations{
    L"fo:text-underline-style", L"fo:text-overline-style", L"fo:text-line-through-style"};

/// What belongs to one block alone.
constexpr std::array<const wchar_t*, 3> ownProperties{L"fo:break-before", L"fo:break-after",
                                                      L"fo:id"};

} // namespace

HardBreak::HardBreak(EditableDocumentBuffer& buffer)
    : buffer_(buffer), element_(buffer.getCurrentElementPosition(buffer.caretPos_)),
      holder_(element_) {}

int HardBreak::run() {
    if (!buffer_.canHoldCaret(caret()))
        return -1;
    climb();
    const bool inForm = nameOf(holder_) == L"qf:form";
    const bool splits = !inForm && buffer_.isBlockEditableElementName(nameOf(holder_));
    if (splits)
        split();
    else
        wrapLooseContent();
    return splits || inForm ? buffer_.searchParent(L"fo:block", caret(), false, true, L"") : -1;
}

/// Over the inlines around the caret, which are closed before the break and opened again behind it.
void HardBreak::climb() {
    while (isInline(holder_)) {
        closing_ += L"</" + nameOf(holder_) + L">";
        // Deliberate: an inline goes on behind the break under the same id; what refers to it finds
        // the first half.
        reopened_ = startTag(holder_) + reopened_;
        holder_ = buffer_.getCurrentElementPosition(holder_);
    }
}

String HardBreak::startTag(int element) const {
    return String(XmlScan::slice(buffer_.text_.view(), element,
                                 buffer_.getNextEditablePositionInXml(element)));
}

// Splitting a block

void HardBreak::split() {
    const bool wasLine = !endsBlockAtCaret();
    const bool wasBeforeBreak = isBeforeSoftBreak();
    const auto inserted = buffer_.insertXmlTextAtEditablePosition(caret(), splittingText());
    if (wasBeforeBreak)
        buffer_.setCaret(false, inserted.end - (placeholder() + reopened_).length());
    repairHalves(inserted.start);
    if (wasLine)
        keepLineBefore();
    keepLineBehind();
    endDecoration();
}

/// Whether nothing shows between the caret and the end of the block.
bool HardBreak::endsBlockAtCaret() const {
    return buffer_.endOfSkippedSpaces(caret()) == buffer_.getClosingTagForTagAtPosition(holder_);
}

String HardBreak::splittingText() const {
    String text = isFirstInBlock() ? placeholder() : String();
    text += closing_ + L"</" + nameOf(holder_) + L">\n" + indentation() + newStartTag();
    // What stands before a soft break is a line of its own.
    if (isBeforeSoftBreak())
        text += placeholder();
    return text + reopened_;
}

bool HardBreak::isBeforeSoftBreak() const {
    return nameOf(caret()) == L"fo:block" && buffer_.selfClosingTagAtPosition(caret());
}

/// An inline at whose start the break falls is left to the repair, which removes it.
bool HardBreak::isFirstInBlock() const {
    return holder_ == element_ && buffer_.getNextValidCaretPos(holder_) == caret();
}

/// The tabs before the block.
String HardBreak::indentation() const {
    int start = holder_;
    while (XmlScan::standsAt(buffer_.text_.view(), L"\t", start - 1))
        --start;
    return String(XmlScan::slice(buffer_.text_.view(), start, holder_));
}

String HardBreak::newStartTag() const {
    const String name = nameOf(holder_);
    PropertyCollection properties = buffer_.getPropertiesFromElementAt(holder_);
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
    buffer_.handleElementsContainingJustWhiteSpaces(end, true);
    buffer_.handleElementsContainingJustWhiteSpaces(caret(), true);
}

void HardBreak::fillNewLine() {
    const int element = buffer_.getCurrentElementPosition(caret());
    if (isInline(element) || !buffer_.elementContainsJustWhitespacesOrVoid(element))
        return;
    buffer_.handleElementsContainingJustWhiteSpaces(caret(), false);
    takeInPlaceholderBehind(element);
}

/// A placeholder that stood behind what was split has moved in.
void HardBreak::takeInPlaceholderBehind(int element) {
    const int behind = buffer_.positionBehindElement(element);
    if (buffer_.inEditableElement(behind) &&
        XmlScan::standsAt(buffer_.text_.view(), XmlScan::nbspEntity, behind))
        buffer_.removeAndRecord(behind, behind + placeholder().length());
}

/// Behind a soft break, or another end of a line, nothing may be left before the break: that line
/// keeps a placeholder, in the inlines that end with it.
void HardBreak::keepLineBefore() {
    int end = endOfContent(holder_);
    int before = buffer_.getPreviousEditablePositionInXml(end);
    while (buffer_.isInlineEditableElementClosingTagName(nameOf(before))) {
        end = endOfContent(buffer_.getCurrentElementPosition(before));
        before = buffer_.getPreviousEditablePositionInXml(end);
    }
    if (before > holder_ && isBlockLevelTag(buffer_.text_.view(), before))
        buffer_.insertAndRecord(end, placeholder());
}

/// Where the element's content ends, without white space that does not show.
int HardBreak::endOfContent(int element) const {
    return buffer_.startOfSkippedSpaces(buffer_.getClosingTagForTagAtPosition(element));
}

/// So does the line behind the break where a soft break or a nested block ends it at once.
void HardBreak::keepLineBehind() {
    if (nameOf(buffer_.endOfSkippedSpaces(caret())) != L"fo:block")
        return;
    int before = buffer_.getPreviousEditablePositionInXml(caret());
    while (isInline(before))
        before = buffer_.getPreviousEditablePositionInXml(before);
    if (nameOf(before) != nameOf(holder_))
        return;
    const int start = caret();
    buffer_.insertXmlTextAtPosition(start, placeholder());
    buffer_.recordInsertion(start, placeholder());
    buffer_.setCaret(false, start);
    buffer_.recordCaret();
}

/// An empty line does not show lines under, over or through its placeholder.
void HardBreak::endDecoration() {
    int element = buffer_.getCurrentElementPosition(caret());
    if (!isInline(element) || !buffer_.elementContainsJustNonBreakingSpace(element))
        return;
    for (bool reachedBlock = false; element >= 0 && !reachedBlock;
         element = buffer_.getCurrentElementPosition(element)) {
        const PropertyCollection properties = buffer_.getPropertiesFromElementAt(element);
        PropertyCollection kept = properties;
        for (const wchar_t* decoration : decorations)
            kept.removePropertyByName(decoration);
        if (kept.getPropertyList().size() < properties.getPropertyList().size())
            buffer_.replaceProperties(element, kept);
        reachedBlock = nameOf(element) == L"fo:block";
    }
    buffer_.recordCaret();
}

// Where there is no block to split

void HardBreak::wrapLooseContent() {
    static const String open = L"<fo:block>";
    const int start = caret();
    const int inside = start + open.length();
    const int end = endOfLooseContent() + open.length();
    buffer_.recordCaret();
    buffer_.insertAndRecord(start, open);
    buffer_.insertAndRecord(end, L"</fo:block>");
    buffer_.handleElementsContainingJustWhiteSpaces(inside, false);
    buffer_.setCaret(false, buffer_.getNextValidCaretPos(start));
    buffer_.recordCaret();
}

/// Where something begins in the same element that is no line of text, or the element ends; the
/// caret, if only white space and comments stand before that.
int HardBreak::endOfLooseContent() const {
    const int closing = buffer_.getClosingTagForTagAtPosition(element_);
    int end = buffer_.getNextTagPosition(caret());
    while (end < closing && !isBlockLevelTag(buffer_.text_.view(), end))
        end = buffer_.getNextTagPosition(buffer_.positionBehindElement(end));
    int content = XmlScan::skipSpaces(buffer_.text_.view(), caret());
    while (XmlScan::ignoredAt(buffer_.text_.view(), content))
        content = XmlScan::skipSpaces(buffer_.text_.view(),
                                      buffer_.getNextEditablePositionInXml(content));
    return content == end ? caret() : end;
}

int HardBreak::caret() const {
    return buffer_.caretPos_;
}

bool HardBreak::isInline(int element) const {
    return buffer_.isInlineEditableElementName(nameOf(element));
}

String HardBreak::nameOf(int element) const {
    return buffer_.getNameForTagAtPosition(element, true);
}
