#include "editing/clipboard/BlockPaste.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/NamespaceBinding.h"
#include "document/Placeholders.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "editing/breaks/HardBreak.h"
#include "editing/deletion/Deletion.h"
#include "editing/lists/Lists.h"
#include "text/Vocabulary.h"

using Core::String;

namespace {

/// What a paragraph has that one which takes its place would lack.
bool hasPropertiesOfItsOwn(const Document& document, int block) {
    const PropertyCollection properties = Attributes::of(document, block);
    for (const wchar_t* name : HardBreak::ownProperties)
        if (!properties.getPropertyValue(name).empty())
            return true;
    return false;
}

} // namespace

BlockPaste::BlockPaste(Document& document, const std::vector<Piece>& pieces)
    : document_(document), pieces_(pieces),
      firstJoins_(pieces.front().kind == Piece::Kind::Paragraph),
      lastJoins_(pieces.size() > 1 && pieces.back().kind == Piece::Kind::Paragraph),
      place_(document.caret()), holder_(document.text().elementAround(place_)) {
    while (document.names.isInline(document.text().tagName(holder_)))
        holder_ = document.text().elementAround(holder_);
}

bool BlockPaste::fits() const {
    const XmlScan::Text name = document_.text().tagName(holder_);
    const bool holdsBlocks = XmlScan::contains(Vocabulary::blockContainers, name) ||
                             XmlScan::contains(Vocabulary::blockHolders, name) ||
                             name == L"qf:form";
    return isInBlock() || (holdsBlocks && document_.text().elementAround(place_) == holder_);
}

bool BlockPaste::isInBlock() const {
    return document_.text().tagName(holder_) == L"fo:block";
}

bool BlockPaste::run() {
    document_.recordCaret();
    return isInBlock() ? pasteInBlock() : pasteInPlaceOf(place_, place_);
}

bool BlockPaste::pasteInBlock() {
    const XmlText& text = document_.text();
    if (Lists::emptyBlockAround(document_, place_) == holder_ ||
        Placeholders::isVoid(document_, holder_))
        return pasteInEmptyBlock();
    leaveInlineEdges();
    removeLinePlaceholder();
    if (!Deletion::showsBetween(document_, text.next(holder_), place_))
        return pasteInFront();
    if (!Deletion::showsBetween(document_, place_, text.closingTag(holder_)))
        return pasteBehind();
    return split();
}

/// An inline that would be empty on one side of the place is left to the other.
void BlockPaste::leaveInlineEdges() {
    const XmlText& text = document_.text();
    for (int inner = text.elementAround(place_); isEdgeOfInline(inner);
         inner = text.elementAround(place_))
        place_ = Deletion::showsBetween(document_, text.next(inner), place_)
                     ? text.behindElement(inner)
                     : inner;
}

bool BlockPaste::isEdgeOfInline(int element) const {
    const XmlText& text = document_.text();
    return document_.names.isInline(text.tagName(element)) &&
           document_.isEditableAt(text.elementAround(element)) &&
           !(Deletion::showsBetween(document_, text.next(element), place_) &&
             Deletion::showsBetween(document_, place_, text.closingTag(element)));
}

/// A line that is empty has a placeholder, which what is pasted takes the place of.
void BlockPaste::removeLinePlaceholder() {
    bool isCharacter = false;
    bool follows = false;
    if (!Placeholders::isBetweenBreaks(document_, place_, isCharacter, follows))
        return;
    const int length = isCharacter ? 1 : static_cast<int>(XmlScan::nbspEntity.size());
    const int start = follows ? place_ : place_ - length;
    Edit(document_).remove(start, start + length);
    place_ = start;
}

bool BlockPaste::pasteInFront() {
    const String last = lastJoins_ ? pieces_.back().content : String();
    const String others = standing(true, !lastJoins_);
    insert(place_, last);
    insert(holder_, others);
    const int start = holder_;
    const int behindOthers = start + others.length();
    const int end = place_ + others.length() + last.length();
    return finish(start, end, lastJoins_ ? end : stopAtEnd(behindOthers));
}

