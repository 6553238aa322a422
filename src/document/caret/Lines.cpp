#include "document/caret/Lines.h"

#include "document/BlockLevel.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Stops.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

namespace {

bool isBlank(Text units) {
    return std::all_of(units.begin(), units.end(), [](wchar_t unit) { return unit == L' '; });
}

} // namespace

bool Lines::areInOneBlock(const Document& document, int position, int other) {
    return document.text().areInSameElement(L"fo:block", position, other);
}

bool Lines::isInlineEdge(const Document& document, int position) {
    return document.names.isInline(document.text().tagName(position)) ||
           Lines::closesInline(document, position);
}

bool Lines::closesInline(const Document& document, int position) {
    const Text name = document.text().tagName(position);
    return name.starts_with(L'/') && document.names.isInline(name.substr(1));
}

bool Lines::blockTagLiesBetween(const Document& document, int start, int end) {
    const XmlText& text = document.text();
    for (int tag = text.nextTag(start); tag >= 0 && tag < end; tag = text.nextTag(text.next(tag)))
        if (text.nameAt(tag).substringAfter(L"/") == L"fo:block")
            return true;
    return false;
}

int Lines::startOfSkipped(const Document& document, int position) {
    CaretWalk walk(document, position);
    while (position > 0 && String::isSpace(document.text().unitAt(position - 1)) &&
           walk.isSkippedInElement(position - 1))
        --position;
    return position;
}

int Lines::endOfSkipped(const Document& document, int position) {
    CaretWalk walk(document, position);
    while (document.text().isValid(position) && String::isSpace(document.text().unitAt(position)) &&
           walk.isSkippedInElement(position))
        ++position;
    return position;
}

int Lines::startOfLayout(const Document& document, int position) {
    const int start = Lines::startOfSkipped(document, position);
    const bool areBlanks = isBlank(document.text().view(start, position));
    return areBlanks && !Lines::isBehindBlockLevelTag(document, start) ? position : start;
}

bool Lines::isBehindBlockLevelTag(const Document& document, int position) {
    return document.text().kindEndingAt(position - 1) == xmlElement &&
           isBlockLevelTag(document.text(), document.text().previous(position));
}

int Lines::endOfLayout(const Document& document, int position) {
    const int end = Lines::endOfSkipped(document, position);
    const bool areBlanks = isBlank(document.text().view(position, end));
    return areBlanks && !isBlockLevelTag(document.text(), end) ? position : end;
}

bool Lines::isStart(const Document& document, int position) {
    int start = Lines::startOfSkipped(document, position);
    for (int hidden = Lines::startOfHidden(document, start); hidden >= 0;
         hidden = Lines::startOfHidden(document, start))
        start = Lines::startOfSkipped(document, hidden);
    return Lines::isBehindBlockLevelTag(document, start);
}

int Lines::startOfHidden(const Document& document, int position) {
    const XmlText& text = document.text();
    const XmlElementType type = text.kindEndingAt(position - 1);
    if (type == xmlComment || type == xmlProcessingInstruction)
        return text.kindStart(type, position - 1);
    const int tag = type == xmlElement ? text.previous(position) : -1;
    return Lines::isInlineEdge(document, tag) ? tag : -1;
}

bool Lines::isEnd(const Document& document, int position) {
    const XmlText& text = document.text();
    const auto isHidden = [&](int at) {
        return Lines::isInlineEdge(document, at) || (text.ignoredAt(at) && !text.cdataAt(at));
    };
    int tag = Lines::endOfSkipped(document, position);
    while (isHidden(tag))
        tag = Lines::endOfSkipped(document, text.next(tag));
    return isBlockLevelTag(text, tag);
}

bool Lines::isEmptyBehindLineBreak(const Document& document, int position) {
    const XmlText& text = document.text();
    const int before = text.previous(Lines::startOfSkipped(document, position));
    return text.tagName(before) == L"fo:block" && text.selfClosingAt(before) &&
           Lines::isEnd(document, position);
}

bool Lines::isPlaceholderLine(const Document& document, int position) {
    const int length = document.text().placeholderLength(position);
    return length > 0 && Lines::isStart(document, position) &&
           Lines::isEnd(document, position + length);
}

bool Lines::isKeptBlank(const Document& document, int position, int element) {
    const XmlText& text = document.text();
    if (!text.isValid(position) || text.elementAround(position) != element)
        return false;
    const wchar_t unit = text.unitAt(position);
    return String::isSpace(unit) && unit != L'\n' && !Stops::isSkipped(document, position);
}

bool Lines::isNestedBlock(const Document& document, int position) {
    return document.text().tagName(position) == L"fo:block" &&
           document.text().nameAround(position).view() == L"fo:block";
}

void Lines::startOfIndentation(const Document& document, int& position) {
    if (position < 1 || position > document.text().length())
        return;
    const XmlText& text = document.text();
    while (position > 0 && text.unitAt(position - 1) == L'\t')
        --position;
    if (position > 0 && text.unitAt(position - 1) == L'\n')
        --position;
}

bool EditableDocumentBuffer::imbricatedBlocksContext(int position) const {
    return Lines::isNestedBlock(*document_, position);
}

void EditableDocumentBuffer::deleteSpacesBetweenTags(int& position) const {
    Lines::startOfIndentation(*document_, position);
}