bool BlockPaste::pasteBehind() {
    const String first = firstJoins_ ? pieces_.front().content : String();
    const String others = standing(!firstJoins_, true);
    insert(place_, first);
    const int behind = document_.text().behindElement(holder_);
    insert(behind, others);
    const int end = behind + others.length();
    return finish(place_, end, others.empty() ? place_ + first.length() : stopAtEnd(end));
}

/// A line that nothing joins keeps a place for the caret beside the break that ends or begins it.
bool BlockPaste::split() {
    const String placeholder(XmlScan::nbspEntity);
    String head = isBehindBreak() ? placeholder : String();
    String tail = isBeforeBreak() ? placeholder : String();
    if (firstJoins_ && !pieces_.front().content.empty())
        head = pieces_.front().content;
    if (lastJoins_ && !pieces_.back().content.empty())
        tail = pieces_.back().content;
    const String upToSecond =
        head + inlineClosings() + L"</fo:block>" + standing(!firstJoins_, !lastJoins_);
    const String all = upToSecond + secondHalf(tail);
    insert(place_, all);
    const int end = place_ + all.length();
    return finish(place_, end, lastJoins_ ? end : stopAtEnd(place_ + upToSecond.length()));
}

/// An empty paragraph gives way. One that breaks the page or has a name that others refer to takes
/// what it can.
bool BlockPaste::pasteInEmptyBlock() {
    const XmlText& text = document_.text();
    if (!hasPropertiesOfItsOwn(document_, holder_))
        return pasteInPlaceOf(holder_, text.behindElement(holder_));
    if (firstJoins_ && !pieces_.front().content.empty()) {
        place_ = text.next(holder_);
        Edit(document_).remove(place_, text.closingTag(holder_));
    }
    return pasteBehind();
}

bool BlockPaste::pasteInPlaceOf(int start, int end) {
    const String all = standing(true, true);
    if (start < end)
        Edit(document_).remove(start, end);
    insert(start, all);
    return finish(start, start + all.length(), stopAtEnd(start + all.length()));
}

// Markup

String BlockPaste::standing(bool withFirst, bool withLast) const {
    String markup;
    for (const Piece& piece : pieces_)
        if ((withFirst || &piece != &pieces_.front()) && (withLast || &piece != &pieces_.back()))
            markup += piece.markup;
    return markup;
}

String BlockPaste::inlineClosings() const {
    const XmlText& text = document_.text();
    String closings;
    for (int element = text.elementAround(place_); element != holder_;
         element = text.elementAround(element))
        closings += L"</" + text.nameAt(element) + L">";
    return closings;
}

String BlockPaste::secondHalf(const String& content) const {
    const XmlText& text = document_.text();
    String opening = content;
    for (int element = text.elementAround(place_); element != holder_;
         element = text.elementAround(element))
        opening = text.slice(element, text.next(element)) + opening;
    return HardBreak::startTagOfSecondHalf(document_, holder_) + opening;
}

bool BlockPaste::isBehindBreak() const {
    const XmlText& text = document_.text();
    const int before = text.previous(place_);
    return text.tagName(before) == L"fo:block" && text.selfClosingAt(before);
}

bool BlockPaste::isBeforeBreak() const {
    const XmlText& text = document_.text();
    return text.tagName(place_) == L"fo:block" && text.selfClosingAt(place_);
}

void BlockPaste::insert(int position, const String& xml) {
    if (!xml.empty())
        Edit(document_).insert(position, xml);
}

/// Behind a table the caret can stand; in all else it stands at the end, of a list in its last
/// item.
int BlockPaste::stopAtEnd(int end) const {
    const XmlText& text = document_.text();
    if (text.isBehindTable(end) && Stops::canHoldCaret(document_, end))
        return end;
    int stop = Stops::previous(document_, end);
    while (text.nameAt(text.previous(stop)) == L"/fo:list-block")
        stop = Stops::previous(document_, stop);
    return stop;
}

bool BlockPaste::finish(int start, int end, int caret) {
    document_.setCaret(caret);
    const bool areBound = NamespaceBinding::bind(document_, start, end);
    Moves::toStop(document_);
    document_.recordCaret();
    return areBound;
}
